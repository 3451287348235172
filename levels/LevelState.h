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
  // Set while the levels hold entries that are being corrected, not entered for the first time.
  int16_t Correction = 0;
  // Minus the number of sheets on no level; 0 when every sheet has one.
  int16_t UnusedSheets = 0;
  // The fittings screen changed the fittings of its level.
  bool FittingsChanged = false;
  // The last choice of the fittings screen's "same as" list, kept between its openings.
  int SameIndex = -1;
  // A study of one level: its flag, all its sheets and their totals.
  int16_t SingleLevel = 0;
  std::string AllSheets;
  float TotalLoad = 0, TotalOutput = 0, TotalFlow = 0, TotalWorstDrop = 0;
  int16_t TotalWorstSheet = 0;
  // The record buffer the levels' screens share: a record read by one screen is what the next
  // write of another puts, for the fields it does not set itself.
  LevelRecord Floor;
};
