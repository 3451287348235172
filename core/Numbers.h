#pragma once
// Numbers as the engineer types them and as the screens show them: the one door from text to
// number (ParseNumber), the format strings of the screens (FormatNumber), and the rounding
// rules of the old run-time.
#include <cstdint>
#include <string>
#include <string_view>

// The separators of the user's locale, found once at start (core/views/SystemSeparators.h).
// They are characters (code points); the shared state keeps them as DecimalSep and ThousandsSep.
struct Separators {
  char32_t Decimal = U'.';
  char32_t Thousands = U',';
};

// The separators read off a sample formatted as 2500.0 with "#,##0.0": character 2 is the
// thousands separator, character 6 the decimal one ("2,500.0" or "2.500,0"). A sample too
// short to hold them gives the English pair.
Separators SeparatorsFromSample(std::u32string_view sample);

// Sets errorFlag to the count of decimal separators in the text when it is 2 or more;
// otherwise leaves errorFlag alone. Returns the count.
int CountDecimalSeparators(std::string_view text, Separators seps, int16_t& errorFlag);

// Typed text to number. Never fails: unreadable text is 0, "----" is -1202 (a sentinel), a
// text with two or more decimal separators is 0 and leaves errorFlag 0. See Numbers.cpp for
// the steps.
double ParseNumber(std::string_view text, Separators seps, int16_t& errorFlag);

// The text without any thousands separator.
std::string StripThousands(std::string_view text, Separators seps);

// The leading-number reading of the old run-time (Val): blanks ignored, "." the only decimal
// point, stops at the first character that cannot continue the number; &H and &O prefixes.
double Val(std::string_view text);

// Conversion under the regional settings (CDbl): the decimal separator of the locale, thousands
// separators skipped wherever they stand, blanks around allowed, a sign in front or behind.
// Returns false when the text is not a number.
bool RegionalToDouble(std::string_view text, Separators seps, double& out);

// Int(x * 10^n + 0.5) / 10^n: the rounding the system writes everywhere.
double RoundHalfUp(double x, int decimals);
// Halves to even, to a whole number (the run-time's conversion to integer types).
double RoundHalfEven(double x);
// Int(x): the floor. Fix(x): toward zero.
double VbInt(double x);
double VbFix(double x);

// Format(value, pattern) for the numeric patterns of the system: "#,###", "#,##0.0",
// "#,##0.00", "#,###.0", "#,###.00", "##,###", "#,##0", "#,##0.000", "#,##0.00000", "0",
// "00", "000" and any other mix of "#", "0", "," and one "."; other characters are copied.
std::string FormatNumber(double value, std::string_view pattern, Separators seps);
// The same for a value the run-time held as a Single: its decimal text is taken to 7
// significant digits before the rounding (1.05f shows "1.1" with "0.0", not "1.0").
std::string FormatSingle(float value, std::string_view pattern, Separators seps);

// Implicit number-to-text of the run-time (CStr): the regional decimal separator, up to 15
// significant digits for a double and 7 for a single, no trailing zeros, no leading blank.
std::string CStrDouble(double value, Separators seps);
std::string CStrSingle(float value, Separators seps);
// Str(x): "." always, a leading blank for zero and positive values.
std::string StrNumber(double value);
// Str of a Single: its text to 7 significant digits.
std::string StrSingle(float value);
