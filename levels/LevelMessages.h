#pragma once
// The message boxes of the levels' screens, by name, with their exact Greek titles and lines.
#include <cstdint>
#include <string>
#include <vector>

#include "Message.h"

enum class LevelMessage : int16_t {
  ChangeLevelCount = 1,   // a new number of levels deletes every level entry
  ResetDistribution = 2,  // the sheets leave their levels, lengths and fittings stay
  LevelsWithoutLoops = 3,
  UnusedSheets = 4,       // the count stands in the second line
  TwoDecimalSeparators = 5,
};

const std::vector<MessageEntry<LevelMessage>>& LevelMessageTable();
// The box of a code; `count` fills the box that reports one.
Message LevelMessageBox(LevelMessage code, int count = 0);
