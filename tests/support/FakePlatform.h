#pragma once
// A desktop whose display and separators a test chooses, and whose viewer only remembers.
#include <string>
#include <vector>

#include "Platform.h"

class FakePlatform : public Platform {
 public:
  DisplaySize Size{1024, 768};
  Separators Seps{U'.', U','};
  std::vector<std::string> Opened;
  DisplaySize Display() const override { return Size; }
  Separators NumberSeparators() const override { return Seps; }
  void OpenDocument(const std::filesystem::path& file) override {
    Opened.push_back(file.filename().string());
  }
};
