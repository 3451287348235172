// Number to text: the screens' format strings, CStr and Str, and the rounding rules.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "Numbers.h"
#include "RuntimeFault.h"

namespace {

const Separators kGreek{U',', U'.'};
const Separators kEnglish{U'.', U','};

// The same text under Greek separators: the two characters trade places.
std::string ToGreek(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char c) {
    return c == '.' ? ',' : c == ',' ? '.' : c;
  });
  return text;
}

struct FormatCase {
  double Value;
  std::string Pattern;
  std::string English;
};

void PrintTo(const FormatCase& c, std::ostream* os) {
  *os << "Format(" << c.Value << ", \"" << c.Pattern << "\")";
}

class Format : public ::testing::TestWithParam<FormatCase> {};

TEST_P(Format, EnglishSeparators) {
  EXPECT_EQ(FormatNumber(GetParam().Value, GetParam().Pattern, kEnglish), GetParam().English);
}

TEST_P(Format, GreekSeparators) {
  EXPECT_EQ(FormatNumber(GetParam().Value, GetParam().Pattern, kGreek),
            ToGreek(GetParam().English));
}

INSTANTIATE_TEST_SUITE_P(Loads, Format,
                         ::testing::Values(FormatCase{0, "#,###", ""}, FormatCase{0.4, "#,###", ""},
                                           FormatCase{0.5, "#,###", "1"},
                                           FormatCase{999.5, "#,###", "1,000"},
                                           FormatCase{1234.567, "#,###", "1,235"},
                                           FormatCase{-1234.5, "#,###", "-1,235"},
                                           FormatCase{1e9, "#,###", "1,000,000,000"},
                                           FormatCase{12345, "##,###", "12,345"},
                                           FormatCase{0, "##,###", ""},
                                           FormatCase{123456789, "##,###", "123,456,789"}));

INSTANTIATE_TEST_SUITE_P(
    OneDecimal, Format,
    ::testing::Values(
        FormatCase{0, "#,##0.0", "0.0"}, FormatCase{0.5, "#,##0.0", "0.5"},
        FormatCase{5000.0 / 2, "#,##0.0", "2,500.0"}, FormatCase{0.05, "#,##0.0", "0.1"},
        FormatCase{0.25, "#,##0.0", "0.3"}, FormatCase{2.25, "0.0", "2.3"},
        FormatCase{-2.25, "0.0", "-2.3"}, FormatCase{-0.04, "#,##0.0", "-0.0"},
        FormatCase{1234.56, "#,##0.0", "1,234.6"}, FormatCase{999999.95, "#,##0.0", "1,000,000.0"},
        FormatCase{1e9, "#,##0.0", "1,000,000,000.0"}, FormatCase{0.5, "#,###.0", ".5"},
        FormatCase{0, "#,###.0", ".0"}, FormatCase{1234.56, "#,###.0", "1,234.6"},
        FormatCase{-0.5, "#,###.0", "-.5"}));

INSTANTIATE_TEST_SUITE_P(SeveralDecimals, Format,
                         ::testing::Values(FormatCase{1234.567, "#,##0.00", "1,234.57"},
                                           FormatCase{0.125, "#,##0.00", "0.13"},
                                           FormatCase{-0.125, "#,##0.00", "-0.13"},
                                           // Below the half in binary, at the half in 15 digits.
                                           FormatCase{1.005, "#,##0.00", "1.01"},
                                           FormatCase{2.675, "#,##0.00", "2.68"},
                                           FormatCase{1.0005, "#,##0.000", "1.001"},
                                           FormatCase{0, "#,##0.00", "0.00"},
                                           FormatCase{1e9, "#,##0.00", "1,000,000,000.00"},
                                           FormatCase{0.125, "#,###.00", ".13"},
                                           FormatCase{1234.5, "#,###.00", "1,234.50"},
                                           FormatCase{12.3456, "#,##0.000", "12.346"},
                                           FormatCase{0.123456, "#,##0.00000", "0.12346"},
                                           FormatCase{12345.678901, "#,##0.00000", "12,345.67890"},
                                           FormatCase{1e-7, "#,##0.00000", "0.00000"}));

