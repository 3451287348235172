#pragma once
// A desktop whose display and separators a test chooses, and whose viewer only remembers.
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "Platform.h"

class FakePlatform : public Platform {
 public:
  DisplaySize Size{1024, 768};
  Separators Seps{U'.', U','};
  std::vector<std::string> Opened;
  // Answers of the file dialogs, open and save alike, in order; none left: cancelled.
  std::deque<std::optional<std::filesystem::path>> FileAnswers;
  // Each save dialog asked for, with the folder and the file it was to start on.
  struct SaveAsk {
    std::filesystem::path Folder;
    std::filesystem::path Proposed;
  };
  std::vector<SaveAsk> SaveAsks;
  DisplaySize Display() const override { return Size; }
  Separators NumberSeparators() const override { return Seps; }
  bool OpenDocument(const std::filesystem::path& file) override {
    Opened.push_back(file.filename().string());
    return CanOpenDocuments;
  }
  bool CanOpenDocuments = true;
  std::optional<std::filesystem::path> AskSaveFile(const std::filesystem::path& folder,
                                                   const std::string&,
                                                   const std::filesystem::path& proposed) override {
    SaveAsks.push_back({folder, proposed});
    return NextAnswer();
  }
  std::optional<std::filesystem::path> AskOpenFile(const std::filesystem::path&,
                                                   const std::string&) override {
    return NextAnswer();
  }

 private:
  std::optional<std::filesystem::path> NextAnswer() {
    if (FileAnswers.empty()) return std::nullopt;
    auto answer = FileAnswers.front();
    FileAnswers.pop_front();
    return answer;
  }
};
