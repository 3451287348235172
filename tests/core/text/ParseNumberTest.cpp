// Typed text to number: ParseNumber and the readings it is built on.
#include <gtest/gtest.h>

#include <string>

#include "Numbers.h"

namespace {

const Separators kGreek{U',', U'.'};
const Separators kEnglish{U'.', U','};

struct ParseCase {
  std::string Text;
  double Expected;
  int16_t FlagAfter;  // ErrorFlag after the call when it was 0 before
};

void PrintTo(const ParseCase& c, std::ostream* os) {
  *os << '"' << c.Text << '"';
}

class ParseGreek : public ::testing::TestWithParam<ParseCase> {};
class ParseEnglish : public ::testing::TestWithParam<ParseCase> {};

TEST_P(ParseGreek, ReadsAsTheSheetsExpect) {
  int16_t flag = 0;
  EXPECT_DOUBLE_EQ(ParseNumber(GetParam().Text, kGreek, flag), GetParam().Expected);
  EXPECT_EQ(flag, GetParam().FlagAfter);
}

TEST_P(ParseEnglish, ReadsAsTheSheetsExpect) {
  int16_t flag = 0;
  EXPECT_DOUBLE_EQ(ParseNumber(GetParam().Text, kEnglish, flag), GetParam().Expected);
  EXPECT_EQ(flag, GetParam().FlagAfter);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, ParseGreek,
    ::testing::Values(ParseCase{"1.234,5", 1234.5, 0}, ParseCase{"1,5,2", 0, 0},
                      ParseCase{"1,5,2,7", 0, 0}, ParseCase{"12a", 12, 0}, ParseCase{"a12", 0, 0},
                      ParseCase{"abc", 0, 0}, ParseCase{"-5", -5, 0}, ParseCase{"-", 0, 0},
                      ParseCase{",", 0, 0}, ParseCase{"----", -1202, 0}, ParseCase{"", 0, 0},
                      ParseCase{"   ", 0, 0}, ParseCase{"1.2.3,5", 123.5, 0},
                      ParseCase{"2,5", 2.5, 0}, ParseCase{" 2,5 ", 2.5, 0}, ParseCase{",5", 0.5, 0},
                      ParseCase{"5-", -5, 0}, ParseCase{"1-2", 0, 0}, ParseCase{"--5", 0, 0},
                      ParseCase{"85", 85, 0}, ParseCase{"1.000", 1000, 0},
                      // A mixed text is read by the leading-number rule: "." is its point.
                      ParseCase{"12.5kg", 12.5, 0}, ParseCase{"2,5 m", 2, 0},
                      ParseCase{"1 000", 1000, 0}, ParseCase{"&H1F", 31, 0}, ParseCase{"Φ16", 0, 0},
                      ParseCase{"16Φ", 16, 0}, ParseCase{"1e3", 1000, 0}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, ParseEnglish,
    ::testing::Values(ParseCase{"1,234.5", 1234.5, 0}, ParseCase{"1.5.2", 0, 0},
                      ParseCase{"12a", 12, 0}, ParseCase{"a12", 0, 0}, ParseCase{"abc", 0, 0},
                      ParseCase{"-5", -5, 0}, ParseCase{"-", 0, 0}, ParseCase{".", 0, 0},
                      ParseCase{"----", -1202, 0}, ParseCase{"", 0, 0}, ParseCase{"   ", 0, 0},
                      ParseCase{"1,2,3.5", 123.5, 0}, ParseCase{"2.5", 2.5, 0},
                      ParseCase{"1,5,2", 152, 0}, ParseCase{".5", 0.5, 0},
                      ParseCase{"-1,091", -1091, 0}, ParseCase{"12.5kg", 12.5, 0}));

TEST(ParseNumber, TwoDecimalSeparatorsLeaveTheFlagAtZero) {
  int16_t flag = -1;
  EXPECT_EQ(ParseNumber("1,5,2", kGreek, flag), 0.0);
  EXPECT_EQ(flag, 0);
}

TEST(ParseNumber, OneDecimalSeparatorLeavesTheFlagAlone) {
  int16_t flag = -1;
  EXPECT_EQ(ParseNumber("1,5", kGreek, flag), 1.5);
  EXPECT_EQ(flag, -1);
}

// The first step looks at the flag after counting, whatever set it: a flag above 1 left by
// another check gives 0 and is reset too.
TEST(ParseNumber, AFlagAboveOneBeforeTheCallGivesZero) {
  int16_t flag = 3;
  EXPECT_EQ(ParseNumber("42", kGreek, flag), 0.0);
  EXPECT_EQ(flag, 0);
}

TEST(ParseNumber, LongTextsNeverFail) {
  int16_t flag = 0;
  EXPECT_EQ(ParseNumber(std::string(10000, '9'), kGreek, flag), 0.0);
  EXPECT_EQ(ParseNumber(std::string(10000, ','), kGreek, flag), 0.0);
  EXPECT_EQ(flag, 0);
  EXPECT_EQ(ParseNumber(std::string(10000, '.'), kGreek, flag), 0.0);
  EXPECT_EQ(ParseNumber(std::string(10000, '-'), kGreek, flag), 0.0);
  EXPECT_EQ(ParseNumber("7" + std::string(9999, 'x'), kGreek, flag), 7.0);
  EXPECT_EQ(ParseNumber(std::string(9999, 'x') + "7", kGreek, flag), 0.0);
  EXPECT_EQ(ParseNumber("1" + std::string(9999, '0'), kEnglish, flag), 0.0);
  std::string noise;
  for (int i = 0; i < 10000; ++i) noise.push_back(static_cast<char>((i * 37) % 256));
  EXPECT_NO_THROW(ParseNumber(noise, kGreek, flag));
  EXPECT_DOUBLE_EQ(ParseNumber("0," + std::string(9998, '5'), kGreek, flag), 5.0 / 9);
}

TEST(CountDecimalSeparators, SetsTheFlagOnlyFromTwo) {
  int16_t flag = 0;
  EXPECT_EQ(CountDecimalSeparators("1,5", kGreek, flag), 1);
  EXPECT_EQ(flag, 0);
  EXPECT_EQ(CountDecimalSeparators("1,5,2,", kGreek, flag), 3);
  EXPECT_EQ(flag, 3);
  EXPECT_EQ(CountDecimalSeparators(std::string(40000, '.'), kEnglish, flag), 40000);
  EXPECT_EQ(flag, 32767);
}

TEST(StripThousands, RemovesEverySeparator) {
  EXPECT_EQ(StripThousands("1.234.567,5", kGreek), "1234567,5");
  EXPECT_EQ(StripThousands("1,234,567.5", kEnglish), "1234567.5");
  EXPECT_EQ(StripThousands("Φ16,5", kEnglish), "Φ165");
  const Separators narrowSpace{U',', 0x202F};
  EXPECT_EQ(StripThousands("2\u202F500,0", narrowSpace), "2500,0");
}

TEST(SeparatorsFromSample, ReadsCharactersTwoAndSix) {
  const Separators greek = SeparatorsFromSample(U"2.500,0");
  EXPECT_EQ(greek.Decimal, U',');
  EXPECT_EQ(greek.Thousands, U'.');
  const Separators english = SeparatorsFromSample(U"2,500.0");
  EXPECT_EQ(english.Decimal, U'.');
  EXPECT_EQ(english.Thousands, U',');
  const Separators french = SeparatorsFromSample(U"2\u202F500,0");
  EXPECT_EQ(french.Thousands, char32_t{0x202F});
  EXPECT_EQ(SeparatorsFromSample(U"2,5").Decimal, U'.');
  EXPECT_EQ(SeparatorsFromSample(U"2500,0").Thousands, U',');
}

struct ValCase {
  std::string Text;
  double Expected;
};

class ValReading : public ::testing::TestWithParam<ValCase> {};

TEST_P(ValReading, ReadsTheLeadingNumber) {
  EXPECT_DOUBLE_EQ(Val(GetParam().Text), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, ValReading,
    ::testing::Values(ValCase{"12abc", 12}, ValCase{"a12", 0}, ValCase{" 1 2 ", 12},
                      ValCase{"-", 0}, ValCase{"", 0}, ValCase{"1,5", 1}, ValCase{"-2.5", -2.5},
                      ValCase{"+3", 3}, ValCase{".5", 0.5}, ValCase{"1.2.3", 1.2},
                      ValCase{"1e3", 1000}, ValCase{"1D-2", 0.01}, ValCase{"1e", 1},
                      ValCase{"2e+", 2}, ValCase{"\t4\n5", 45}, ValCase{"&H1F", 31},
                      ValCase{"&o17", 15}, ValCase{"&HFFFF", -1}, ValCase{"&H10000", 65536},
                      ValCase{"&HFFFFFFFF", -1}, ValCase{"&H1FFFFFFFF", 0}, ValCase{"&X1", 0},
                      ValCase{"--5", 0}, ValCase{"1e400", 0}));

struct RegionalCase {
  std::string Text;
  bool Ok;
  double Expected;
};

class RegionalGreek : public ::testing::TestWithParam<RegionalCase> {};

TEST_P(RegionalGreek, ConvertsUnderTheGreekSeparators) {
  double value = -99;
  EXPECT_EQ(RegionalToDouble(GetParam().Text, kGreek, value), GetParam().Ok);
  if (GetParam().Ok) {
    EXPECT_DOUBLE_EQ(value, GetParam().Expected);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, RegionalGreek,
    ::testing::Values(RegionalCase{"1.2.3,5", true, 123.5}, RegionalCase{" 1.234,5 ", true, 1234.5},
                      RegionalCase{"-2,5", true, -2.5}, RegionalCase{"2,5-", true, -2.5},
                      RegionalCase{"+7", true, 7}, RegionalCase{"7+", true, 7},
                      RegionalCase{"1,5E3", true, 1500}, RegionalCase{"1e-2", true, 0.01},
                      RegionalCase{",5", true, 0.5}, RegionalCase{"5,", true, 5},
                      RegionalCase{"-", false, 0}, RegionalCase{",", false, 0},
                      RegionalCase{".", false, 0}, RegionalCase{"", false, 0},
                      RegionalCase{"-5-", false, 0}, RegionalCase{"1,5,2", false, 0},
                      RegionalCase{"1 2", false, 0}, RegionalCase{"12a", false, 0},
                      RegionalCase{"1e", false, 0}, RegionalCase{"1e400", false, 0}));

}  // namespace
