// The separators found at start, under the locale the test run sets in the environment.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "Cp1253.h"
#include "SystemSeparators.h"

namespace {

// The separator the run expects, or 0 when the variable is not set.
char32_t Expected(const char* variable) {
  const char* value = std::getenv(variable);
  if (value == nullptr) return 0;
  const std::u32string wide = Utf8ToU32(value);
  return wide.size() == 1 ? wide[0] : 0;
}

class SystemSeparatorsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    decimal_ = Expected("RAVO_EXPECT_DECIMAL");
    thousands_ = Expected("RAVO_EXPECT_THOUSANDS");
    if (decimal_ == 0 || thousands_ == 0) {
      GTEST_SKIP() << "RAVO_EXPECT_DECIMAL and RAVO_EXPECT_THOUSANDS name the expected pair";
    }
  }
  char32_t decimal_ = 0;
  char32_t thousands_ = 0;
};

TEST_F(SystemSeparatorsTest, MatchTheLocale) {
  const Separators seps = SystemSeparators();
  EXPECT_EQ(static_cast<uint32_t>(seps.Decimal), static_cast<uint32_t>(decimal_));
  EXPECT_EQ(static_cast<uint32_t>(seps.Thousands), static_cast<uint32_t>(thousands_));
}

TEST_F(SystemSeparatorsTest, TypedNumbersReadWithThem) {
  const Separators seps = SystemSeparators();
  std::string typed = "1";
  AppendUtf8(typed, seps.Thousands);
  typed += "234";
  AppendUtf8(typed, seps.Decimal);
  typed += "5";
  int16_t flag = 0;
  EXPECT_DOUBLE_EQ(ParseNumber(typed, seps, flag), 1234.5) << typed;
  EXPECT_EQ(FormatNumber(1234.5, "#,##0.0", seps), typed);
  EXPECT_EQ(flag, 0);
}

}  // namespace
