// The fittings of a riser piece worked through the screen's logic: the boxes it fills, the tee
// letters, the checks of its ending and the record it stores.
#include <gtest/gtest.h>

#include "CommandBoundary.h"
#include "FrmRavoAccessories.h"
#include "ProgramFolder.h"

namespace {

struct Fittings : ::testing::Test {
  ProgramFolder program;
  StudyState study;
  LevelState levels;
  ScriptedPrompter prompter;
  CommandBoundary boundary{program.ws, prompter, study};
  struct : FloorEntries {
    std::string length;
    void ClearEntries() override {}
    void EnableWaysOut(bool, bool) override {}
    void ShowPipeLength(const std::string& text) override { length = text; }
  } entries;
  struct : Screens {
    void ShowModal(ScriptScreen&) override {}
  } screens;
  std::unique_ptr<FrmRavoAccessories> form;

  void SetUp() override {
    LevelRecord first;
    first.RecNo = first.Level = 1, first.SheetList = "1", first.SectionName = "ANT/1";
    first.Length = 2.5f, first.TeesPass = 3, first.CheckValves = 1;
    program.ws.Open(FloorsFile).Write(1, first);
  }
  void Open(int16_t level) {
    levels.CurrentLevel = level;
    form = std::make_unique<FrmRavoAccessories>(program.ws, study, levels, prompter, entries);
    form->Open(screens);
  }
  void Type(const char* box, const std::string& text) {
    boundary.Run(*form, [&] { form->Controls().at(box).Type(text); });
  }
  void Key(char32_t letter) {
    boundary.Run(*form, [&] { form->KeyDown({.Code = KeyCode::Char, .Shift = true, .Char = letter}); });
  }
  void End() {
    boundary.Run(*form, [&] { form->Cmd_End_Click(); });
  }
  LevelRecord Level(int k) { return program.ws.Open(FloorsFile).Read(k); }
};

TEST_F(Fittings, ANewLevelIsNamedFromTheOneBelowAndTheTeeLettersCount) {
  Open(2);
  EXPECT_EQ(form->Txt0.Text, "1");
  EXPECT_EQ(form->Txt1.Text, "2");
  EXPECT_EQ(form->Txt2.Text, "");
  EXPECT_EQ(form->Txt15.Text, "0");
  EXPECT_EQ(form->Cmd_End.Text, "Τέλος Καταχώρησης Εξαρτημάτων του Τμήματος");
  End();  // no length yet: the focus goes to it, nothing is stored
  EXPECT_EQ(form->TakeFocusTarget(), "Txt2");
  EXPECT_EQ(Level(2).RecNo, 0);
  Type("Txt2", "3.5");
  Type("Txt15", "2");
  Type("Txt16", "2.5");  // a decimal box that takes digits only from the keys
  EXPECT_EQ(form->Txt16.Text, "25");
  for (char32_t letter : {U'Q', U'q', U'A', U'G', U'B', U'D'}) Key(letter);
  EXPECT_EQ(form->TakeFocusTarget(), "Txt15");
  EXPECT_EQ(form->Txt11.Text, "2");
  EXPECT_EQ(form->Txt12.Text, "1");
  EXPECT_EQ(form->Txt13.Text, "1");
  EXPECT_EQ(form->Txt14.Text, "3");
  boundary.Run(*form, [&] { form->CmdNoTau_Click(); });
  EXPECT_EQ(form->Txt12.Text, "0");
  Key(U'C');
  End();
  EXPECT_TRUE(form->Accepted());
  EXPECT_TRUE(levels.FittingsChanged);
  EXPECT_EQ(entries.length, "3.5");
  const LevelRecord second = Level(2);
  EXPECT_EQ(second.RecNo, 2);
  EXPECT_EQ(second.Level, 2);
  EXPECT_EQ(second.SectionName, "1/2");
  EXPECT_FLOAT_EQ(second.Length, 3.5f);
  EXPECT_EQ(second.TeesBranch, 1);
  EXPECT_EQ(second.TeesJunction, 0);
  EXPECT_EQ(second.CheckValves, 2);
  EXPECT_EQ(ReadAllBytes(program.folder / FloorsFile.Name).substr(558 + 328, 7), "  1/2  ");
}

TEST_F(Fittings, NodesAreCheckedOnLeavingAndAnANTEndFailsTheSaveAboveLevelOne) {
  Open(1);
  EXPECT_EQ(form->Txt0.Text, "ANT");
  Type("Txt1", "7");
  EXPECT_EQ(form->Txt1.Text, "1");  // level 1 ends at node 1
  Open(3);
  Type("Txt1", "2");  // the start node
  EXPECT_EQ(form->Txt1.Text, "");
  Type("Txt0", "0");
  EXPECT_EQ(form->Txt0.Text, "");
  Type("Txt0", "2");
  Type("Txt1", "α");
  EXPECT_EQ(form->Txt1.Text, "ANT");
  Type("Txt2", "4");
  const std::string before = ReadAllBytes(program.folder / FloorsFile.Name);
  End();
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_NE(prompter.History()[0].Box.OneLine().find("Ασυμβατότητα τύπου"), std::string::npos);
  EXPECT_EQ(ReadAllBytes(program.folder / FloorsFile.Name), before);
}

TEST_F(Fittings, ACorrectionShowsTheRecordAndTwoSeparatorsAreRefused) {
  levels.Correction = -1;
  Open(1);
  EXPECT_EQ(form->Txt0.Text, "ANT");
  EXPECT_EQ(form->Txt1.Text, "1");
  EXPECT_EQ(form->Txt2.Text, "2.5");
  EXPECT_EQ(form->Txt12.Text, "3");
  EXPECT_EQ(form->Cmd_End.Text, "Τέλος Διόρθωσης Εξαρτημάτων του Τμήματος");
  form->Txt6.Text = "1.2.3";  // pasted: the keys would refuse the second separator
  const std::string before = ReadAllBytes(program.folder / FloorsFile.Name);
  End();
  EXPECT_EQ(prompter.History().at(0).Box.Lines,
            std::vector<std::string>{"!! Περισσότερες από μια Υποδιαστολές !!"});
  EXPECT_EQ(form->TakeFocusTarget(), "Txt6");
  EXPECT_EQ(ReadAllBytes(program.folder / FloorsFile.Name), before);
  form->Txt6.Text = "1";
  End();
  EXPECT_TRUE(levels.FittingsChanged);
  EXPECT_FLOAT_EQ(Level(1).Elbows, 1.0f);
  EXPECT_EQ(SectionNodes("9/ANT"), (std::pair<std::string, std::string>{"9", "ANT"}));
}

}  // namespace
