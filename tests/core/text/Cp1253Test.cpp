// Our code page table against glibc's iconv, byte by byte and character by character.
#include <gtest/gtest.h>
#include <iconv.h>

#include <optional>
#include <set>
#include <string>

#include "Cp1253.h"

namespace {

// One conversion through iconv(3); nullopt when iconv refuses the input.
std::optional<std::string> ViaIconv(iconv_t cd, std::string in) {
  std::string out(in.size() * 8 + 8, '\0');
  char *inPtr = in.data(), *outPtr = out.data();
  std::size_t inLeft = in.size(), outLeft = out.size();
  iconv(cd, nullptr, nullptr, nullptr, nullptr);
  if (iconv(cd, &inPtr, &inLeft, &outPtr, &outLeft) == static_cast<std::size_t>(-1))
    return std::nullopt;
  out.resize(out.size() - outLeft);
  return out;
}

const std::set<int> kUndefinedBytes = {0x81, 0x88, 0x8A, 0x8C, 0x8D, 0x8E, 0x8F, 0x90, 0x98,
                                       0x9A, 0x9C, 0x9D, 0x9E, 0x9F, 0xAA, 0xD2, 0xFF};

// The bytes iconv refuses read as themselves, but for the three of the private use area.
char32_t UndefinedByteCharacter(int byte) {
  return byte == 0xAA ? 0xF8F9 : byte == 0xD2 ? 0xF8FA : byte == 0xFF ? 0xF8FB : byte;
}

TEST(Cp1253, EveryByteReadsAsIconvReadsIt) {
  const iconv_t toUtf8 = iconv_open("UTF-8", "CP1253");
  ASSERT_NE(toUtf8, reinterpret_cast<iconv_t>(-1));
  std::set<int> rejected;
  for (int byte = 0; byte < 256; ++byte) {
    const std::string one(1, static_cast<char>(byte));
    const auto expected = ViaIconv(toUtf8, one);
    if (!expected) {
      rejected.insert(byte);
      EXPECT_EQ(Cp1253ToUnicode(static_cast<unsigned char>(byte)), UndefinedByteCharacter(byte))
          << "byte " << byte;
      continue;
    }
    EXPECT_EQ(Cp1253ToUtf8(one), *expected) << "byte " << byte;
  }
  EXPECT_EQ(rejected, kUndefinedBytes);
  iconv_close(toUtf8);
}

// No character of the Basic Multilingual Plane that iconv writes is missing from our table,
// and none we write lands on another byte.
TEST(Cp1253, CharactersOutsideTheTableAgreeWithIconv) {
  const iconv_t toCp1253 = iconv_open("CP1253", "UTF-32LE");
  ASSERT_NE(toCp1253, reinterpret_cast<iconv_t>(-1));
  for (char32_t ch = 0; ch < 0x10000; ++ch) {
    if (ch >= 0xD800 && ch <= 0xDFFF) continue;
    std::string utf32(4, '\0');
    for (int k = 0; k < 4; ++k) utf32[k] = static_cast<char>((ch >> (8 * k)) & 0xFF);
    const auto viaIconv = ViaIconv(toCp1253, utf32);
    const int ours = UnicodeToCp1253(ch);
    if (viaIconv) {
      ASSERT_EQ(viaIconv->size(), 1u) << "U+" << std::hex << static_cast<uint32_t>(ch);
      EXPECT_EQ(ours, static_cast<unsigned char>((*viaIconv)[0]))
          << "U+" << std::hex << static_cast<uint32_t>(ch);
    } else if (ours >= 0) {
      EXPECT_TRUE(kUndefinedBytes.count(ours)) << "U+" << std::hex << static_cast<uint32_t>(ch);
    }
  }
  iconv_close(toCp1253);
}

TEST(Cp1253, AllBytesRoundTripAndOtherCharactersBecomeTheReplacement) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
  const std::string utf8 = Cp1253ToUtf8(all);
  EXPECT_TRUE(IsCp1253Representable(utf8));
  EXPECT_EQ(Utf8ToCp1253(utf8), all);
  EXPECT_EQ(Utf8ToCp1253(U32ToUtf8(Utf8ToU32(utf8))), all);
  EXPECT_EQ(Utf8ToCp1253("a日b"), "a?b");
  EXPECT_EQ(Utf8ToCp1253("ä€", '_'), "_\x80");
  EXPECT_FALSE(IsCp1253Representable("Ä"));
  EXPECT_EQ(UnicodeToCp1253(0xFFFD), -1);
}

TEST(Utf8, InvalidSequencesDecodeToReplacementsAndFourByteCharactersRoundTrip) {
  const std::pair<std::string, std::u32string> cases[] = {
      {"\xC3", U"\uFFFD"},                                // cut short
      {"a\xC3(", U"a\uFFFD("},                            // bad continuation
      {"\xC0\xAF", U"\uFFFD\uFFFD"},                      // overlong
      {"\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD"},            // surrogate
      {"\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"},  // past U+10FFFF
      {"\xFF", U"\uFFFD"}};
  for (const auto& [input, decoded] : cases) {
    EXPECT_EQ(Utf8ToU32(input), decoded);
    EXPECT_FALSE(IsCp1253Representable(input));
    EXPECT_EQ(Utf8ToCp1253(input).size(), decoded.size());
  }
  const std::u32string text = {U'Α', 0x1F600, U'z', 0x10FFFF};
  EXPECT_EQ(Utf8ToU32(U32ToUtf8(text)), text);
  EXPECT_EQ(U32ToUtf8(std::u32string{0xD800, 0x110000}), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

}  // namespace
