#include "Scramble.h"

#include <cmath>

#include "VbRandom.h"

int32_t KeySeed(std::string_view key) {
  int32_t h = 0;
  int s1 = 0, s2 = 0;
  for (const char ch : key) {
    const double a = static_cast<unsigned char>(ch);
    s1 = (s1 + 7) % 19;
    s2 = (s2 + 13) % 23;
    h = h ^ static_cast<int32_t>(std::floor(std::ldexp(a, s1))) ^
        static_cast<int32_t>(std::floor(std::ldexp(a, s2)));
  }
  return h;
}

namespace {

// The generator restarted and seeded by the key, as each field begins.
VbRandom SequenceOf(std::string_view key) {
  VbRandom rnd;
  rnd.Restart(-1.0f);
  rnd.Randomize(KeySeed(key));
  return rnd;
}

std::string Shift(std::string_view bytes, std::string_view key, bool forward) {
  VbRandom rnd = SequenceOf(key);
  std::string out(bytes);
  for (char& ch : out) {
    const auto r = static_cast<unsigned>(std::floor(rnd.Next() * 256.0f));
    const auto c = static_cast<unsigned char>(ch);
    ch = static_cast<char>(forward ? (c + r) & 255 : (c + 256 - r) & 255);
  }
  return out;
}

}  // namespace

std::string ScrambleText(std::string_view bytes, std::string_view key) {
  return Shift(bytes, key, true);
}

std::string UnscrambleText(std::string_view bytes, std::string_view key) {
  return Shift(bytes, key, false);
}
