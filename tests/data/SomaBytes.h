#pragma once
// Reading a radiator type file straight from its bytes, without the record codec, so that a
// fault of the codec cannot hide behind itself. Offsets are those of the 331-byte record.
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>

namespace soma_bytes {

inline constexpr std::size_t kLength = 331;
inline constexpr std::size_t kCategoryNo = 0, kRecordNo = 2, kCategory = 4, kSomaType = 124,
                             kMeanActiveTemp = 149, kStep = 153, kStepUnits = 157, kFirstSoma = 173,
                             kMinSteps = 183, kMaxSteps = 185, kUnitOutput = 187, kUnitArea = 191,
                             kSomaHeight = 195, kSomaWidth = 199, kUnitWater = 203,
                             kSomaWeight = 207, kDiscon = 211, kReserved = 311;

inline uint32_t U32At(const std::string& b, std::size_t at) {
  uint32_t v = 0;
  for (int i = 3; i >= 0; --i) v = (v << 8) | static_cast<unsigned char>(b.at(at + i));
  return v;
}
inline int16_t I16At(const std::string& b, std::size_t at) {
  return static_cast<int16_t>(static_cast<uint16_t>(static_cast<unsigned char>(b.at(at)) |
                                                    static_cast<unsigned char>(b.at(at + 1)) << 8));
}
inline float F32At(const std::string& b, std::size_t at) {
  return std::bit_cast<float>(U32At(b, at));
}

// Record n (from 1) of a file image.
inline std::string Record(const std::string& file, int n) {
  return file.substr(static_cast<std::size_t>(n - 1) * kLength, kLength);
}

inline std::string Blanked(const std::string& bytes, std::size_t width) {
  return bytes + std::string(width - bytes.size(), ' ');
}

// The field's bytes without the blanks that pad it on the right.
inline std::string RightTrimmed(const std::string& record, std::size_t at, std::size_t width) {
  std::string field = record.substr(at, width);
  field.erase(field.find_last_not_of(' ') + 1);
  return field;
}

}  // namespace soma_bytes
