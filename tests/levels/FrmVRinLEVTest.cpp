// The loops dealt to levels, worked through the screen's logic: what each step stores in the
// levels' file, the boxes it raises and what the entries screen is told.
#include <gtest/gtest.h>

#include "CommandBoundary.h"
#include "FrmVRinLEV.h"
#include "LevelSheets.h"
#include "ProgramFolder.h"

namespace {

struct FakeEntries : FloorEntries {
  int cleared = 0;
  std::string waysOut;
  void ClearEntries() override { ++cleared; }
  void EnableWaysOut(bool back, bool close) override {
    waysOut = std::string(back ? "return" : "") + (close ? "close" : "");
  }
  void ShowPipeLength(const std::string&) override {}
};

struct Distribution : ::testing::Test {
  ProgramFolder program;
  StudyState study;
  LevelState levels;
  ScriptedPrompter prompter;
  FakeEntries entries;
  struct : Screens {
    void ShowModal(ScriptScreen&) override {}  // the test works the screen, which stays open
  } screens;
  CommandBoundary boundary{program.ws, prompter, study};
  std::unique_ptr<FrmVRinLEV> form;

  // Sheets 1..count, sheet s with load 100 s, output 110 s, flow 5 s, R 10, L s (drop 10 s + 135).
  void Sheets(int count) {
    auto file = program.ws.Open(SheetsFile);
    for (int16_t s = 1; s <= count; ++s) {
      SheetRecord sheet;
      sheet.SheetNo = s, sheet.Thema = "Μελέτη " + std::to_string(s);
      sheet.TotalLoad = 100.0f * s, sheet.RealOutput = 110.0f * s, sheet.Flow = 5.0f * s;
      sheet.SpecificResistance = 10, sheet.LoopLength = s;
      file.Write(s, sheet);
    }
  }
  void Open() {
    form = std::make_unique<FrmVRinLEV>(program.ws, study, levels, prompter, entries);
    form->Open(screens);
  }
  bool Run(const std::function<void(FrmVRinLEV&)>& step) {
    return boundary.Run(*form, [&] { step(*form); });
  }
  void Levels(const std::string& count) {
    Run([&](FrmVRinLEV& f) {
      f.TxtLevels.Text = count;
      f.TxtLevels_LostFocus();
    });
  }
  void Give(int level, const std::vector<int>& sheets) {
    Run([&](FrmVRinLEV& f) {
      f.CboLevels.Index = level - 1;
      f.CboLevels_Click();
      for (std::size_t i = 0; i < f.LstVroxoi.Items.size(); ++i) {
        const int sheet = std::stoi(f.LstVroxoi.Items[i].substr(f.LstVroxoi.Items[i].size() - 3));
        f.LstVroxoi.Selected[i] = std::count(sheets.begin(), sheets.end(), sheet) > 0;
      }
      f.CmdGive_Click();
    });
  }
  LevelRecord Level(int k) { return program.ws.Open(FloorsFile).Read(k); }
  std::vector<std::string> Titles() {
    std::vector<std::string> titles;
    for (const auto& shown : prompter.History()) titles.push_back(shown.Box.Title);
    prompter.Clear();
    return titles;
  }
};

TEST_F(Distribution, SheetsGivenOneByOneAreStoredSortedAndOKStoresTheSums) {
  Sheets(10);
  Open();
  EXPECT_EQ(form->LstVroxoi.Items.front(), "ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ Νο : 001");
  Levels("2");
  EXPECT_EQ(form->CboLevels.Items.back(), "ΘΕΡΜΑΙΝΟΜΕΝΟ ΕΠΙΠΕΔΟ Νο : 2");
  for (int sheet : {7, 2, 10}) Give(1, {sheet});
  EXPECT_EQ(Level(1).SheetList, "2,7,10");
  EXPECT_EQ(Level(1).RecNo, 1);
  EXPECT_EQ(Level(1).StudyTitle, "Μελέτη 10");
  // Choosing the level again shows its list as stored; the give adds at the end.
  EXPECT_EQ(form->LstUsedVroxoi.Items, (std::vector<std::string>{"ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ Νο : 002",
                                                                 "ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ Νο : 007",
                                                                 "ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ Νο : 010"}));
  Give(2, {1, 3, 4, 5, 6, 8, 9});
  EXPECT_EQ(Level(2).SheetList, "1,3,4,5,6,8,9");
  EXPECT_TRUE(form->LstVroxoi.Items.empty());
  Run([](FrmVRinLEV& f) { f.CmdOK_Click(); });
  EXPECT_TRUE(prompter.History().empty());
  EXPECT_TRUE(form->Accepted());
  EXPECT_EQ(entries.waysOut, "close");
  const LevelRecord first = Level(1);
  EXPECT_FLOAT_EQ(first.LevelLoad, 1900);
  EXPECT_FLOAT_EQ(first.LevelOutput, 2090);
  EXPECT_FLOAT_EQ(first.SectionFlow, 95);
  EXPECT_FLOAT_EQ(first.WorstLoopDrop, 10 * 10 + 135);
  EXPECT_EQ(first.WorstSheet, 10);
}

TEST_F(Distribution, TakingBackLeavesTheRestSortedAndNoneLeavesABlankList) {
  Sheets(4);
  Open();
  Levels("1");
  Give(1, {4, 1, 3});
  Run([](FrmVRinLEV& f) {
    f.LstUsedVroxoi.Selected = {false, true, false};  // 001, 003, 004: 003 goes back
    f.CmdTakeBack_Click();
  });
  EXPECT_EQ(Level(1).SheetList, "1,4");
  EXPECT_EQ(form->LstVroxoi.Items.back(), "ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ Νο : 003");
  Run([](FrmVRinLEV& f) {
    f.LstUsedVroxoi.Selected = {true, true};
    f.CmdTakeBack_Click();
  });
  EXPECT_EQ(Level(1).SheetList, "");
}

TEST_F(Distribution, RefusedStepsOnlyMoveTheFocusOrAsk) {
  Sheets(3);
  Open();
  Run([](FrmVRinLEV& f) { f.CmdGive_Click(); });  // no level yet
  EXPECT_EQ(form->TakeFocusTarget(), "TxtLevels");
  Run([](FrmVRinLEV& f) { f.CmdReset_Click(); });
  EXPECT_EQ(form->TakeFocusTarget(), "TxtLevels");
  Levels("2");
  Give(1, {1});
  Run([](FrmVRinLEV& f) { f.CmdOK_Click(); });  // level 2 has no sheet
  EXPECT_EQ(Titles(), std::vector<std::string>{"..!! ΠΡΟΣΟΧΗ !!..."});
  EXPECT_FALSE(form->Closed());
  Give(2, {2});
  prompter.QueueAnswer(Answer::No);
  Run([](FrmVRinLEV& f) { f.CmdOK_Click(); });  // sheet 3 on no level
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(prompter.History()[0].Box.Lines[1], "... (< 1 > ΚΑΤΑ ΤΟ ΠΛΗΘΟΣ) ...");
  prompter.Clear();
  EXPECT_FALSE(form->Closed());
  prompter.QueueAnswer(Answer::Yes);
  Run([](FrmVRinLEV& f) { f.CmdOK_Click(); });
  EXPECT_TRUE(form->Closed());
  EXPECT_FALSE(form->Accepted());
  EXPECT_EQ(entries.waysOut, "return");
  EXPECT_EQ(LevelCount(program.ws), 0);
}

TEST_F(Distribution, ResetKeepsLengthsWhileANewNumberOfLevelsDeletesTheFile) {
  Sheets(3);
  Open();
  Levels("2");
  Give(1, {1, 2});
  Give(2, {3});
  {
    auto floors = program.ws.Open(FloorsFile);
    LevelRecord second = floors.Read(2);
    second.Length = 3.5f;
    floors.Write(2, second);
  }
  levels.Correction = -1;
  Open();  // opened again on entries that exist
  EXPECT_FALSE(form->LstVroxoi.Enabled);
  EXPECT_TRUE(form->LblError.Visible);
  EXPECT_EQ(form->LstUsedVroxoi.Items.size(), 2u);
  Run([](FrmVRinLEV& f) { f.CmdGive_Click(); });
  EXPECT_EQ(form->TakeFocusTarget(), "CboLevels");
  prompter.QueueAnswer(Answer::Yes);
  Run([](FrmVRinLEV& f) { f.CmdReset_Click(); });
  EXPECT_EQ(Level(1).SheetList, "");
  EXPECT_FLOAT_EQ(Level(2).Length, 3.5f);
  EXPECT_TRUE(form->LstVroxoi.Enabled);
  EXPECT_EQ(form->LstVroxoi.Items.size(), 3u);
  prompter.QueueAnswer(Answer::Yes);
  Levels("3");
  EXPECT_EQ(Titles(), (std::vector<std::string>{"..!! ΠΡΟΣΟΧΗ !!...",
                                                "...!! ΑΛΛΑΓΗ ΠΛΗΘΟΥΣ ΘΕΡΜΑΙΝΟΜΕΝΩΝ ΕΠΙΠΕΔΩΝ !!..."}));
  EXPECT_FALSE(std::filesystem::exists(program.folder / FloorsFile.Name));
  EXPECT_EQ(entries.cleared, 1);
  EXPECT_EQ(form->CboLevels.Items.size(), 3u);
}

TEST_F(Distribution, ASheetAboveNinetyNineFailsTheGiveAndLeavesTheFileAndListsAsTheyWere) {
  Sheets(100);
  Open();
  Levels("1");
  Give(1, {1});
  const std::string before = ReadAllBytes(program.folder / FloorsFile.Name);
  Give(1, {100});
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_NE(prompter.History()[0].Box.OneLine().find("Μη αποδεκτή κλήση διαδικασίας"),
            std::string::npos);
  EXPECT_EQ(ReadAllBytes(program.folder / FloorsFile.Name), before);
  EXPECT_EQ(form->LstVroxoi.Items.size(), 99u);
  EXPECT_EQ(form->LstUsedVroxoi.Items.size(), 1u);
}

TEST(AnalyzeAndShortSheets, SortsOnTwoDigitKeysAndKeepsAGiftTwice) {
  EXPECT_EQ(FrmVRinLEV::AnalyzeAndShortSheets("10,7,2"), "2,7,10");
  EXPECT_EQ(FrmVRinLEV::AnalyzeAndShortSheets("3,3,1"), "1,3,3");
  EXPECT_EQ(FrmVRinLEV::AnalyzeAndShortSheets("  "), "");
}

}  // namespace
