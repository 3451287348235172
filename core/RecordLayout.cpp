#include "RecordLayout.h"

#include <bit>
#include <cstring>
#include <string_view>

#include "Cp1253.h"

namespace record_codec {

namespace {

// Numbers on disk are little-endian whatever the machine: bytes are placed one by one.
template <class U>
void PutLittle(unsigned char* p, U v) {
  for (std::size_t i = 0; i < sizeof(U); ++i) {
    p[i] = static_cast<unsigned char>(v & 0xFF);
    v = static_cast<U>(v >> 8);
  }
}

template <class U>
U GetLittle(const unsigned char* p) {
  U v = 0;
  for (std::size_t i = sizeof(U); i-- > 0;) v = static_cast<U>((v << 8) | p[i]);
  return v;
}

constexpr unsigned char kBlank = ' ';

}  // namespace

void PutI16(unsigned char* p, int16_t v) {
  PutLittle(p, static_cast<uint16_t>(v));
}

void PutI32(unsigned char* p, int32_t v) {
  PutLittle(p, static_cast<uint32_t>(v));
}

void PutF32(unsigned char* p, float v) {
  PutLittle(p, std::bit_cast<uint32_t>(v));
}

void PutF64(unsigned char* p, double v) {
  PutLittle(p, std::bit_cast<uint64_t>(v));
}

int16_t GetI16(const unsigned char* p) {
  return static_cast<int16_t>(GetLittle<uint16_t>(p));
}

int32_t GetI32(const unsigned char* p) {
  return static_cast<int32_t>(GetLittle<uint32_t>(p));
}

float GetF32(const unsigned char* p) {
  return std::bit_cast<float>(GetLittle<uint32_t>(p));
}

double GetF64(const unsigned char* p) {
  return std::bit_cast<double>(GetLittle<uint64_t>(p));
}

void PutText(unsigned char* p, std::size_t width, const std::string& utf8) {
  const std::string bytes = Utf8ToCp1253(utf8);
  const std::size_t used = bytes.size() < width ? bytes.size() : width;
  if (used > 0) std::memcpy(p, bytes.data(), used);
  std::memset(p + used, kBlank, width - used);
}

std::string GetText(const unsigned char* p, std::size_t width) {
  std::size_t begin = 0;
  std::size_t end = width;
  while (begin < end && p[begin] == kBlank) ++begin;
  while (end > begin && p[end - 1] == kBlank) --end;
  return Cp1253ToUtf8(std::string_view(reinterpret_cast<const char*>(p) + begin, end - begin));
}

void PutRaw(unsigned char* p, std::size_t width, const std::string& raw) {
  const std::size_t used = raw.size() < width ? raw.size() : width;
  if (used > 0) std::memcpy(p, raw.data(), used);
  std::memset(p + used, 0, width - used);
}

std::string GetRaw(const unsigned char* p, std::size_t width) {
  return std::string(reinterpret_cast<const char*>(p), width);
}

}  // namespace record_codec
