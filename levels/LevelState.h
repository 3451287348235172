#pragma once
// What the levels' screens keep beside the level records while the program runs, shared with
// the boiler room. N is not here: it is the length of FloorsFile, read at each opening.
#include <cstdint>
#include <string>

#include "LevelRecord.h"

// BoilerLevel: below the first heated level, on level k (k), or above the last (N + 1).
inline constexpr int16_t kBoilerBelowFirstLevel = -1;
// The circulator stands in the supply or in the return.
inline constexpr const char* kPumpInSupply = "Go";
inline constexpr const char* kPumpInReturn = "Return";

// The boiler below level 2 or at least on level N takes the edge files of the derived network;
// between, the inter files.
constexpr bool BoilerAtEdge(int16_t boilerLevel, int16_t levelCount) {
  return boilerLevel < 2 || boilerLevel >= levelCount;
}

struct LevelState {
  int16_t CurrentLevel = 1;
  int16_t BoilerLevel = kBoilerBelowFirstLevel;
  std::string PumpSide = kPumpInSupply;
  // The record buffer the levels' screens share: a record read by one screen is what the next
  // write of another puts, for the fields it does not set itself.
  LevelRecord Floor;
};
