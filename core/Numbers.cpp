#include "Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

#include "Cp1253.h"
#include "RuntimeFault.h"

namespace {

bool IsDigit(char32_t ch) {
  return ch >= U'0' && ch <= U'9';
}

// The run-time's Trim: blanks only, tabs stay.
std::u32string_view TrimBlanks(std::u32string_view text) {
  const auto first = text.find_first_not_of(U' ');
  if (first == std::u32string_view::npos) return {};
  const auto last = text.find_last_not_of(U' ');
  return text.substr(first, last - first + 1);
}

// Reads "[-]digits[.digits][e[+-]digits]" exactly rounded; false when out of range.
bool ReadPlainDecimal(const std::string& plain, double& out) {
  double value = 0.0;
  const char* end = plain.data() + plain.size();
  const auto [ptr, ec] = std::from_chars(plain.data(), end, value);
  if (ec != std::errc() || ptr != end || !std::isfinite(value)) return false;
  out = value;
  return true;
}

// ---- Val ----------------------------------------------------------------------------------

// "&H1F" / "&O17": the value as the run-time's Integer when it fits 16 bits, as its Long when
// it fits 32 bits (so "&HFFFF" is -1, as in the old program).
double ValRadix(std::string_view digits, int radix) {
  uint64_t value = 0;
  for (const char c : digits) {
    int d = -1;
    if (c >= '0' && c <= '9') d = c - '0';
    if (c >= 'a' && c <= 'f') d = c - 'a' + 10;
    if (c >= 'A' && c <= 'F') d = c - 'A' + 10;
    if (d < 0 || d >= radix) break;
    value = value * radix + d;
    if (value > 0xFFFFFFFFull) return 0.0;  // the run-time overflowed here; unreadable is 0
  }
  if (value <= 0xFFFF) return static_cast<int16_t>(static_cast<uint16_t>(value));
  return static_cast<int32_t>(static_cast<uint32_t>(value));
}

std::size_t TakeDigits(std::string_view s, std::size_t pos, std::string& into) {
  while (pos < s.size() && s[pos] >= '0' && s[pos] <= '9') into.push_back(s[pos++]);
  return pos;
}

// The exponent part after the mantissa: E or D, an optional sign, at least one digit.
void TakeExponent(std::string_view s, std::size_t pos, std::string& plain) {
  if (pos >= s.size()) return;
  const char marker = s[pos];
  if (marker != 'E' && marker != 'e' && marker != 'D' && marker != 'd') return;
  std::string exponent = "e";
  ++pos;
  if (pos < s.size() && (s[pos] == '+' || s[pos] == '-')) exponent.push_back(s[pos++]);
  const std::size_t before = exponent.size();
  TakeDigits(s, pos, exponent);
  if (exponent.size() > before) plain += exponent;
}

}  // namespace

double Val(std::string_view text) {
  std::string s;
  s.reserve(text.size());
  for (const char c : text) {
    if (c != ' ' && c != '\t' && c != '\n') s.push_back(c);
  }
  if (s.size() >= 2 && s[0] == '&') {
    if (s[1] == 'H' || s[1] == 'h') return ValRadix(std::string_view(s).substr(2), 16);
    if (s[1] == 'O' || s[1] == 'o') return ValRadix(std::string_view(s).substr(2), 8);
    return 0.0;
  }
  std::string plain;
  std::size_t pos = 0;
  if (pos < s.size() && (s[pos] == '+' || s[pos] == '-')) {
    if (s[pos] == '-') plain.push_back('-');
    ++pos;
  }
  std::string mantissa;
  pos = TakeDigits(s, pos, mantissa);
  if (pos < s.size() && s[pos] == '.') {
    mantissa.push_back('.');
    pos = TakeDigits(s, pos + 1, mantissa);
  }
  if (mantissa.empty() || mantissa == ".") return 0.0;
  plain += mantissa;
  TakeExponent(s, pos, plain);
  double value = 0.0;
  return ReadPlainDecimal(plain, value) ? value : 0.0;
}

// ---- Conversion under the regional settings ----------------------------------------------

