#pragma once
// What the screens opened from the level entries screen reach of it: its entries to clear, its
// two ways out, the length box of the level on it.
#include <string>

class FloorEntries {
 public:
  virtual ~FloorEntries() = default;
  // The grid, the length and the level total cleared, the level shown back at 1.
  virtual void ClearEntries() = 0;
  // Which of the return to the sheets and the close of the entries stays open.
  virtual void EnableWaysOut(bool returnToSheets, bool close) = 0;
  virtual void ShowPipeLength(const std::string& text) = 0;
};
