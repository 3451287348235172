#pragma once
// The desktop under the logic: the primary screen's size, the locale's separators, the PDF
// viewer of the desktop and its file dialogs.
#include "Platform.h"

class QtPlatform : public Platform {
 public:
  DisplaySize Display() const override;
  Separators NumberSeparators() const override;
  bool OpenDocument(const std::filesystem::path& file) override;
  std::optional<std::filesystem::path> AskSaveFile(const std::filesystem::path& folder,
                                                   const std::string& filter,
                                                   const std::filesystem::path& proposed) override;
  std::optional<std::filesystem::path> AskOpenFile(const std::filesystem::path& folder,
                                                   const std::string& filter) override;
};