namespace {

// The part between the signs: digits, one decimal separator, thousands separators anywhere
// (skipped), an optional exponent. Appends the plain form to `plain`.
bool ReadRegionalBody(std::u32string_view body, Separators seps, std::string& plain) {
  bool point = false;
  bool digit = false;
  std::size_t i = 0;
  for (; i < body.size(); ++i) {
    const char32_t ch = body[i];
    if (IsDigit(ch)) {
      plain.push_back(static_cast<char>(ch));
      digit = true;
    } else if (ch == seps.Decimal && !point) {
      plain.push_back('.');
      point = true;
    } else if (ch == seps.Thousands && ch != seps.Decimal) {
      continue;
    } else {
      break;
    }
  }
  if (!digit) return false;
  if (i == body.size()) return true;
  if (body[i] != U'E' && body[i] != U'e') return false;
  plain.push_back('e');
  ++i;
  if (i < body.size() && (body[i] == U'+' || body[i] == U'-')) {
    plain.push_back(static_cast<char>(body[i++]));
  }
  if (i == body.size()) return false;
  for (; i < body.size(); ++i) {
    if (!IsDigit(body[i])) return false;
    plain.push_back(static_cast<char>(body[i]));
  }
  return true;
}

bool IsSign(char32_t ch) {
  return ch == U'-' || ch == U'+';
}

}  // namespace

bool RegionalToDouble(std::string_view text, Separators seps, double& out) {
  const std::u32string wide = Utf8ToU32(text);
  std::u32string_view body = wide;
  const auto first = body.find_first_not_of(U" \t");
  if (first == std::u32string_view::npos) return false;
  body = body.substr(first, body.find_last_not_of(U" \t") - first + 1);
  bool negative = false;
  if (IsSign(body.front())) {
    negative = body.front() == U'-';
    body.remove_prefix(1);
  } else if (!body.empty() && IsSign(body.back())) {
    negative = body.back() == U'-';
    body.remove_suffix(1);
  }
  std::string plain = negative ? "-" : "";
  if (!ReadRegionalBody(body, seps, plain)) return false;
  return ReadPlainDecimal(plain, out);
}

// ---- The one door from typed text to a number ---------------------------------------------

Separators SeparatorsFromSample(std::u32string_view sample) {
  if (sample.size() < 6 || IsDigit(sample[1]) || IsDigit(sample[5])) return Separators{};
  return Separators{sample[5], sample[1]};
}

int CountDecimalSeparators(std::string_view text, Separators seps, int16_t& errorFlag) {
  const std::u32string wide = Utf8ToU32(text);
  const auto count = static_cast<int>(std::count(wide.begin(), wide.end(), seps.Decimal));
  if (count >= 2) errorFlag = static_cast<int16_t>(std::min(count, 32767));
  return count;
}

namespace {

struct ScanResult {
  int Good = 0;
  int Bad = 0;
  bool Mixed = false;
};

// Counts good and bad characters until both have been met, which makes the text mixed.
ScanResult ScanCharacters(std::u32string_view trimmed, Separators seps) {
  ScanResult scan;
  for (const char32_t ch : trimmed) {
    const bool good = IsDigit(ch) || ch == seps.Decimal || ch == seps.Thousands || ch == U'-';
    ++(good ? scan.Good : scan.Bad);
    if (scan.Good > 0 && scan.Bad > 0) {
      scan.Mixed = true;
      break;
    }
  }
  return scan;
}

}  // namespace

// The steps of the sheets' number reading, in their order:
// 1. two or more decimal separators: 0, and ErrorFlag back to 0 (a flag above 1 left by any
//    other check ends here the same way);
// 2. the trimmed text is scanned for good characters (digits, both separators, "-") and bad
//    ones; meeting both makes the text mixed, and so does a lone decimal separator or "-";
// 3. "----" is -1202, a sentinel the screens test for;
// 4. an empty text, or one with bad characters only, is 0;
// 5. a mixed text is read by its leading number (Val), "." its only point;
// 6. anything else is converted under the regional settings; what fails there is 0.
double ParseNumber(std::string_view text, Separators seps, int16_t& errorFlag) {
  CountDecimalSeparators(text, seps, errorFlag);
  if (errorFlag > 1) {
    errorFlag = 0;
    return 0.0;
  }
  const std::u32string wide = Utf8ToU32(text);
  const std::u32string_view trimmed = TrimBlanks(wide);
  ScanResult scan;
  if (!trimmed.empty()) scan = ScanCharacters(trimmed, seps);
  if (wide == std::u32string(1, seps.Decimal) || wide == U"-") scan.Mixed = true;
  if (text == "----") return -1202.0;
  if (trimmed.empty()) return 0.0;
  if (scan.Good == 0 && scan.Bad > 0) return 0.0;
  if (scan.Mixed) return Val(text);
  double value = 0.0;
  return RegionalToDouble(text, seps, value) ? value : 0.0;
}

std::string StripThousands(std::string_view text, Separators seps) {
  std::u32string wide = Utf8ToU32(text);
  std::erase(wide, seps.Thousands);
  return U32ToUtf8(wide);
}

