// The field codec on its own: byte order, float bits, text in code page 1253, raw bytes.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "RecordLayout.h"

namespace {

using Bytes = std::vector<unsigned char>;

std::string Hex(const Bytes& bytes) {
  static const char* digits = "0123456789ABCDEF";
  std::string out;
  for (unsigned char b : bytes) {
    out += digits[b >> 4];
    out += digits[b & 0xF];
    out += ' ';
  }
  return out;
}

Bytes Of(const std::string& s) {
  return Bytes(s.begin(), s.end());
}

struct I16Case {
  int16_t Value;
  Bytes Disk;
};

TEST(RecordCodec, I16IsLittleEndianAndSigned) {
  const std::vector<I16Case> cases = {
      {0, {0x00, 0x00}},  {1, {0x01, 0x00}},     {258, {0x02, 0x01}},    {-1, {0xFF, 0xFF}},
      {-2, {0xFE, 0xFF}}, {32767, {0xFF, 0x7F}}, {-32768, {0x00, 0x80}}, {0x1234, {0x34, 0x12}},
  };
  for (const auto& c : cases) {
    Bytes out(2, 0xAA);
    record_codec::PutI16(out.data(), c.Value);
    EXPECT_EQ(Hex(out), Hex(c.Disk)) << c.Value;
    EXPECT_EQ(record_codec::GetI16(c.Disk.data()), c.Value);
  }
}

struct I32Case {
  int32_t Value;
  Bytes Disk;
};

TEST(RecordCodec, I32IsLittleEndianAndSigned) {
  const std::vector<I32Case> cases = {
      {0, {0, 0, 0, 0}},
      {0x01020304, {0x04, 0x03, 0x02, 0x01}},
      {-2, {0xFE, 0xFF, 0xFF, 0xFF}},
      {INT32_MIN, {0x00, 0x00, 0x00, 0x80}},
      {INT32_MAX, {0xFF, 0xFF, 0xFF, 0x7F}},
  };
  for (const auto& c : cases) {
    Bytes out(4, 0xAA);
    record_codec::PutI32(out.data(), c.Value);
    EXPECT_EQ(Hex(out), Hex(c.Disk)) << c.Value;
    EXPECT_EQ(record_codec::GetI32(c.Disk.data()), c.Value);
  }
}

struct F32Case {
  float Value;
  Bytes Disk;  // IEEE single precision bits, low byte first
};

TEST(RecordCodec, F32IsIeeeSingleLittleEndian) {
  const std::vector<F32Case> cases = {
      {0.0f, {0x00, 0x00, 0x00, 0x00}},    {1.0f, {0x00, 0x00, 0x80, 0x3F}},
      {-1.0f, {0x00, 0x00, 0x80, 0xBF}},   {0.15f, {0x9A, 0x99, 0x19, 0x3E}},
      {1234.5f, {0x00, 0x50, 0x9A, 0x44}}, {80.0f, {0x00, 0x00, 0xA0, 0x42}},
      {-0.0f, {0x00, 0x00, 0x00, 0x80}},
  };
  for (const auto& c : cases) {
    Bytes out(4, 0xAA);
    record_codec::PutF32(out.data(), c.Value);
    EXPECT_EQ(Hex(out), Hex(c.Disk)) << c.Value;
    const float back = record_codec::GetF32(c.Disk.data());
    EXPECT_EQ(back, c.Value);
    EXPECT_EQ(std::signbit(back), std::signbit(c.Value));
  }
}

TEST(RecordCodec, F32KeepsEveryBitOfANan) {
  const Bytes disk = {0x01, 0x00, 0xC0, 0x7F};
  const float nan = record_codec::GetF32(disk.data());
  EXPECT_TRUE(std::isnan(nan));
  Bytes out(4, 0);
  record_codec::PutF32(out.data(), nan);
  EXPECT_EQ(Hex(out), Hex(disk));
}

TEST(RecordCodec, F64IsIeeeDoubleLittleEndian) {
  const Bytes one = {0, 0, 0, 0, 0, 0, 0xF0, 0x3F};
  const Bytes minusTwoAndAHalf = {0, 0, 0, 0, 0, 0, 0x04, 0xC0};
  Bytes out(8, 0xAA);
  record_codec::PutF64(out.data(), 1.0);
  EXPECT_EQ(Hex(out), Hex(one));
  record_codec::PutF64(out.data(), -2.5);
  EXPECT_EQ(Hex(out), Hex(minusTwoAndAHalf));
  EXPECT_EQ(record_codec::GetF64(one.data()), 1.0);
  EXPECT_EQ(record_codec::GetF64(minusTwoAndAHalf.data()), -2.5);
}

struct PutTextCase {
  std::string Utf8;
  std::size_t Width;
  Bytes Disk;
};

TEST(RecordCodec, PutTextWritesCp1253PaddedWithBlanksAndCutAtTheWidth) {
  const std::vector<PutTextCase> cases = {
      {"Φ16x1", 8, {0xD6, '1', '6', 'x', '1', ' ', ' ', ' '}},
      {"", 5, {' ', ' ', ' ', ' ', ' '}},
      {"12345", 5, {'1', '2', '3', '4', '5'}},
      {"123456", 5, {'1', '2', '3', '4', '5'}},
      // Greek letters are one byte each, so the cut counts letters, not UTF-8 bytes.
      {"ΑΒΓΔΕΖ", 5, {0xC1, 0xC2, 0xC3, 0xC4, 0xC5}},
      {"Μελέτη", 8, {0xCC, 0xE5, 0xEB, 0xDD, 0xF4, 0xE7, ' ', ' '}},
      {"άς€", 4, {0xDC, 0xF2, 0x80, ' '}},
      {" a ", 4, {' ', 'a', ' ', ' '}},
      // A character the code page lacks becomes a question mark.
      {"日x", 3, {'?', 'x', ' '}},
  };
  for (const auto& c : cases) {
    Bytes out(c.Width + 2, 0xAA);  // two guard bytes after the field
    record_codec::PutText(out.data(), c.Width, c.Utf8);
    Bytes expected = c.Disk;
    expected.push_back(0xAA);
    expected.push_back(0xAA);
    EXPECT_EQ(Hex(out), Hex(expected)) << c.Utf8;
  }
}

struct GetTextCase {
  Bytes Disk;
  std::string Utf8;
};

TEST(RecordCodec, GetTextTrimsBlanksOnlyAndDecodesCp1253) {
  const std::vector<GetTextCase> cases = {
      {{0xD6, '1', '6', 'x', '1', ' ', ' ', ' '}, "Φ16x1"},
      {Of("  abc  "), "abc"},
      {Of("a b   "), "a b"},
      {Of("      "), ""},
      {{0xCC, 0xE5, 0xEB, 0xDD, 0xF4, 0xE7, ' ', ' '}, "Μελέτη"},
      // Zero bytes are kept: a record zero-filled by a write past the end stays recognisable.
      {{0, 0, 0}, std::string(3, '\0')},
      {{0, 'a', ' '}, std::string("\0a", 2)},
      {{' ', 'a', 0}, std::string("a\0", 2)},
      // Tabs are no blanks.
      {Of("\tx "), "\tx"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(record_codec::GetText(c.Disk.data(), c.Disk.size()), c.Utf8) << Hex(c.Disk);
  }
}

TEST(RecordCodec, EveryNonBlankByteOfATextFieldSurvivesReadAndWriteBack) {
  // 30-byte chunks of all byte values but the blank, which trimming may move.
  Bytes all;
  for (int b = 1; b < 256; ++b) {
    if (b != ' ') all.push_back(static_cast<unsigned char>(b));
  }
  for (std::size_t at = 0; at < all.size(); at += 30) {
    Bytes chunk(all.begin() + at, all.begin() + std::min(all.size(), at + 30));
    chunk.resize(30, ' ');
    const std::string text = record_codec::GetText(chunk.data(), chunk.size());
    Bytes back(30, 0xAA);
    record_codec::PutText(back.data(), back.size(), text);
    EXPECT_EQ(Hex(back), Hex(chunk));
  }
}

struct RawCase {
  std::string Value;
  std::size_t Width;
  Bytes Disk;
};

TEST(RecordCodec, RawBytesAreKeptPaddedWithZerosAndCut) {
  const std::vector<RawCase> cases = {
      {"", 3, {0, 0, 0}},
      {"ab", 4, {'a', 'b', 0, 0}},
      {"abcdef", 4, {'a', 'b', 'c', 'd'}},
      {std::string("\xFF \0\x81", 4), 4, {0xFF, ' ', 0, 0x81}},
  };
  for (const auto& c : cases) {
    Bytes out(c.Width + 1, 0xAA);
    record_codec::PutRaw(out.data(), c.Width, c.Value);
    Bytes expected = c.Disk;
    expected.push_back(0xAA);
    EXPECT_EQ(Hex(out), Hex(expected));
  }
  const Bytes disk = {' ', 0, 0xFF, ' '};
  EXPECT_EQ(record_codec::GetRaw(disk.data(), disk.size()), std::string(" \0\xFF ", 4));
}

}  // namespace
