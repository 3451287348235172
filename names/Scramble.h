#pragma once
// The scrambling of the engineer names and their password: each field alone, from the start of
// the generator's sequence seeded by a fixed key, so that the file cannot be read or edited as
// text. The texts are code page 1253 bytes, as on disk.
#include <cstdint>
#include <string>
#include <string_view>

inline constexpr const char* kNamesKey = "37184602";

// The seed value of a key (h of the scrambling's first step).
int32_t KeySeed(std::string_view key);
// Byte for byte: (c + r) and 255, r = Int(Rnd() * 256) of the restarted sequence.
std::string ScrambleText(std::string_view bytes, std::string_view key = kNamesKey);
// The reverse: (c + 256 - r) and 255.
std::string UnscrambleText(std::string_view bytes, std::string_view key = kNamesKey);