// ---- Rounding ------------------------------------------------------------------------------

double RoundHalfUp(double x, int decimals) {
  const double scale = std::pow(10.0, decimals);
  return std::floor(x * scale + 0.5) / scale;
}

double RoundHalfEven(double x) {
  const double floor = std::floor(x);
  const double diff = x - floor;
  if (diff < 0.5) return floor;
  if (diff > 0.5) return floor + 1.0;
  return std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1.0;
}

double VbInt(double x) {
  return std::floor(x);
}
double VbFix(double x) {
  return std::trunc(x);
}

// ---- Number to text ------------------------------------------------------------------------

namespace {

// A positive value as `precision` significant decimal digits d.ddd times 10^Exponent.
struct DecimalDigits {
  std::string Digits;
  int Exponent = 0;
};

DecimalDigits SignificantDigits(double magnitude, int precision) {
  DecimalDigits result;
  if (magnitude == 0.0) {
    result.Digits.assign(static_cast<std::size_t>(precision), '0');
    return result;
  }
  char buffer[64];
  const auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                       std::chars_format::scientific, precision - 1);
  const std::string_view text(buffer, ec == std::errc() ? end - buffer : 0);
  const auto e = text.find('e');
  for (const char c : text.substr(0, e)) {
    if (c != '.') result.Digits.push_back(c);
  }
  std::from_chars(text.data() + e + 1 + (text[e + 1] == '+'), text.data() + text.size(),
                  result.Exponent);
  return result;
}

void CheckFinite(double value) {
  if (!std::isfinite(value)) throw RuntimeFault(FaultCode::Overflow, "μη πεπερασμένη τιμή");
}

// The general form of CStr and Str: fixed notation from 1E-4 up to the precision, exponent
// notation ("1.234568E+07", "1E-05") beyond, trailing zeros dropped.
std::string GeneralText(double value, int precision, char32_t decimal, bool leadingZero) {
  CheckFinite(value);
  if (value == 0.0) return "0";
  DecimalDigits d = SignificantDigits(std::fabs(value), precision);
  d.Digits.erase(d.Digits.find_last_not_of('0') + 1);
  std::string out = value < 0 ? "-" : "";
  if (d.Exponent < -4 || d.Exponent >= precision) {
    out.push_back(d.Digits[0]);
    if (d.Digits.size() > 1) {
      AppendUtf8(out, decimal);
      out.append(d.Digits, 1);
    }
    const int exponent = std::abs(d.Exponent);
    out += d.Exponent < 0 ? "E-" : "E+";
    if (exponent < 10) out.push_back('0');
    out += std::to_string(exponent);
  } else if (d.Exponent >= 0) {
    const auto whole = static_cast<std::size_t>(d.Exponent + 1);
    if (d.Digits.size() < whole) d.Digits.append(whole - d.Digits.size(), '0');
    out.append(d.Digits, 0, whole);
    if (d.Digits.size() > whole) {
      AppendUtf8(out, decimal);
      out.append(d.Digits, whole);
    }
  } else {
    if (leadingZero) out.push_back('0');
    AppendUtf8(out, decimal);
    out.append(static_cast<std::size_t>(-d.Exponent - 1), '0');
    out += d.Digits;
  }
  return out;
}

}  // namespace

std::string CStrDouble(double value, Separators seps) {
  return GeneralText(value, 15, seps.Decimal, true);
}

std::string CStrSingle(float value, Separators seps) {
  return GeneralText(static_cast<double>(value), 7, seps.Decimal, true);
}

// Kept on purpose: Str drops the zero before the point (" .5"), as the old run-time did.
std::string StrNumber(double value) {
  const std::string text = GeneralText(value, 15, U'.', false);
  return value >= 0 ? " " + text : text;
}

std::string StrSingle(float value) {
  const std::string text = GeneralText(static_cast<double>(value), 7, U'.', false);
  return value >= 0 ? " " + text : text;
}

// ---- Format --------------------------------------------------------------------------------

