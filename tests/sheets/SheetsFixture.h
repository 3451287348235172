#pragma once
// A main screen over a fresh program folder for each test, with the few actions and checks the
// sheets' tests share.
#include <gtest/gtest.h>

#include <set>

#include "MainScreen.h"
#include "RadiatorSizing.h"
#include "RecordFile.h"
#include "SomaRecord.h"

class SheetsTest : public ::testing::Test, public MainScreen {
 protected:
  using MainScreen::Run;
  // A file of the program folder (or any file by its whole path), byte for byte.
  std::string Bytes(const std::filesystem::path& file) { return ReadAllBytes(folder / file); }
  std::filesystem::path Study(const std::string& name) { return folder / "RVLFiles" / name; }
  std::set<std::string> StudyFiles() {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder / "RVLFiles"))
      names.insert(entry.path().filename().string());
    return names;
  }
  // A command of the main screen run as its button runs it; false when it failed.
  bool Do(void (FrmRavolin::*command)()) {
    return boundary.Run(*form, [&] { (form.get()->*command)(); });
  }
  bool Click(int row, int col) {
    return boundary.Run(*form, [&] { form->Grid_Click(row, col); });
  }
  // Ctrl (or Shift) with a key.
  bool Chord(KeyCode code, char32_t letter = 0, bool shift = false) {
    KeyStroke key{code, !shift, shift};
    key.Char = letter;
    return boundary.Run(*form, [&] { form->Form_KeyDown(key); });
  }
  bool CtrlS() { return Chord(KeyCode::Char, U'S'); }
  // The texts of some cells of a row, joined by '|'.
  std::string Cells(int row, std::initializer_list<int> cols) const {
    std::string joined;
    for (int col : cols) joined += (joined.empty() ? "" : "|") + form->Grid.Text(row, col);
    return joined;
  }
  // The one box the last actions raised: its first line, or its title.
  void ExpectBox(const std::string& firstLine) {
    ASSERT_EQ(prompter.History().size(), 1u) << firstLine;
    EXPECT_EQ(LastBox().Lines.front(), firstLine);
  }
  void ExpectRunFault() {
    ASSERT_EQ(prompter.History().size(), 1u);
    EXPECT_EQ(LastBox().Title, "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...");
  }
};