INSTANTIATE_TEST_SUITE_P(
    Whole, Format,
    ::testing::Values(FormatCase{0, "#,##0", "0"}, FormatCase{1234.5, "#,##0", "1,235"},
                      FormatCase{2.5, "#,##0", "3"}, FormatCase{-2.5, "#,##0", "-3"},
                      FormatCase{1e15, "#,##0", "1,000,000,000,000,000"}, FormatCase{2.5, "0", "3"},
                      FormatCase{0, "0", "0"}, FormatCase{1234, "0", "1234"},
                      FormatCase{-0.4, "0", "-0"}, FormatCase{5, "00", "05"},
                      FormatCase{123, "00", "123"}, FormatCase{7, "000", "007"},
                      FormatCase{0, "000", "000"}, FormatCase{1e20, "0", "100000000000000000000"}));

TEST(FormatNumber, GreekTextsAsTheScreensShowThem) {
  EXPECT_EQ(FormatNumber(1234.567, "#,##0.00", kGreek), "1.234,57");
  EXPECT_EQ(FormatNumber(5000.0 / 2, "#,##0.0", kGreek), "2.500,0");
  EXPECT_EQ(FormatNumber(0.5, "#,###.0", kGreek), ",5");
}

TEST(FormatNumber, OptionalDecimalsAndLiterals) {
  EXPECT_EQ(FormatNumber(2.5, "#.##", kEnglish), "2.5");
  EXPECT_EQ(FormatNumber(2, "#.##", kEnglish), "2.");
  EXPECT_EQ(FormatNumber(2.1, "0.0#", kEnglish), "2.1");
  EXPECT_EQ(FormatNumber(2.125, "0.0#", kEnglish), "2.13");
  EXPECT_EQ(FormatNumber(15, "0 kg", kEnglish), "15 kg");
  EXPECT_EQ(FormatNumber(-15, "Δ 0", kEnglish), "-Δ 15");
  EXPECT_EQ(FormatNumber(15, "kg", kEnglish), "kg");
  EXPECT_EQ(FormatNumber(0.5, "", kGreek), "0,5");
}

// A single's decimal text has 7 significant digits; the rounding starts from those.
TEST(FormatSingle, RoundsFromSevenDigits) {
  EXPECT_EQ(FormatNumber(1.05f, "0.0", kEnglish), "1.0");
  EXPECT_EQ(FormatSingle(1.05f, "0.0", kEnglish), "1.1");
  EXPECT_EQ(FormatSingle(2500.f, "#,##0.0", kGreek), "2.500,0");
  EXPECT_EQ(FormatSingle(0.125f, "#,##0.00", kEnglish), "0.13");
  EXPECT_EQ(FormatSingle(-0.04f, "#,##0.0", kEnglish), "-0.0");
  EXPECT_EQ(FormatSingle(0.f, "#,###", kEnglish), "");
  EXPECT_EQ(FormatSingle(16777215.f, "#,###", kEnglish), "16,777,220");
  EXPECT_EQ(FormatSingle(0.5f, "", kGreek), "0,5");
}

TEST(FormatNumber, AnInfiniteValueIsAnOverflow) {
  try {
    FormatNumber(INFINITY, "#,##0", kEnglish);
    FAIL() << "no fault";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.Code(), FaultCode::Overflow);
  }
  EXPECT_THROW(CStrDouble(NAN, kEnglish), RuntimeFault);
  EXPECT_THROW(FormatSingle(-INFINITY, "0", kEnglish), RuntimeFault);
}

struct CStrCase {
  double Value;
  std::string English;
};

class CStrOfDouble : public ::testing::TestWithParam<CStrCase> {};

TEST_P(CStrOfDouble, FifteenDigitsAndTheRegionalSeparator) {
  EXPECT_EQ(CStrDouble(GetParam().Value, kEnglish), GetParam().English);
  EXPECT_EQ(CStrDouble(GetParam().Value, kGreek), ToGreek(GetParam().English));
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, CStrOfDouble,
    ::testing::Values(CStrCase{0.5, "0.5"}, CStrCase{0, "0"}, CStrCase{-0.0, "0"},
                      CStrCase{-2.5, "-2.5"}, CStrCase{85, "85"}, CStrCase{0.1 + 0.2, "0.3"},
                      CStrCase{1.0 / 3, "0.333333333333333"},
                      CStrCase{123456789012345, "123456789012345"},
                      CStrCase{999999999999999.9, "1E+15"}, CStrCase{1e16, "1E+16"},
                      CStrCase{1234567890123456, "1.23456789012346E+15"},
                      CStrCase{0.0001, "0.0001"}, CStrCase{0.00001, "1E-05"},
                      CStrCase{-1.5e-10, "-1.5E-10"}, CStrCase{1e100, "1E+100"}));

