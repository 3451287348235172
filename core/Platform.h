#pragma once
// The desktop as the logic needs it: the display size and the document viewer.
#include <filesystem>

#include "Numbers.h"

struct DisplaySize {
  int Width = 1024;
  int Height = 768;
};

class Platform {
 public:
  virtual ~Platform() = default;
  virtual DisplaySize Display() const = 0;
  // The separators of the user's locale (SystemSeparators() on the desktop).
  virtual Separators NumberSeparators() const = 0;
  // Opens a document in the desktop's viewer (the manual, "RM.pdf").
  virtual void OpenDocument(const std::filesystem::path& file) = 0;
  // The beeps before most message boxes.
  virtual void Beep() {}
};