namespace {

bool IsPlaceholder(char c) {
  return c == '#' || c == '0';
}
bool IsNumberChar(char c) {
  return IsPlaceholder(c) || c == ',' || c == '.';
}

// What a pattern asks for. Characters before the first and after the last of "#0,." are
// copied around the number.
struct NumberPattern {
  std::string_view Prefix;
  std::string_view Suffix;
  int MinIntegerDigits = 0;  // placeholders from the first "0" before the point
  int Decimals = 0;          // placeholders after the point
  int ForcedDecimals = 0;    // up to the last "0" after the point; "#" after it is optional
  bool Grouping = false;     // a "," before the point
  bool HasPoint = false;
  bool HasPlaceholder = false;
};

NumberPattern ReadPattern(std::string_view pattern) {
  NumberPattern p;
  const auto first = std::find_if(pattern.begin(), pattern.end(), IsNumberChar);
  const auto last = std::find_if(pattern.rbegin(), pattern.rend(), IsNumberChar).base();
  if (first >= last) {
    p.Prefix = pattern;
    return p;
  }
  p.Prefix = std::string_view(pattern.begin(), first);
  p.Suffix = std::string_view(last, pattern.end());
  bool zeroSeen = false;
  for (auto it = first; it != last; ++it) {
    const char c = *it;
    if (c == '.' && !p.HasPoint) {
      p.HasPoint = true;
    } else if (c == ',' && !p.HasPoint) {
      p.Grouping = true;
    } else if (IsPlaceholder(c) && !p.HasPoint) {
      zeroSeen = zeroSeen || c == '0';
      if (zeroSeen) ++p.MinIntegerDigits;
      p.HasPlaceholder = true;
    } else if (IsPlaceholder(c)) {
      ++p.Decimals;
      if (c == '0') p.ForcedDecimals = p.Decimals;
      p.HasPlaceholder = true;
    }
  }
  return p;
}

// Adds one unit in the last place of a digit string; true when a new leading digit appears.
bool IncrementDigits(std::string& digits) {
  for (auto it = digits.rbegin(); it != digits.rend(); ++it) {
    if (*it != '9') {
      ++*it;
      return false;
    }
    *it = '0';
  }
  digits.insert(digits.begin(), '1');
  return true;
}

// The magnitude as integer and fraction digits, rounded to `decimals` places half away from
// zero after first being taken to `precision` significant digits (15 for a double, 7 for a
// single), as the run-time did: 1.005 shows as "1.01" with "0.00".
void RoundedDigits(double magnitude, int precision, int decimals, std::string& whole,
                   std::string& fraction) {
  const DecimalDigits d = SignificantDigits(magnitude, precision);
  const int pointAt = magnitude == 0.0 ? 1 : d.Exponent + 1;
  std::string all;
  if (pointAt <= 0) {
    all = std::string(static_cast<std::size_t>(1 - pointAt), '0') + d.Digits;
  } else {
    all = d.Digits;
    if (static_cast<int>(all.size()) < pointAt) all.append(pointAt - all.size(), '0');
  }
  const auto wholeCount = static_cast<std::size_t>(std::max(pointAt, 1));
  const std::size_t keep = wholeCount + static_cast<std::size_t>(decimals);
  if (all.size() > keep) {
    const bool up = all[keep] >= '5';
    all.resize(keep);
    if (up && IncrementDigits(all)) {
      whole.push_back(all[0]);
      all.erase(0, 1);
    }
  }
  all.append(keep - all.size(), '0');
  whole += all.substr(0, wholeCount);
  fraction = all.substr(wholeCount);
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
}

std::string GroupThousands(const std::string& digits, char32_t separator) {
  std::string out;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) AppendUtf8(out, separator);
    out.push_back(digits[i]);
  }
  return out;
}

std::string FormatWithPrecision(double value, int precision, std::string_view pattern,
                                Separators seps) {
  CheckFinite(value);
  if (pattern.empty()) return GeneralText(value, precision, seps.Decimal, true);
  const NumberPattern p = ReadPattern(pattern);
  if (!p.HasPlaceholder) return std::string(pattern);
  std::string whole;
  std::string fraction;
  RoundedDigits(std::fabs(value), precision, p.Decimals, whole, fraction);
  while (static_cast<int>(fraction.size()) > p.ForcedDecimals && fraction.back() == '0') {
    fraction.pop_back();
  }
  if (static_cast<int>(whole.size()) < p.MinIntegerDigits) {
    whole.insert(0, static_cast<std::size_t>(p.MinIntegerDigits) - whole.size(), '0');
  }
  std::string out = value < 0 ? "-" : "";
  out += p.Prefix;
  out += p.Grouping ? GroupThousands(whole, seps.Thousands) : whole;
  if (p.HasPoint) {
    AppendUtf8(out, seps.Decimal);
    out += fraction;
  }
  out += p.Suffix;
  return out;
}

}  // namespace

std::string FormatNumber(double value, std::string_view pattern, Separators seps) {
  return FormatWithPrecision(value, 15, pattern, seps);
}

std::string FormatSingle(float value, std::string_view pattern, Separators seps) {
  return FormatWithPrecision(static_cast<double>(value), 7, pattern, seps);
}