struct CStrSingleCase {
  float Value;
  std::string English;
};

class CStrOfSingle : public ::testing::TestWithParam<CStrSingleCase> {};

TEST_P(CStrOfSingle, SevenDigitsAndTheRegionalSeparator) {
  EXPECT_EQ(CStrSingle(GetParam().Value, kEnglish), GetParam().English);
  EXPECT_EQ(CStrSingle(GetParam().Value, kGreek), ToGreek(GetParam().English));
}

INSTANTIATE_TEST_SUITE_P(Numbers, CStrOfSingle,
                         ::testing::Values(CStrSingleCase{0.1f, "0.1"}, CStrSingleCase{2.5f, "2.5"},
                                           CStrSingleCase{85.f, "85"},
                                           CStrSingleCase{3.14159274f, "3.141593"},
                                           CStrSingleCase{1234567.f, "1234567"},
                                           CStrSingleCase{12345678.f, "1.234568E+07"},
                                           CStrSingleCase{10000000.f, "1E+07"},
                                           CStrSingleCase{-0.0125f, "-0.0125"},
                                           CStrSingleCase{16.f / 1000 * 16.f / 1000, "0.000256"}));

TEST(StrNumber, PointAndLeadingBlank) {
  EXPECT_EQ(StrNumber(5), " 5");
  EXPECT_EQ(StrNumber(-5), "-5");
  EXPECT_EQ(StrNumber(0), " 0");
  EXPECT_EQ(StrNumber(1234.5), " 1234.5");
  EXPECT_EQ(StrNumber(0.5), " .5");
  EXPECT_EQ(StrNumber(-0.25), "-.25");
}

struct RoundCase {
  double Value;
  int Decimals;
  double HalfUp;
};

class RoundingHalfUp : public ::testing::TestWithParam<RoundCase> {};

TEST_P(RoundingHalfUp, IntOfScaledValuePlusAHalf) {
  EXPECT_DOUBLE_EQ(RoundHalfUp(GetParam().Value, GetParam().Decimals), GetParam().HalfUp);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, RoundingHalfUp,
    ::testing::Values(RoundCase{2.5, 0, 3}, RoundCase{-2.5, 0, -2}, RoundCase{-2.6, 0, -3},
                      RoundCase{1.25, 1, 1.3}, RoundCase{1234.5678, 2, 1234.57},
                      // 1.005 * 100 lies just below 100.5 in binary: the system got 1.00 too.
                      RoundCase{1.005, 2, 1.0}, RoundCase{1091.4, 0, 1091},
                      RoundCase{49.95, 1, 50}));

struct EvenCase {
  double Value;
  double Even;
  double Int;
  double Fix;
};

class WholeNumbers : public ::testing::TestWithParam<EvenCase> {};

TEST_P(WholeNumbers, HalfEvenIntAndFix) {
  EXPECT_EQ(RoundHalfEven(GetParam().Value), GetParam().Even);
  EXPECT_EQ(VbInt(GetParam().Value), GetParam().Int);
  EXPECT_EQ(VbFix(GetParam().Value), GetParam().Fix);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, WholeNumbers,
    ::testing::Values(EvenCase{2.5, 2, 2, 2}, EvenCase{3.5, 4, 3, 3}, EvenCase{-2.5, -2, -3, -2},
                      EvenCase{-3.5, -4, -4, -3}, EvenCase{0.5, 0, 0, 0}, EvenCase{1.5, 2, 1, 1},
                      EvenCase{2.4, 2, 2, 2}, EvenCase{2.6, 3, 2, 2}, EvenCase{-2.6, -3, -3, -2},
                      EvenCase{32767.5, 32768, 32767, 32767}, EvenCase{7, 7, 7, 7}));

}  // namespace
