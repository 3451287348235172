#include "VbRandom.h"

#include <cstring>

namespace {
constexpr uint32_t kMask24 = 0xFFFFFF;
constexpr uint32_t kMultiplier = 0x43FD43FD;
constexpr uint32_t kIncrement = 0xC39EC3;
constexpr float kScale = 16777216.0f;  // 2^24
}  // namespace

void VbRandom::Step() {
  state_ =
      static_cast<uint32_t>((static_cast<uint64_t>(state_) * kMultiplier + kIncrement) & kMask24);
}

float VbRandom::Next() {
  Step();
  return static_cast<float>(state_) / kScale;
}

float VbRandom::Restart(float negative) {
  uint32_t bits = 0;
  std::memcpy(&bits, &negative, sizeof bits);
  state_ = (bits + (bits >> 24)) & kMask24;
  return Next();
}

void VbRandom::Randomize(double n) {
  uint64_t bits = 0;
  std::memcpy(&bits, &n, sizeof bits);
  const auto high = static_cast<uint32_t>(bits >> 32);
  const uint32_t middle = (((high & 0xFFFF) ^ (high >> 16)) << 8) & 0xFFFF00;
  state_ = (state_ & 0xFF0000FF) | middle;
}
