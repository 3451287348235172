#pragma once
// A main screen over a fresh program folder, with a scripted prompter and a platform whose
// display and separators the test chooses.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "CommandBoundary.h"
#include "Cp1253.h"
#include "FakePlatform.h"
#include "FrmRavolin.h"
#include "Message.h"
#include "StudyState.h"
#include "TempFolder.h"
#include "Workspace.h"

inline const Separators kGreek{U',', U'.'};
inline const Separators kEnglish{U'.', U','};

class SheetsTest : public ::testing::Test {
 protected:
  SheetsTest() : ws(folder.Path()) {}

  // The pipe list as the program ships it (code page 1253, CRLF).
  void WritePipes(const std::vector<std::string>& names) {
    std::string bytes;
    for (const auto& n : names) bytes += Utf8ToCp1253(n) + "\r\n";
    WriteAllBytes(folder / "RavoPipes.txt", bytes);
  }

  FrmRavolin& Load() {
    form = std::make_unique<FrmRavolin>(ws, state, prompter, platform, boundary);
    boundary.Run([&] { form->Form_Load(); });
    return *form;
  }

  // A user's action on the screen, through the command boundary as the views run it.
  void Type(const std::string& control, const std::string& text) {
    boundary.Run([&] { form->Controls().at(control).Type(text); });
  }

  std::vector<std::string> Titles() const {
    std::vector<std::string> titles;
    for (const auto& shown : prompter.History()) titles.push_back(shown.Box.Title);
    return titles;
  }
  const Message& LastBox() const { return prompter.History().back().Box; }

  TempFolder folder;
  Workspace ws;
  StudyState state;
  ScriptedPrompter prompter;
  FakePlatform platform;
  CommandBoundary boundary{ws, prompter};
  std::unique_ptr<FrmRavolin> form;
};
