// A study left behind by a run that did not end: at the next start the engineer revives it
// from the working files or lets it go.
#include "FrmOldStudy.h"
#include "SheetsFixture.h"
#include "WorkingFiles.h"

namespace {

class RecoveryTest : public SheetsTest {
 protected:
  // A first run that enters two calculated sheets and never ends.
  RecoveryTest() {
    WriteSectionFamily();
    Load();
    TypeHeader();
    for (int sheet = 1; sheet <= 2; ++sheet) {
      if (sheet == 2) Key(KeyCode::PageDown);
      Type("TxtLoopNo", "Κ" + std::to_string(sheet));
      Radiator(1, "1", std::to_string(700 + sheet));
      Key(KeyCode::F10);
    }
    Do(&FrmRavolin::SaveTemporarData);
    for (const auto& [name, bytes] : {std::pair{"RAVOFLOORS.TMP", "levels"},
                                      {"DATARES.TMP", "network"},
                                      {"Studies.std", "cache"}})
      WriteAllBytes(folder / name, bytes);
    files = Bytes("SHEETS.TMP") + Bytes("LOOPS.TMP");
    prompter.Clear();
    screens.Shown.clear();
  }
  // The next start, with `answer` given to the recovery screen.
  void Restart(std::function<void(FrmOldStudy&)> answer) {
    screens.Queue([answer](ScriptScreen& s) { answer(dynamic_cast<FrmOldStudy&>(s)); });
    state = StudyState{};
    Load();
  }
  std::string files;
};

TEST_F(RecoveryTest, YesRevivesTheStudyFromTheWorkingFilesAsTheyStand) {
  Restart([](FrmOldStudy& old) {
    EXPECT_FALSE(old.Lbl_Wait.Visible);
    old.Command1_Click();
    EXPECT_TRUE(old.Lbl_Wait.Visible);
  });
  EXPECT_EQ(screens.Shown, std::vector<std::string>{"FrmOldStudy"});
  EXPECT_EQ(
      std::tuple(form->Txta_a.Text, form->TxtLoopNo.Text, form->Grid.Text(1, 2),
                 form->TxtLoopLoad.Text, state.Calculated, state.StudyChanged, state.StudyFileName),
      std::tuple("1", "Κ1", "701", "701", -1, 0, ""));
  EXPECT_EQ(Bytes("SHEETS.TMP") + Bytes("LOOPS.TMP"), files);
  for (const auto& [name, kept] : {std::pair<std::string, bool>{"RAVOFLOORS.TMP", true},
                                   {SomataWorkingCopy.Name, true},
                                   {"DATARES.TMP", false},
                                   {"Studies.std", false}})
    EXPECT_EQ(std::filesystem::exists(folder / name), kept) << name;
  Key(KeyCode::PageDown);
  EXPECT_EQ(form->TxtLoopNo.Text + " " + form->Grid.Text(1, 2), "Κ2 702");
  EXPECT_TRUE(prompter.History().empty());
}

TEST_F(RecoveryTest, NoLeavesNoWorkingFileBehind) {
  Restart([](FrmOldStudy& old) { old.Command2_Click(); });
  for (const std::string& name : WorkingFileNames())
    EXPECT_FALSE(std::filesystem::exists(folder / name)) << name;
  EXPECT_EQ(form->Grid.DataRowCount(), 0);
  EXPECT_EQ(form->TxtThema.Text, "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ");
}

TEST_F(RecoveryTest, ClosingTheBoxDecidesNothingAndTheNextStartAsksAgain) {
  Restart([](FrmOldStudy& old) { old.CloseBox(); });
  EXPECT_EQ(Bytes("SHEETS.TMP") + Bytes("LOOPS.TMP"), files);
  Restart([](FrmOldStudy&) {});
  EXPECT_EQ(screens.Shown, (std::vector<std::string>{"FrmOldStudy", "FrmOldStudy"}));
}

TEST_F(RecoveryTest, TheMessageLinesStandCentredWithTheirExtraBlanks) {
  FrmOldStudy old(*form, ws);
  const auto& lines = old.List1.Items;
  ASSERT_EQ(lines.size(), 5u);
  // The second line is the longest: no blanks at all.
  EXPECT_EQ(lines[1], "βρέθηκε μια ημιτελής Παλαιά Μελέτη, του Προγράμματος < Ravolinette >.");
  const std::u32string fourth = Utf8ToU32(lines[3]);
  const std::size_t text = Utf8ToU32(std::string("ΘΕΛΕΤΕ ΝΑ ΚΑΝΕΤΕ ΚΑΤΙ ΤΕΤΟΙΟ ;")).size();
  const std::size_t longest = Utf8ToU32(lines[1]).size();
  ASSERT_EQ(longest - text, 39u);
  const std::size_t half = 20;  // 19.5 taken as a whole number of blanks: halves to even
  EXPECT_EQ(fourth.find_first_not_of(U' '), half + 12);
  EXPECT_EQ(fourth.size(), text + 2 * half + 12);
}

}  // namespace
