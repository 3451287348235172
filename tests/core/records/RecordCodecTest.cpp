// The field codec on its own: byte order, float bits, text in code page 1253, raw bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
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

TEST(RecordCodec, NumbersAreLittleEndianTwosComplementAndIeee) {
  const std::pair<int16_t, Bytes> i16[] = {
      {258, {0x02, 0x01}}, {-2, {0xFE, 0xFF}}, {32767, {0xFF, 0x7F}}, {-32768, {0x00, 0x80}}};
  for (const auto& [value, disk] : i16) {
    EXPECT_EQ(Field(2, [&](unsigned char* p) { record_codec::PutI16(p, value); }), Hex(disk));
    EXPECT_EQ(record_codec::GetI16(disk.data()), value);
  }
  const std::pair<int32_t, Bytes> i32[] = {{0x01020304, {0x04, 0x03, 0x02, 0x01}},
                                           {-2, {0xFE, 0xFF, 0xFF, 0xFF}},
                                           {INT32_MIN, {0x00, 0x00, 0x00, 0x80}}};
  for (const auto& [value, disk] : i32) {
    EXPECT_EQ(Field(4, [&](unsigned char* p) { record_codec::PutI32(p, value); }), Hex(disk));
    EXPECT_EQ(record_codec::GetI32(disk.data()), value);
  }
  const std::pair<float, Bytes> f32[] = {{-1.0f, {0x00, 0x00, 0x80, 0xBF}},
                                         {0.15f, {0x9A, 0x99, 0x19, 0x3E}},
                                         {1234.5f, {0x00, 0x50, 0x9A, 0x44}},
                                         {-0.0f, {0x00, 0x00, 0x00, 0x80}}};
  for (const auto& [value, disk] : f32) {
    EXPECT_EQ(Field(4, [&](unsigned char* p) { record_codec::PutF32(p, value); }), Hex(disk));
    EXPECT_EQ(std::signbit(record_codec::GetF32(disk.data())), std::signbit(value));
    EXPECT_EQ(record_codec::GetF32(disk.data()), value);
  }
  // Every bit of a NaN survives.
  const Bytes nan = {0x01, 0x00, 0xC0, 0x7F};
  EXPECT_EQ(
      Field(4,
            [&](unsigned char* p) { record_codec::PutF32(p, record_codec::GetF32(nan.data())); }),
      Hex(nan));
  const Bytes minusTwoAndAHalf = {0, 0, 0, 0, 0, 0, 0x04, 0xC0};
  EXPECT_EQ(Field(8, [](unsigned char* p) { record_codec::PutF64(p, -2.5); }),
            Hex(minusTwoAndAHalf));
  EXPECT_EQ(record_codec::GetF64(minusTwoAndAHalf.data()), -2.5);
}

TEST(RecordCodec, TextIsCp1253PaddedWithBlanksCutAtTheWidthAndTrimmedOfBlanksOnly) {
  const struct {
    std::string Utf8;
    std::size_t Width;
    std::string Disk;
  } put[] = {
      {"Φ16x1", 8,
       "\xD6"
       "16x1   "},
      {"", 3, "   "},
      {"123456", 5, "12345"},
      // Greek letters are one byte each, so the cut counts letters, not UTF-8 bytes.
      {"ΑΒΓΔΕΖ", 5, "\xC1\xC2\xC3\xC4\xC5"},
      {"άς€", 4, "\xDC\xF2\x80 "},
      {" a ", 4, " a  "},
      // A character the code page lacks becomes a question mark.
      {"日x", 3, "?x "},
  };
  for (const auto& c : put) {
    EXPECT_EQ(Field(c.Width, [&](unsigned char* p) { record_codec::PutText(p, c.Width, c.Utf8); }),
              Hex(Bytes(c.Disk.begin(), c.Disk.end())))
        << c.Utf8;
  }
  const std::pair<std::string, std::string> get[] = {
      {"\xD6"
       "16x1   ",
       "Φ16x1"},
      {"  a b  ", "a b"},
      {"      ", ""},
      // Zero bytes are kept: a record zero-filled by a write past the end stays recognisable.
      {std::string("\0a ", 3), std::string("\0a", 2)},
      {"\tx ", "\tx"},
  };
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
