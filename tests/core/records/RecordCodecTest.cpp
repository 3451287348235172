// The field codec on its own: byte order, float bits, text in code page 1253, raw bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "RecordLayout.h"

namespace {

using Bytes = std::vector<unsigned char>;

std::string Hex(const Bytes& bytes) {
  std::string out;
  for (unsigned char b : bytes)
    out += "0123456789ABCDEF"[b >> 4], out += "0123456789ABCDEF"[b & 15];
  return out;
}

// Puts `put` into a field of `width` bytes between guard bytes; the field's bytes come back.
template <class Put>
std::string Field(std::size_t width, Put put) {
  Bytes out(width + 2, 0xAA);
  put(out.data() + 1);
  EXPECT_EQ(out.front(), 0xAA);
  EXPECT_EQ(out.back(), 0xAA) << "written past the field";
  return Hex(Bytes(out.begin() + 1, out.end() - 1));
}

// What the golden records do not hold: negative and extreme whole numbers, a negative zero and
// every bit of a NaN.
TEST(RecordCodec, NumbersKeepTheirSignAndEveryBit) {
  const std::pair<int16_t, Bytes> i16[] = {
      {-2, {0xFE, 0xFF}}, {32767, {0xFF, 0x7F}}, {-32768, {0x00, 0x80}}};
  for (const auto& [value, disk] : i16) {
    EXPECT_EQ(Field(2, [&](unsigned char* p) { record_codec::PutI16(p, value); }), Hex(disk));
    EXPECT_EQ(record_codec::GetI16(disk.data()), value);
  }
  for (const Bytes& disk : {Bytes{0x00, 0x00, 0x00, 0x80}, Bytes{0x01, 0x00, 0xC0, 0x7F}}) {
    const float value = record_codec::GetF32(disk.data());
    EXPECT_EQ(Field(4, [&](unsigned char* p) { record_codec::PutF32(p, value); }), Hex(disk));
  }
}

// Greek letters are one byte each, so the cut counts letters, not UTF-8 bytes; a character the
// code page lacks becomes a question mark. Zero bytes are kept on reading, so that a record
// zero-filled by a write past the end stays recognisable; tabs are no blanks.
TEST(RecordCodec, TextIsCp1253PaddedWithBlanksCutAtTheWidthAndTrimmedOfBlanksOnly) {
  const std::tuple<std::string, std::size_t, std::string> put[] = {
      {"", 3, "   "},         {"日x", 3, "?x "},           {" a ", 4, " a  "},
      {"123456", 5, "12345"}, {"άς€", 4, "\xDC\xF2\x80 "}, {"ΑΒΓΔΕΖ", 5, "\xC1\xC2\xC3\xC4\xC5"}};
  for (const auto& [utf8, width, disk] : put) {
    EXPECT_EQ(Field(width, [&](unsigned char* p) { record_codec::PutText(p, width, utf8); }),
              Hex(Bytes(disk.begin(), disk.end())))
        << utf8;
  }
  const std::pair<std::string, std::string> get[] = {
      {"  a b  ", "a b"},
      {"      ", ""},
      {std::string("\0a ", 3), std::string("\0a", 2)},
      {"\tx ", "\tx"},
      {"\xCC\xE5\xEB\xDD\xF4\xE7  ", "Μελέτη"}};
  for (const auto& [disk, utf8] : get) {
    EXPECT_EQ(
        record_codec::GetText(reinterpret_cast<const unsigned char*>(disk.data()), disk.size()),
        utf8);
  }
}

TEST(RecordCodec, EveryNonBlankByteOfATextFieldSurvivesReadAndWriteBack) {
  Bytes all;
  for (int b = 1; b < 256; ++b)
    if (b != ' ') all.push_back(static_cast<unsigned char>(b));
  for (std::size_t at = 0; at < all.size(); at += 30) {
    Bytes chunk(all.begin() + at, all.begin() + std::min(all.size(), at + 30));
    chunk.resize(30, ' ');
    const std::string text = record_codec::GetText(chunk.data(), chunk.size());
    EXPECT_EQ(Field(30, [&](unsigned char* p) { record_codec::PutText(p, 30, text); }), Hex(chunk));
  }
}

TEST(RecordCodec, RawBytesAreKeptPaddedWithZerosAndCut) {
  EXPECT_EQ(Field(4, [](unsigned char* p) { record_codec::PutRaw(p, 4, "ab"); }), "61620000");
  EXPECT_EQ(Field(4, [](unsigned char* p) { record_codec::PutRaw(p, 4, "abcdef"); }), "61626364");
  const Bytes disk = {' ', 0, 0xFF, ' '};
  EXPECT_EQ(record_codec::GetRaw(disk.data(), disk.size()), std::string(" \0\xFF ", 4));
}

}  // namespace
