// Editing a sheet key for key: what a user's edit discards, the row commands with their
// questions, the copy from the row above, and the dialogs that add radiators.
#include "FrmRavoAdd.h"
#include "FrmRavoSheets.h"
#include "SheetsFixture.h"
#include "WorkingFiles.h"

namespace {

class EditTest : public SheetsTest {
 protected:
  EditTest() {
    WriteSectionFamily();
    Load();
    TypeHeader();
  }
  void Row(int row, const std::string& load, const std::string& model = "II/905",
           const std::string& room = "20") {
    Radiator(row, std::to_string(row), load, room, model);
  }
  void Calculated(int rows = 2, const std::string& first = "600") {
    for (int r = 1; r <= rows; ++r) Row(r, r == 1 ? first : std::to_string(500 + 100 * r));
    Key(KeyCode::F10);
    ASSERT_EQ(state.Calculated, -1);
    prompter.Clear();
  }
  bool ResultsShown(int row) const { return !form->Grid.Text(row, 9).empty(); }
};

// ---- Edits of the user ---------------------------------------------------------------------

// A load with decimals is compared with its rounded value: retyped, it counts as changed.
TEST_F(EditTest, RetypingTheSameWholeValueKeepsTheResultsAnythingElseDiscardsThem) {
  const struct {
    const char* Load;
    int Col;
    const char* Text;
    bool Kept;
  } cases[] = {{"600", 2, "600", true},
               {"600", 3, "20", true},
               {"600", 3, "22", false},
               {"600", 2, "750", false},
               {"600.4", 2, "600.4", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Text);
    KillRavoTemporaries(ws);
    state = StudyState{};
    Load();
    TypeHeader();
    Calculated(2, c.Load);
    Cell(1, c.Col, c.Text);
    EXPECT_TRUE(prompter.History().empty());
    EXPECT_EQ(ResultsShown(2), c.Kept);
    EXPECT_EQ(state.Calculated, c.Kept ? -1 : 0);
  }
}

TEST_F(EditTest, ANewModelOnACalculatedSheetRecalculatesAtOnce) {
  Calculated();
  Cell(3, 10, "II/905");  // a row without a load takes no model
  EXPECT_EQ(form->Grid.Text(3, 10), "");
  Cell(2, 10, "IV/905");
  EXPECT_TRUE(prompter.History().empty());
  EXPECT_EQ(state.Calculated, -1);
  EXPECT_EQ(Cells(1, {11}) + " " + Cells(2, {11}), "7/II/905 5/IV/905");
  // ...and saves the sheet before and after.
  EXPECT_EQ(RecordFile<LoopRecord>(folder / "LOOPS.TMP").Read(2).SomaText, "5/IV/905");
}

TEST_F(EditTest, TheNumberOfARadiatorIsCutAtFiveCharactersAndALockedCellTakesNoTyping) {
  Cell(1, 1, "ΚΟΥΖΙΝΑ-1");
  EXPECT_EQ(form->Grid.Text(1, 1), "ΚΟΥΖΙ");
  form->Grid.SetLocked(1, 2, true);
  Cell(1, 2, "900");
  EXPECT_EQ(form->Grid.Text(1, 2), "");
}

// ---- Removing, moving and deleting rows ----------------------------------------------------

TEST_F(EditTest, RemovingARadiatorAsksThenWorksTheLoopFiguresAgain) {
  Calculated(3);  // 600, 700, 800
  Click(2, 5);
  prompter.QueueAnswer(Answer::No);
  Key(KeyCode::NumMinus);
  ExpectBox("!! ΘΑ ΔΙΑΓΡΑΦΕΙ Η ΤΡΕΧΟΥΣΑ (< ΦΩΤΙΣΜΕΝΗ >) ΚΑΤΑΧΩΡΗΣΗ !!");
  EXPECT_EQ(form->Grid.DataRowCount(), 3);
  EXPECT_TRUE(ResultsShown(2));
  prompter.QueueAnswer(Answer::Yes);
  Key(KeyCode::NumMinus);
  EXPECT_EQ(form->Grid.DataRowCount(), 2);
  EXPECT_EQ(form->Grid.Text(2, 2), "800");
  EXPECT_FALSE(ResultsShown(1));
  EXPECT_EQ(state.Calculated, 0);
  EXPECT_EQ(form->TxtLoopLoad.Text + " " + form->TxtFlow.Text, "1,400 70.0");
  // The sheet was written before the row went: the files still hold the three radiators.
  EXPECT_EQ(RecordFile<LoopRecord>(folder / "LOOPS.TMP").Read(3).Load, 800.0f);
}

TEST_F(EditTest, MovingARowSwapsAllItsCellsAndTheActiveCellFollows) {
  Calculated(3);
  Click(1, 1);
  Do(&FrmRavolin::CmdOneRowUp_Click);  // the first row does not move up
  EXPECT_TRUE(ResultsShown(1));
  Click(2, 7);
  Do(&FrmRavolin::CmdOneRowDn_Click);
  EXPECT_EQ(Cells(2, {1, 2}) + " " + Cells(3, {1, 2}), "3|800 2|700");
  EXPECT_EQ(std::pair(form->Grid.ActiveRow(), form->Grid.ActiveCol()), std::pair(3, 1));
  EXPECT_FALSE(ResultsShown(2));
  EXPECT_EQ(RecordFile<LoopRecord>(folder / "LOOPS.TMP").Read(2).Load, 800.0f);
}

TEST_F(EditTest, DeletingARowOrAColumnAsksNothing) {
  Row(1, "600");
  Row(2, "700");
  Click(1, 14);
  Do(&FrmRavolin::CmdDeleteColumn_Click);  // the last column
  Click(1, 3);
  Do(&FrmRavolin::CmdDeleteColumn_Click);
  EXPECT_EQ(form->Grid.Text(1, 9), "II/905");  // column 10 moved left
  Do(&FrmRavolin::CmdDeleteRow_Click);
  EXPECT_EQ(form->Grid.Text(1, 2), "700");
  EXPECT_EQ(form->TxtLoopLoad.Text, "700");
  EXPECT_TRUE(prompter.History().empty());
}

// ---- The copy from the row above -----------------------------------------------------------

TEST_F(EditTest, F5CopiesLoadRoomAndModelIntoTheMarkedBlock) {
  Row(1, "600", "III/655", "18");
  Cell(2, 1, "2");
  Cell(3, 1, "3");
  boundary.Run(*form, [&] { form->Grid_MarkBlock({2, 2, 10, 3}); });
  EXPECT_EQ(form->Caption.Text, FrmRavolin::kBlockCaption);
  Key(KeyCode::F5);
  for (int row : {2, 3}) EXPECT_EQ(Cells(row, {2, 3, 10}), "600|18|III/655") << row;
  EXPECT_EQ(form->Caption.Text, FrmRavolin::kCaption);
  EXPECT_EQ(std::pair(form->Grid.ActiveRow(), form->Grid.ActiveCol()), std::pair(3, 10));
  EXPECT_TRUE(form->SelectionBlock.Empty());
}

TEST_F(EditTest, F5OnALoadOfACalculatedSheetAsksFirst) {
  Calculated(2);
  Click(2, 2);
  prompter.QueueAnswer(Answer::No);
  Key(KeyCode::F5);
  EXPECT_EQ(form->Grid.Text(2, 2), "700");
  EXPECT_TRUE(ResultsShown(2));
  prompter.QueueAnswer(Answer::Yes);
  Key(KeyCode::F5);
  EXPECT_EQ(form->Grid.Text(2, 2), "600");
  EXPECT_FALSE(ResultsShown(1));
  EXPECT_EQ(form->TxtFlow.Text, "");
}

TEST_F(EditTest, PasteWorksOnlyInItsColumnsAndOnTheFirstFreeRow) {
  Row(1, "600");
  // Not the first free row, not a column of the copy, then the room's column of row 2.
  for (const auto& [row, col, pasted] : {std::tuple{3, 2, ""}, {2, 1, ""}, {2, 3, "20"}}) {
    Click(row, col);
    Do(&FrmRavolin::CmdPaste_Click);
    EXPECT_EQ(form->Grid.Text(row, col), pasted) << row << "," << col;
  }
}

// ---- Columns opened for typing -------------------------------------------------------------

TEST_F(EditTest, F2OpensTheFirstThreeColumnsOnlyFromACellWithText) {
  Row(1, "600");
  Row(2, "700");
  state.ColumnsEditable = 0;
  form->LockProperColumns();
  EXPECT_TRUE(form->Grid.Locked(2, 2));
  Click(1, 10);
  Key(KeyCode::F2);
  EXPECT_TRUE(form->Grid.Locked(2, 2));
  Click(1, 2);
  Key(KeyCode::F2);
  EXPECT_FALSE(form->Grid.Locked(2, 2));
  EXPECT_FALSE(form->Grid.Locked(1, 1));
  EXPECT_TRUE(form->Grid.Locked(5, 1));  // below the radiators nothing opens
}

// ---- Adding radiators ----------------------------------------------------------------------

TEST_F(EditTest, AddingChecksTheRowsWithoutAskingForModelsAndNeedsARowFree) {
  Radiator(1, "1", "600", "35", "");
  Key(KeyCode::NumPlus);
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_NE(LastBox().Lines.front().find("ΕΚΤΟΣ ΠΕΔΙΟΥ"), std::string::npos);
  EXPECT_TRUE(screens.Shown.empty());
  Cell(1, 3, "20");  // no model yet: adding goes on
  prompter.Clear();
  Key(KeyCode::NumPlus);
  EXPECT_TRUE(prompter.History().empty());
  EXPECT_EQ(screens.Shown, std::vector<std::string>{"FrmRavoAdd"});
  for (int r = 1; r <= 8; ++r) Row(r, "500");
  Key(KeyCode::NumPlus);
  ExpectBox("... ΕΧΕΤΕ, ΗΔΗ, ΚΑΤΑΧΩΡΗΣΕΙ ΟΚΤΩ ΣΩΜΑΤΑ ...");
  EXPECT_EQ(screens.Shown.size(), 1u);  // the dialog did not open again
}

TEST_F(EditTest, TheEighthRadiatorClosesTheAddDialog) {
  for (int r = 1; r <= 6; ++r) Row(r, "500");
  screens.Queue([](ScriptScreen& s) {
    auto& add = dynamic_cast<FrmRavoAdd&>(s);
    add.Controls().at("TxtAdded").Type("300");
    add.Controls().at("TxtSomaName").Type("7");
    add.CmdOK_Click();
    EXPECT_FALSE(add.Closed());
    add.Controls().at("TxtSomaName").Type("8");
    add.CmdOK_Click();
    EXPECT_TRUE(add.Closed());
  });
  Key(KeyCode::NumPlus);
  EXPECT_EQ(form->Grid.DataRowCount(), 8);
  // The dialog's running load began with the empty TxtLoopLoad of a sheet not calculated.
  EXPECT_EQ(form->TxtLoopLoad.Text, "600");
}

// The + key never opens the dialog over a gap (its checks stop first); a gap made while the
// dialog is open is closed before the new radiator goes in.
TEST_F(EditTest, GapsOfWhollyEmptyRowsCloseBeforeTheNewRadiator) {
  Row(1, "500");
  Row(3, "700");
  Cell(2, 1, "");  // row 2 is half typed: not a gap here
  Cell(2, 2, "650");
  FrmRavoAdd add(*form, state, prompter, screens);
  add.Controls().at("TxtAdded").Type("300");
  add.Controls().at("TxtSomaName").Type("9");
  add.CmdOK_Click();
  EXPECT_EQ(form->Grid.Text(4, 1), "9");
  form->Grid.ClearRow(2);
  add.Controls().at("TxtSomaName").Type("10");
  add.CmdOK_Click();
  EXPECT_EQ(Cells(2, {1, 2}) + " " + Cells(3, {1}) + " " + Cells(4, {1}), "3|700 9 10");
}

// CmdSame of the dialog, then a sheet picked in FrmRavoSheets.
TEST_F(EditTest, TheRadiatorsOfAnotherSheetComeWithItsFamily) {
  WriteTypeFile("Πάνελ.ths", 2, "Πάνελ", {Stepped("22/600", 150, 0.25f, 100, "400", 1, 30, "")});
  Load();
  TypeHeader();
  Choose("CboSomata", "Πάνελ");
  for (int r = 1; r <= 3; ++r) Row(r, std::to_string(400 + r), "22/600");
  ASSERT_TRUE(Do(&FrmRavolin::SaveTemporarData));
  form->DeleteSpreadData();
  Choose("CboSomata", kSectionFamilyCategory);
  form->Txta_a.Text = "2";
  bool addClosed = false;
  std::vector<std::string> lines;
  screens.Queue([&](ScriptScreen& s) {
    auto& add = dynamic_cast<FrmRavoAdd&>(s);
    add.CmdSame_Click();
    addClosed = add.Closed();
  });
  screens.Queue([&](ScriptScreen& s) {
    auto& sheets = dynamic_cast<FrmRavoSheets&>(s);
    lines = sheets.LstSheets.Items;
    sheets.Controls().at("LstSheets").Select({"Φύλλο Υπολογισμών Νο : 001"});
    sheets.CmdOK_Click();
  });
  Key(KeyCode::NumPlus);
  EXPECT_TRUE(addClosed);  // both dialogs close
  EXPECT_EQ(lines, std::vector<std::string>{"Φύλλο Υπολογισμών Νο : 001"});
  EXPECT_EQ(screens.Shown, (std::vector<std::string>{"FrmRavoAdd", "FrmRavoSheets"}));
  EXPECT_EQ(form->Grid.DataRowCount(), 3);
  EXPECT_EQ(Cells(3, {2, 5, 10}), "403||22/600");  // nothing but columns 1, 2, 3 and 10
  EXPECT_EQ(state.SomaCategory, 2);
  EXPECT_EQ(form->CboSomata.Text(), "Πάνελ");
  EXPECT_EQ(state.StudyChanged, -1);
}

}  // namespace
