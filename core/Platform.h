#pragma once
// The desktop as the logic needs it: the display size and the document viewer.
#include <filesystem>
#include <optional>
#include <string>

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
  // False when the desktop has no program that could be started for it.
  virtual bool OpenDocument(const std::filesystem::path& file) = 0;
  // The desktop's dialog for the name of a file to write, opened on `folder` with `filter` in
  // the old form "Special Files (*.sht)|*.sht". `proposed` is the file the box starts on (the
  // study's own file, so that a second save only needs Enter); empty for none. Nothing when
  // the engineer cancels.
  virtual std::optional<std::filesystem::path> AskSaveFile(const std::filesystem::path& folder,
                                                           const std::string& filter,
                                                           const std::filesystem::path& proposed) {
    (void)folder;
    (void)filter;
    (void)proposed;
    return std::nullopt;
  }
  // The same for a file to read, which proposes nothing.
  virtual std::optional<std::filesystem::path> AskOpenFile(const std::filesystem::path& folder,
                                                           const std::string& filter) {
    return AskSaveFile(folder, filter, {});
  }
};
