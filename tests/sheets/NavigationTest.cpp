// Walking a study of many sheets: the working files stay byte for byte what the sheets wrote,
// a sheet is left only complete, a new sheet carries the header over, and deleting a sheet
// renumbers the rest.
#include "SheetsFixture.h"

namespace {

class NavigationTest : public SheetsTest {
 protected:
  NavigationTest() {
    WritePipes({"Φ16x1", "Φ18x1"});
    WriteSectionFamily();
    Load();
    TypeHeader();
  }
  // Types the rows of sheet `sheet` (its loads tell it apart) and calculates it.
  void FillSheet(int sheet, int rows = 2) {
    Type("TxtLoopNo", "Κ" + std::to_string(sheet));
    for (int r = 1; r <= rows; ++r)
      Radiator(r, std::to_string(r), std::to_string(100 * sheet + 10 * r), "20",
               r % 2 ? "II/905" : "III/655");
    Key(KeyCode::F10);
    ASSERT_EQ(state.Calculated, -1) << "sheet " << sheet;
  }
  // A study of `count` calculated sheets, entered with PgDn; the screen stays on the last.
  void Study(int count) {
    for (int s = 1; s <= count; ++s) {
      if (s > 1) Key(KeyCode::PageDown);  // the new sheet's dialog is closed unused
      ASSERT_EQ(form->Txta_a.Text, std::to_string(s));
      FillSheet(s);
    }
    ASSERT_TRUE(Do(&FrmRavolin::SaveTemporarData));
    prompter.Clear();
  }
  void ExpectSheetShown(int sheet) {
    const std::string n = std::to_string(sheet);
    EXPECT_EQ(
        std::tuple(form->Txta_a.Text, state.CurrentSheet, form->TxtLoopNo.Text, state.Calculated),
        std::tuple(n, sheet, "Κ" + n, -1));
    EXPECT_EQ(form->Grid.Text(2, 2), std::to_string(100 * sheet + 20));
    EXPECT_NE(form->Grid.Text(2, 11), "");
  }
};

TEST_F(NavigationTest, WalkingTwelveSheetsForwardAndBackLeavesEveryByteAsWritten) {
  Study(12);
  const std::string files = Bytes("SHEETS.TMP") + Bytes("LOOPS.TMP");
  ASSERT_EQ(files.size(), 12u * 196 + 12u * 8 * 298);
  Chord(KeyCode::Home);
  ExpectSheetShown(1);
  for (int s = 2; s <= 12; ++s) {
    Key(KeyCode::PageDown);
    ExpectSheetShown(s);
  }
  EXPECT_EQ(Bytes("SHEETS.TMP") + Bytes("LOOPS.TMP"), files);
  for (int s = 11; s >= 1; --s) {
    Key(KeyCode::PageUp);
    ExpectSheetShown(s);
  }
  Chord(KeyCode::End);
  ExpectSheetShown(12);
  EXPECT_EQ(Bytes("SHEETS.TMP") + Bytes("LOOPS.TMP"), files);
  EXPECT_TRUE(prompter.History().empty());
}

TEST_F(NavigationTest, PgDnOnAnEmptyNewSheetAsksAndNoLeavesTheCounterOneAhead) {
  Study(2);
  Key(KeyCode::PageDown);  // sheet 3 is born, empty
  ASSERT_EQ(form->Txta_a.Text, "3");
  prompter.QueueAnswer(Answer::No);
  Key(KeyCode::PageDown);
  ExpectBox("!! ΘΑ ΔΙΑΓΡΑΦΕΙ ΟΛΟΚΛΗΡΟ ΤΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ !!");
  EXPECT_EQ(std::tuple(state.CurrentSheet, form->Txta_a.Text), std::tuple(4, "3"));
}

TEST_F(NavigationTest, AMissingLengthStopsPgDnButNotPgUp) {
  Study(2);
  Type("TxtLoopLength", "");
  Key(KeyCode::PageDown);
  ExpectBox("... ΔΕΝ ΕΧΕΤΕ ΤΟ ΜΗΚΟΣ ΤΟΥ ΒΡΟΧΟΥ ...");
  EXPECT_EQ(form->Txta_a.Text + " " + form->FocusTarget(), "2 Grid");
  prompter.Clear();
  Key(KeyCode::PageUp);
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(form->Txta_a.Text, "1");
  EXPECT_EQ(state.ErrorFlag, 0);
}

TEST_F(NavigationTest, ASheetWithoutResultsCannotBeLeft) {
  Study(2);
  Cell(2, 2, "999");  // the results go
  for (KeyCode key : {KeyCode::PageDown, KeyCode::PageUp}) {
    prompter.Clear();
    Key(key);
    ExpectBox("... ΕΛΛΙΠΗ ΔΕΔΟΜΕΝΑ, ΙΣΩΣ ΔΕΝ ΕΧΕΤΕ ΚΑΝΕΙ ΥΠΟΛΟΓΙΣΜΟΥΣ ...");
    EXPECT_EQ(form->Txta_a.Text, "2");
  }
  EXPECT_EQ(form->Grid.Text(2, 2), "999");
}

struct DeleteCase {
  int Sheet;  // deleted
  int Shown;  // shown after
  const char* LoopNoShown;
};

class DeleteSheetTest : public NavigationTest, public ::testing::WithParamInterface<DeleteCase> {};

TEST_P(DeleteSheetTest, TheSheetsAfterMoveUpAndTheDerivedFilesGo) {
  const DeleteCase& c = GetParam();
  Study(4);
  WriteAllBytes(folder / "DATARES.TMP", "x");
  WriteAllBytes(folder / "EDGE_FINALFLOORS.TMP", "x");
  WriteAllBytes(folder / "~SHEETS.TMP", "left over");
  const std::vector<SheetRecord> before = RecordFile<SheetRecord>(folder / "SHEETS.TMP").ReadAll();
  ASSERT_TRUE(boundary.Run(*form, [&] { form->LoadSheet(static_cast<int16_t>(c.Sheet)); }));
  prompter.QueueAnswer(Answer::Yes);
  ASSERT_TRUE(Run([&] { form->Controls().at("CmdDeleteSheet").Press(); }));
  const auto sheets = RecordFile<SheetRecord>(folder / "SHEETS.TMP").ReadAll();
  const auto loops = RecordFile<LoopRecord>(folder / "LOOPS.TMP").ReadAll();
  ASSERT_EQ(sheets.size(), 3u);
  ASSERT_EQ(loops.size(), 24u);
  int kept = 0;
  for (int s = 1; s <= 4; ++s) {
    if (s == c.Sheet) continue;
    ++kept;
    EXPECT_EQ(sheets[kept - 1].SheetNo, kept);
    EXPECT_EQ(sheets[kept - 1].LoopNo, before[s - 1].LoopNo);
    for (int r = 1; r <= 8; ++r) EXPECT_EQ(loops[LoopRecordNumber(kept, r) - 1].SheetNo, kept);
    EXPECT_EQ(loops[LoopRecordNumber(kept, 1) - 1].Load, 100.0f * s + 10);
  }
  EXPECT_EQ(std::tuple(form->Txta_a.Text, form->TxtLoopNo.Text, state.SheetCount),
            std::tuple(std::to_string(c.Shown), c.LoopNoShown, 3));
  for (const char* gone : {"DATARES.TMP", "EDGE_FINALFLOORS.TMP", "~SHEETS.TMP", "~LOOPS.TMP"})
    EXPECT_FALSE(std::filesystem::exists(folder / gone)) << gone;
}

INSTANTIATE_TEST_SUITE_P(Sheets, DeleteSheetTest,
                         ::testing::Values(DeleteCase{1, 1, "Κ2"}, DeleteCase{4, 3, "Κ3"}));

// ---- Files that are not what the sheets wrote ----------------------------------------------

TEST_F(NavigationTest, ASheetNumberThatDisagreesIsToldAndTheSheetKeepsItsPlace) {
  Study(2);
  {
    RecordFile<SheetRecord> sheets(folder / "SHEETS.TMP");
    SheetRecord r = sheets.Read(1);
    r.SheetNo = 7;
    sheets.Write(1, r);
  }
  const std::string before = Bytes("SHEETS.TMP");
  ASSERT_TRUE(Run([&] { form->LoadSheet(1); }));
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_NE(LastBox().Lines.front().find("< 7 >"), std::string::npos);
  EXPECT_EQ(form->Txta_a.Text, "1");
  EXPECT_EQ(Bytes("SHEETS.TMP"), before);
  ASSERT_TRUE(Do(&FrmRavolin::SaveTemporarData));
  EXPECT_EQ(RecordFile<SheetRecord>(folder / "SHEETS.TMP").Count(), 2);
}

}  // namespace
