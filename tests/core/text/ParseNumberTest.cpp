// Typed text to number: ParseNumber and the readings it is built on.
#include <gtest/gtest.h>

#include <span>
#include <string>

#include "Numbers.h"

namespace {

const Separators kGreek{U',', U'.'};
const Separators kEnglish{U'.', U','};

// A mixed text ("12.5kg") is read by the leading-number rule, where "." is the point.
TEST(ParseNumber, ReadsAsTheSheetsExpect) {
  const std::pair<const char*, double> greek[] = {
      {"1.234,5", 1234.5}, {"1,5,2", 0},    {"1,5,2,7", 0},   {"12a", 12},     {"a12", 0},
      {"-5", -5},          {"-", 0},        {",", 0},         {"----", -1202}, {"   ", 0},
      {"1.2.3,5", 123.5},  {" 2,5 ", 2.5},  {",5", 0.5},      {"5-", -5},      {"1-2", 0},
      {"--5", 0},          {"1.000", 1000}, {"12.5kg", 12.5}, {"2,5 m", 2},    {"1 000", 1000},
      {"&H1F", 31},        {"Φ16", 0},      {"16Φ", 16},      {"1e3", 1000}};
  const std::pair<const char*, double> english[] = {
      {"1,234.5", 1234.5}, {"1.5.2", 0},      {".", 0},         {"1,2,3.5", 123.5}, {"1,5,2", 152},
      {".5", 0.5},         {"-1,091", -1091}, {"12.5kg", 12.5}, {"----", -1202}};
  for (const auto& [cases, seps] :
       {std::pair{std::span<const std::pair<const char*, double>>(greek), kGreek},
        {std::span<const std::pair<const char*, double>>(english), kEnglish}}) {
    for (const auto& [text, expected] : cases) {
      int16_t flag = 0;
      EXPECT_DOUBLE_EQ(ParseNumber(text, seps, flag), expected) << '"' << text << '"';
      EXPECT_EQ(flag, 0);
    }
  }
}

// Two decimal separators leave the flag at 0; one leaves it alone; a flag above 1 left by
// another check gives 0 and is reset too.
TEST(ParseNumber, TheErrorFlag) {
  int16_t flag = -1;
  EXPECT_EQ(ParseNumber("1,5", kGreek, flag), 1.5);
  EXPECT_EQ(flag, -1);
  EXPECT_EQ(ParseNumber("1,5,2", kGreek, flag), 0.0);
  EXPECT_EQ(flag, 0);
  flag = 3;
  EXPECT_EQ(ParseNumber("42", kGreek, flag), 0.0);
  EXPECT_EQ(flag, 0);
  EXPECT_EQ(CountDecimalSeparators("1,5,2,", kGreek, flag), 3);
  EXPECT_EQ(flag, 3);
  EXPECT_EQ(CountDecimalSeparators(std::string(40000, '.'), kEnglish, flag), 40000);
  EXPECT_EQ(flag, 32767);
}

TEST(ParseNumber, LongTextsNeverFail) {
  int16_t flag = 0;
  EXPECT_EQ(ParseNumber(std::string(10000, '9'), kGreek, flag), 0.0);
  EXPECT_EQ(ParseNumber(std::string(10000, '-'), kGreek, flag), 0.0);
  EXPECT_EQ(ParseNumber("7" + std::string(9999, 'x'), kGreek, flag), 7.0);
  EXPECT_EQ(ParseNumber("1" + std::string(9999, '0'), kEnglish, flag), 0.0);
  std::string noise;
  for (int i = 0; i < 10000; ++i) noise.push_back(static_cast<char>((i * 37) % 256));
  EXPECT_NO_THROW(ParseNumber(noise, kGreek, flag));
  EXPECT_DOUBLE_EQ(ParseNumber("0," + std::string(9998, '5'), kGreek, flag), 5.0 / 9);
}

TEST(ParseNumber, SeparatorsStrippedAndFoundFromASample) {
  EXPECT_EQ(StripThousands("1.234.567,5", kGreek), "1234567,5");
  EXPECT_EQ(StripThousands("Φ16,5", kEnglish), "Φ165");
  EXPECT_EQ(StripThousands("2\u202F500,0", Separators{U',', 0x202F}), "2500,0");
  const Separators greek = SeparatorsFromSample(U"2.500,0");
  EXPECT_EQ(greek.Decimal, U',');
  EXPECT_EQ(greek.Thousands, U'.');
  EXPECT_EQ(SeparatorsFromSample(U"2\u202F500,0").Thousands, char32_t{0x202F});
  EXPECT_EQ(SeparatorsFromSample(U"2,5").Decimal, U'.');
  EXPECT_EQ(SeparatorsFromSample(U"2500,0").Thousands, U',');
}

TEST(ParseNumber, ValReadsTheLeadingNumber) {
  const std::pair<const char*, double> cases[] = {
      {"12abc", 12},  {" 1 2 ", 12},  {"1,5", 1},         {"+3", 3},          {".5", 0.5},
      {"1.2.3", 1.2}, {"1D-2", 0.01}, {"1e", 1},          {"2e+", 2},         {"\t4\n5", 45},
      {"&o17", 15},   {"&HFFFF", -1}, {"&H10000", 65536}, {"&HFFFFFFFF", -1}, {"&H1FFFFFFFF", 0},
      {"&X1", 0},     {"--5", 0},     {"1e400", 0}};
  for (const auto& [text, value] : cases) EXPECT_DOUBLE_EQ(Val(text), value) << '"' << text << '"';
}

TEST(ParseNumber, RegionalConversionUnderTheGreekSeparators) {
  const std::pair<const char*, double> good[] = {{" 1.234,5 ", 1234.5}, {"2,5-", -2.5}, {"7+", 7},
                                                 {"1,5E3", 1500},       {"1e-2", 0.01}, {"5,", 5}};
  for (const auto& [text, expected] : good) {
    double value = -99;
    EXPECT_TRUE(RegionalToDouble(text, kGreek, value)) << text;
    EXPECT_DOUBLE_EQ(value, expected) << text;
  }
  for (const char* text : {"-", ",", ".", "", "-5-", "1,5,2", "1 2", "12a", "1e", "1e400"}) {
    double value = -99;
    EXPECT_FALSE(RegionalToDouble(text, kGreek, value)) << '"' << text << '"';
  }
}

}  // namespace
