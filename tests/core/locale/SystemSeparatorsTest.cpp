// The separators found at start, under the locale the test run sets in the environment.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "Cp1253.h"
#include "SystemSeparators.h"

namespace {

// The separator the run expects, or 0 when the variable is not set.
char32_t Expected(const char* variable) {
  const std::u32string wide = Utf8ToU32(std::getenv(variable) ? std::getenv(variable) : "");
  return wide.size() == 1 ? wide[0] : 0;
}

// Typed numbers read with the separators, and the screens' formats write them.
TEST(SystemSeparators, MatchTheLocaleAndTypedNumbersReadWithThem) {
  const char32_t decimal = Expected("RAVO_EXPECT_DECIMAL"),
                 thousands = Expected("RAVO_EXPECT_THOUSANDS");
  if (decimal == 0 || thousands == 0)
    GTEST_SKIP() << "RAVO_EXPECT_DECIMAL and RAVO_EXPECT_THOUSANDS name the expected pair";
  const Separators seps = SystemSeparators();
  EXPECT_EQ(static_cast<uint32_t>(seps.Decimal), static_cast<uint32_t>(decimal));
  EXPECT_EQ(static_cast<uint32_t>(seps.Thousands), static_cast<uint32_t>(thousands));
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
