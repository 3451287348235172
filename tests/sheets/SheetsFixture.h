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
#include "RadiatorSizing.h"
#include "RecordFile.h"
#include "ScriptedScreens.h"
#include "SomaRecord.h"
#include "StudyState.h"
#include "TempFolder.h"
#include "TypeFiles.h"
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

  void WriteTypeFile(const std::string& name, int16_t categoryNo, const std::string& category,
                     std::vector<SomaRecord> models) {
    ::WriteTypeFile(folder / name, categoryNo, category, std::move(models));
  }
  // The family with sections, as a type file and its master copy.
  void WriteSectionFamily(float unitWater = 1.5f) {
    WriteTypeFile(kSectionFamilyFile, 1, kSectionFamilyCategory, SectionModels(unitWater));
    WriteTypeFile(kSectionFamilyMaster, 1, kSectionFamilyCategory, SectionModels(unitWater));
  }
  void WriteSectionFamilyMaster() {
    WriteSectionFamily();
    std::filesystem::remove(folder / kSectionFamilyFile);
  }

  void Cell(int row, int col, const std::string& text) {
    boundary.Run(*form, [&] { form->Grid_EditCell(row, col, text); });
  }
  void Key(KeyCode code) {
    KeyStroke key;
    key.Code = code;
    boundary.Run(*form, [&] { form->Form_KeyDown(key); });
  }
  void Choose(const std::string& control, const std::string& entry) {
    boundary.Run(*form, [&] { form->Controls().at(control).ChooseText(entry); });
  }
  // The sheet header as an engineer fills it in.
  void TypeHeader(const std::string& tempDrop = "20", const std::string& origTemp = "85",
                  const std::string& length = "10") {
    Type("TxtOwnership", "Οικία Παπαδόπουλου");
    Type("TxtLoopNo", "Κ1");
    Type("TxtTempDrop", tempDrop);
    Type("TxtOrigTemp", origTemp);
    Type("TxtLoopLength", length);
  }

  // Starts the main screen. A program folder gets the master copy of the family with sections
  // first, as every installation has it, unless the test wants a folder without it.
  FrmRavolin& Load() {
    if (withSectionMaster && !std::filesystem::exists(folder / kSectionFamilyMaster))
      WriteSectionFamilyMaster();
    form = std::make_unique<FrmRavolin>(ws, state, prompter, platform, boundary, screens);
    boundary.Run(*form, [&] { form->Form_Load(); });
    return *form;
  }

  // A user's action on the screen, through the command boundary as the views run it.
  void Type(const std::string& control, const std::string& text) {
    boundary.Run(*form, [&] { form->Controls().at(control).Type(text); });
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
  CommandBoundary boundary{ws, prompter, state};
  ScriptedScreens screens;
  std::unique_ptr<FrmRavolin> form;
  bool withSectionMaster = true;
};
