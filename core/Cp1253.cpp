#include "Cp1253.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace {

constexpr char32_t kReplacementChar = 0xFFFD;

// Bytes 0x80-0xFF. The undefined bytes carry the characters named in Cp1253.h.
constexpr std::array<char16_t, 128> kHighHalf = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x0088, 0x2030, 0x008A, 0x2039, 0x008C, 0x008D, 0x008E, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x0098, 0x2122, 0x009A, 0x203A, 0x009C, 0x009D, 0x009E, 0x009F,  // 98
    0x00A0, 0x0385, 0x0386, 0x00A3, 0x00A4, 0x00A5, 0x00A6, 0x00A7,  // A0
    0x00A8, 0x00A9, 0xF8F9, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x2015,  // A8
    0x00B0, 0x00B1, 0x00B2, 0x00B3, 0x0384, 0x00B5, 0x00B6, 0x00B7,  // B0
    0x0388, 0x0389, 0x038A, 0x00BB, 0x038C, 0x00BD, 0x038E, 0x038F,  // B8
    0x0390, 0x0391, 0x0392, 0x0393, 0x0394, 0x0395, 0x0396, 0x0397,  // C0
    0x0398, 0x0399, 0x039A, 0x039B, 0x039C, 0x039D, 0x039E, 0x039F,  // C8
    0x03A0, 0x03A1, 0xF8FA, 0x03A3, 0x03A4, 0x03A5, 0x03A6, 0x03A7,  // D0
    0x03A8, 0x03A9, 0x03AA, 0x03AB, 0x03AC, 0x03AD, 0x03AE, 0x03AF,  // D8
    0x03B0, 0x03B1, 0x03B2, 0x03B3, 0x03B4, 0x03B5, 0x03B6, 0x03B7,  // E0
    0x03B8, 0x03B9, 0x03BA, 0x03BB, 0x03BC, 0x03BD, 0x03BE, 0x03BF,  // E8
    0x03C0, 0x03C1, 0x03C2, 0x03C3, 0x03C4, 0x03C5, 0x03C6, 0x03C7,  // F0
    0x03C8, 0x03C9, 0x03CA, 0x03CB, 0x03CC, 0x03CD, 0x03CE, 0xF8FB,  // F8
};

using ReverseEntry = std::pair<char16_t, unsigned char>;

// The high half sorted by character, for the way back.
const std::array<ReverseEntry, 128>& ReverseTable() {
  static const std::array<ReverseEntry, 128> table = [] {
    std::array<ReverseEntry, 128> t{};
    for (std::size_t i = 0; i < t.size(); ++i) {
      t[i] = {kHighHalf[i], static_cast<unsigned char>(0x80 + i)};
    }
    std::sort(t.begin(), t.end());
    return t;
  }();
  return table;
}

// Length of the sequence a lead byte announces, 0 for a byte that cannot lead.
int SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

// Decodes one character at `pos` and moves past it. An invalid sequence gives
// kReplacementChar, sets `valid` false and moves one byte on.
char32_t DecodeOne(std::string_view utf8, std::size_t& pos, bool& valid) {
  const auto lead = static_cast<unsigned char>(utf8[pos]);
  const int length = SequenceLength(lead);
  valid = false;
  if (length == 0 || pos + length > utf8.size()) {
    ++pos;
    return kReplacementChar;
  }
  if (length == 1) {
    ++pos;
    valid = true;
    return lead;
  }
  char32_t ch = lead & (0xFF >> (length + 1));
  for (int k = 1; k < length; ++k) {
    const auto next = static_cast<unsigned char>(utf8[pos + k]);
    if (!IsContinuation(next)) {
      ++pos;
      return kReplacementChar;
    }
    ch = (ch << 6) | (next & 0x3F);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool overlong = ch < kSmallest[length];
  const bool surrogate = ch >= 0xD800 && ch <= 0xDFFF;
  if (overlong || surrogate || ch > 0x10FFFF) {
    ++pos;
    return kReplacementChar;
  }
  pos += length;
  valid = true;
  return ch;
}

}  // namespace

char32_t Cp1253ToUnicode(unsigned char byte) {
  if (byte < 0x80) return byte;
  return kHighHalf[byte - 0x80];
}

int UnicodeToCp1253(char32_t ch) {
  if (ch < 0x80) return static_cast<int>(ch);
  if (ch > 0xFFFF) return -1;
  const auto& table = ReverseTable();
  const auto key = static_cast<char16_t>(ch);
  const auto it = std::lower_bound(table.begin(), table.end(), key,
                                   [](const ReverseEntry& e, char16_t c) { return e.first < c; });
  if (it == table.end() || it->first != key) return -1;
  return it->second;
}

std::string Cp1253ToUtf8(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() * 2);
  for (const char byte : bytes) {
    const auto b = static_cast<unsigned char>(byte);
    if (b < 0x80)
      out.push_back(byte);  // ASCII stands as it is
    else
      AppendUtf8(out, Cp1253ToUnicode(b));
  }
  return out;
}

std::string Utf8ToCp1253(std::string_view utf8, char replacement) {
  std::string out;
  out.reserve(utf8.size());
  std::size_t pos = 0;
  while (pos < utf8.size()) {
    bool valid = false;
    const char32_t ch = DecodeOne(utf8, pos, valid);
    const int byte = valid ? UnicodeToCp1253(ch) : -1;
    out.push_back(byte < 0 ? replacement : static_cast<char>(byte));
  }
  return out;
}

bool IsCp1253Representable(std::string_view utf8) {
  std::size_t pos = 0;
  while (pos < utf8.size()) {
    bool valid = false;
    const char32_t ch = DecodeOne(utf8, pos, valid);
    if (!valid || UnicodeToCp1253(ch) < 0) return false;
  }
  return true;
}

std::u32string Utf8ToU32(std::string_view utf8) {
  std::u32string out;
  out.reserve(utf8.size());
  std::size_t pos = 0;
  while (pos < utf8.size()) {
    bool valid = false;
    out.push_back(DecodeOne(utf8, pos, valid));
  }
  return out;
}

std::string U32ToUtf8(std::u32string_view text) {
  std::string out;
  out.reserve(text.size());
  for (const char32_t ch : text) AppendUtf8(out, ch);
  return out;
}

void AppendUtf8(std::string& out, char32_t ch) {
  if ((ch >= 0xD800 && ch <= 0xDFFF) || ch > 0x10FFFF) ch = kReplacementChar;
  if (ch < 0x80) {
    out.push_back(static_cast<char>(ch));
  } else if (ch < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (ch >> 6)));
    out.push_back(static_cast<char>(0x80 | (ch & 0x3F)));
  } else if (ch < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (ch >> 12)));
    out.push_back(static_cast<char>(0x80 | ((ch >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (ch & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (ch >> 18)));
    out.push_back(static_cast<char>(0x80 | ((ch >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((ch >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (ch & 0x3F)));
  }
}

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const std::size_t last = text.find_last_not_of(' ');
  return std::string(text.substr(first, last - first + 1));
}
