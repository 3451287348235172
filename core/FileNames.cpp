#include "FileNames.h"

#include <algorithm>
#include <utility>

// UTF-8 to code points; a byte that is not good UTF-8 stands for itself above U+DC00, so that
// any file name of the disk can still be compared.
namespace {

std::u32string CodePoints(std::string_view text) {
  std::u32string out;
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const int extra = lead < 0x80           ? 0
                      : (lead >> 5) == 0x6  ? 1
                      : (lead >> 4) == 0xE  ? 2
                      : (lead >> 3) == 0x1E ? 3
                                            : -1;
    bool good = extra >= 0 && i + extra < text.size();
    char32_t c = extra <= 0 ? lead : lead & (0x3F >> extra);
    for (int k = 1; good && k <= extra; ++k) {
      const auto next = static_cast<unsigned char>(text[i + k]);
      good = (next & 0xC0) == 0x80;
      c = (c << 6) | (next & 0x3F);
    }
    if (!good) {
      out.push_back(0xDC00 + lead);
      ++i;
      continue;
    }
    out.push_back(c);
    i += static_cast<std::size_t>(extra) + 1;
  }
  return out;
}

}  // namespace

// The capital of a letter, as the file system of the old program folded names: Latin letters,
// the accented Latin-1 ones and the Greek ones with their tonos and dialytika; final sigma is
// sigma. Other characters stand for themselves.
char32_t FoldCase(char32_t c) {
  // The Greek capitals with tonos do not lie at a fixed distance from their small letters.
  static constexpr std::pair<char32_t, char32_t> kTonos[] = {
      {0x03AC, 0x0386}, {0x03AD, 0x0388}, {0x03AE, 0x0389}, {0x03AF, 0x038A},
      {0x03CC, 0x038C}, {0x03CD, 0x038E}, {0x03CE, 0x038F}};
  if (c >= U'a' && c <= U'z') return c - 0x20;
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 0x20;
  if (c == 0x03C2) return 0x03A3;
  if (c >= 0x03B1 && c <= 0x03CB) return c - 0x20;
  for (const auto& [small, capital] : kTonos) {
    if (c == small) return capital;
  }
  return c;
}

std::u32string FoldedName(std::string_view name) {
  std::u32string folded = CodePoints(name);
  std::transform(folded.begin(), folded.end(), folded.begin(), FoldCase);
  return folded;
}

// "*" any run of characters, "?" exactly one; both sides already folded.
bool GlobMatches(std::u32string_view name, std::u32string_view pattern) {
  std::size_t n = 0, p = 0, starP = std::u32string_view::npos, starN = 0;
  while (n < name.size()) {
    if (p < pattern.size() && (pattern[p] == U'?' || pattern[p] == name[n])) {
      ++n;
      ++p;
    } else if (p < pattern.size() && pattern[p] == U'*') {
      starP = p++;
      starN = n;
    } else if (starP != std::u32string_view::npos) {
      p = starP + 1;
      n = ++starN;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == U'*') ++p;
  return p == pattern.size();
}

// The order of a file list: by the name folded to capitals, code point by code point, as the
// old program's file system listed a folder; names equal but for case follow in byte order, so
// that the order never depends on the order of the folder's entries on the disk.
bool FileListOrder(const std::string& a, const std::string& b) {
  const std::u32string foldedA = FoldedName(a);
  const std::u32string foldedB = FoldedName(b);
  if (foldedA != foldedB) return foldedA < foldedB;
  return a < b;
}
