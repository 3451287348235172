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

TEST(FormatNumber, ThePatternsOfTheScreensUnderBothSeparators) {
  const struct {
    double Value;
    const char* Pattern;
    const char* English;
  } cases[] = {{0, "#,###", ""},
               {0.4, "#,###", ""},
               {0.5, "#,###", "1"},
               {999.5, "#,###", "1,000"},
               {-1234.5, "#,###", "-1,235"},
               {1e9, "#,###", "1,000,000,000"},
               {0, "##,###", ""},
               {123456789, "##,###", "123,456,789"},
               {0, "#,##0.0", "0.0"},
               {0.05, "#,##0.0", "0.1"},
               {0.25, "#,##0.0", "0.3"},
               {-2.25, "0.0", "-2.3"},
               {-0.04, "#,##0.0", "-0.0"},
               {999999.95, "#,##0.0", "1,000,000.0"},
               {0.5, "#,###.0", ".5"},
               {0, "#,###.0", ".0"},
               {-0.5, "#,###.0", "-.5"},
               {1234.567, "#,##0.00", "1,234.57"},
               {-0.125, "#,##0.00", "-0.13"},
               // Below the half in binary, at the half in 15 digits.
               {1.005, "#,##0.00", "1.01"},
               {2.675, "#,##0.00", "2.68"},
               {1.0005, "#,##0.000", "1.001"},
               {0.125, "#,###.00", ".13"},
               {12345.678901, "#,##0.00000", "12,345.67890"},
               {1e-7, "#,##0.00000", "0.00000"},
               {2.5, "#,##0", "3"},
               {-2.5, "#,##0", "-3"},
               {1e15, "#,##0", "1,000,000,000,000,000"},
               {1234, "0", "1234"},
               {-0.4, "0", "-0"},
               {5, "00", "05"},
               {123, "00", "123"},
               {1e20, "0", "100000000000000000000"},
               {2.5, "#.##", "2.5"},
               {2, "#.##", "2."},
               {2.125, "0.0#", "2.13"},
               {15, "0 kg", "15 kg"},
               {-15, "Δ 0", "-Δ 15"},
               {15, "kg", "kg"},
               {0.5, "", "0.5"}};
  for (const auto& c : cases) {
    EXPECT_EQ(FormatNumber(c.Value, c.Pattern, kEnglish), c.English) << c.Value << " " << c.Pattern;
    EXPECT_EQ(FormatNumber(c.Value, c.Pattern, kGreek), ToGreek(c.English))
        << c.Value << " " << c.Pattern;
  }
}

// A single's decimal text has 7 significant digits; the rounding starts from those.
TEST(FormatNumber, ASingleRoundsFromSevenDigitsAndInfinityIsAnOverflow) {
  EXPECT_EQ(FormatNumber(1.05f, "0.0", kEnglish), "1.0");
  EXPECT_EQ(FormatSingle(1.05f, "0.0", kEnglish), "1.1");
  EXPECT_EQ(FormatSingle(2500.f, "#,##0.0", kGreek), "2.500,0");
  EXPECT_EQ(FormatSingle(0.f, "#,###", kEnglish), "");
  EXPECT_EQ(FormatSingle(16777215.f, "#,###", kEnglish), "16,777,220");
  try {
    FormatNumber(INFINITY, "#,##0", kEnglish);
    FAIL() << "no fault";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.Code(), FaultCode::Overflow);
  }
  EXPECT_THROW(CStrDouble(NAN, kEnglish), RuntimeFault);
  EXPECT_THROW(FormatSingle(-INFINITY, "0", kEnglish), RuntimeFault);
}

TEST(FormatNumber, CStrHasFifteenDigitsForADoubleAndSevenForASingle) {
  const std::pair<double, const char*> doubles[] = {{0, "0"},
                                                    {-0.0, "0"},
                                                    {-2.5, "-2.5"},
                                                    {0.1 + 0.2, "0.3"},
                                                    {1.0 / 3, "0.333333333333333"},
                                                    {123456789012345, "123456789012345"},
                                                    {999999999999999.9, "1E+15"},
                                                    {1234567890123456, "1.23456789012346E+15"},
                                                    {0.0001, "0.0001"},
                                                    {0.00001, "1E-05"},
                                                    {-1.5e-10, "-1.5E-10"},
                                                    {1e100, "1E+100"}};
  for (const auto& [value, english] : doubles) {
    EXPECT_EQ(CStrDouble(value, kEnglish), english);
    EXPECT_EQ(CStrDouble(value, kGreek), ToGreek(english));
  }
  const std::pair<float, const char*> singles[] = {{0.1f, "0.1"},
                                                   {85.f, "85"},
                                                   {3.14159274f, "3.141593"},
                                                   {1234567.f, "1234567"},
                                                   {12345678.f, "1.234568E+07"},
                                                   {10000000.f, "1E+07"},
                                                   {-0.0125f, "-0.0125"},
                                                   {16.f / 1000 * 16.f / 1000, "0.000256"}};
  for (const auto& [value, english] : singles) {
    EXPECT_EQ(CStrSingle(value, kEnglish), english);
    EXPECT_EQ(CStrSingle(value, kGreek), ToGreek(english));
  }
  for (const auto& [value, text] : {std::pair{5.0, " 5"},
                                    {-5.0, "-5"},
                                    {0.0, " 0"},
                                    {1234.5, " 1234.5"},
                                    {0.5, " .5"},
                                    {-0.25, "-.25"}})
    EXPECT_EQ(StrNumber(value), text);
}

TEST(FormatNumber, RoundingRules) {
  const struct {
    double Value;
    int Decimals;
    double HalfUp;
  } halfUp[] = {{2.5, 0, 3},
                {-2.5, 0, -2},
                {-2.6, 0, -3},
                {1.25, 1, 1.3},
                {1234.5678, 2, 1234.57},
                // 1.005 * 100 lies just below 100.5 in binary: the system got 1.00 too.
                {1.005, 2, 1.0},
                {49.95, 1, 50}};
  for (const auto& c : halfUp) EXPECT_DOUBLE_EQ(RoundHalfUp(c.Value, c.Decimals), c.HalfUp);
  const struct {
    double Value, Even, Int, Fix;
  } whole[] = {{2.5, 2, 2, 2},     {3.5, 4, 3, 3},
               {-2.5, -2, -3, -2}, {-3.5, -4, -4, -3},
               {0.5, 0, 0, 0},     {1.5, 2, 1, 1},
               {2.4, 2, 2, 2},     {2.6, 3, 2, 2},
               {-2.6, -3, -3, -2}, {32767.5, 32768, 32767, 32767},
               {7, 7, 7, 7}};
  for (const auto& c : whole) {
    EXPECT_EQ(RoundHalfEven(c.Value), c.Even) << c.Value;
    EXPECT_EQ(VbInt(c.Value), c.Int) << c.Value;
    EXPECT_EQ(VbFix(c.Value), c.Fix) << c.Value;
  }
}

}  // namespace
