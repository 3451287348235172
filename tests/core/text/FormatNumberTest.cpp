// Number to text: the screens' format strings, CStr and Str, and the rounding rules.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <tuple>

#include "Faults.h"
#include "Numbers.h"

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

// 1.005 lies below the half in binary and at the half in 15 digits: the 15 digits decide.
TEST(FormatNumber, ThePatternsOfTheScreensUnderBothSeparators) {
  using Case = std::tuple<double, const char*, const char*>;
  const Case cases[] = {{5, "00", "05"},    {0.5, "#,###", "1"},    {-0.5, "#,###.0", "-.5"},
                        {15, "kg", "kg"},   {0, "#,###.0", ".0"},   {-0.04, "#,##0.0", "-0.0"},
                        {0.5, "", "0.5"},   {0, "#,##0.0", "0.0"},  {1.005, "#,##0.00", "1.01"},
                        {-0.4, "0", "-0"},  {-15, "Δ 0", "-Δ 15"},  {-1234.5, "#,###", "-1,235"},
                        {2, "#.##", "2."},  {-2.25, "0.0", "-2.3"}, {1.0005, "#,##0.000", "1.001"},
                        {0.4, "#,###", ""}, {2.125, "0.0#", "2.13"}};
  const Case wide[] = {{123456789, "##,###", "123,456,789"},
                       {999999.95, "#,##0.0", "1,000,000.0"},
                       {12345.678901, "#,##0.00000", "12,345.67890"},
                       {1e15, "#,##0", "1,000,000,000,000,000"},
                       {1e20, "0", "100000000000000000000"}};
  for (const auto& table : {std::span<const Case>(cases), std::span<const Case>(wide)})
    for (const auto& [value, pattern, english] : table) {
      EXPECT_EQ(FormatNumber(value, pattern, kEnglish), english) << value << " " << pattern;
      EXPECT_EQ(FormatNumber(value, pattern, kGreek), ToGreek(english)) << value << " " << pattern;
    }
}

// A single's decimal text has 7 significant digits; the rounding starts from those.
TEST(FormatNumber, ASingleRoundsFromSevenDigitsAndInfinityIsAnOverflow) {
  EXPECT_EQ(FormatNumber(1.05f, "0.0", kEnglish), "1.0");
  EXPECT_EQ(FormatSingle(1.05f, "0.0", kEnglish), "1.1");
  EXPECT_EQ(FormatSingle(2500.f, "#,##0.0", kGreek), "2.500,0");
  EXPECT_EQ(FormatSingle(0.f, "#,###", kEnglish), "");
  EXPECT_EQ(FormatSingle(16777215.f, "#,###", kEnglish), "16,777,220");
  EXPECT_EQ(FaultOf([] { FormatNumber(INFINITY, "#,##0", kEnglish); }), FaultCode::Overflow);
  EXPECT_THROW(CStrDouble(NAN, kEnglish), RuntimeFault);
  EXPECT_THROW(FormatSingle(-INFINITY, "0", kEnglish), RuntimeFault);
}

TEST(FormatNumber, CStrHasFifteenDigitsForADoubleAndSevenForASingle) {
  const std::pair<double, const char*> doubles[] = {
      {-0.0, "0"},           {999999999999999.9, "1E+15"},
      {0.1 + 0.2, "0.3"},    {1.0 / 3, "0.333333333333333"},
      {0.0001, "0.0001"},    {1234567890123456, "1.23456789012346E+15"},
      {-1.5e-10, "-1.5E-10"}};
  for (const auto& [value, english] : doubles) {
    EXPECT_EQ(CStrDouble(value, kEnglish), english);
    EXPECT_EQ(CStrDouble(value, kGreek), ToGreek(english));
  }
  const std::pair<float, const char*> singles[] = {{3.14159274f, "3.141593"},
                                                   {1234567.f, "1234567"},
                                                   {12345678.f, "1.234568E+07"},
                                                   {-0.0125f, "-0.0125"},
                                                   {16.f / 1000 * 16.f / 1000, "0.000256"}};
  for (const auto& [value, english] : singles) {
    EXPECT_EQ(CStrSingle(value, kEnglish), english);
    EXPECT_EQ(CStrSingle(value, kGreek), ToGreek(english));
  }
  EXPECT_EQ(StrNumber(5), " 5");
  EXPECT_EQ(StrNumber(-0.25), "-.25");
}

// RoundHalfUp is Int(x * 10^n + 0.5) / 10^n: 1.005 * 100 lies just below 100.5 in binary, and
// the system got 1.00 too.
TEST(FormatNumber, RoundingRules) {
  const std::tuple<double, int, double> halfUp[] = {
      {2.5, 0, 3},     {-2.5, 0, -2}, {-2.6, 0, -3}, {1.25, 1, 1.3}, {1234.5678, 2, 1234.57},
      {1.005, 2, 1.0}, {49.95, 1, 50}};
  for (const auto& [value, decimals, rounded] : halfUp)
    EXPECT_DOUBLE_EQ(RoundHalfUp(value, decimals), rounded) << value;
  // The value, then RoundHalfEven, VbInt and VbFix of it.
  const std::tuple<double, double, double, double> whole[] = {
      {2.5, 2, 2, 2},     {3.5, 4, 3, 3},     {-2.5, -2, -3, -2},
      {-3.5, -4, -4, -3}, {0.5, 0, 0, 0},     {1.5, 2, 1, 1},
      {2.6, 3, 2, 2},     {-2.6, -3, -3, -2}, {32767.5, 32768, 32767, 32767}};
  for (const auto& [value, even, vbInt, vbFix] : whole) {
    EXPECT_EQ(RoundHalfEven(value), even) << value;
    EXPECT_EQ(VbInt(value), vbInt) << value;
    EXPECT_EQ(VbFix(value), vbFix) << value;
  }
}

}  // namespace
