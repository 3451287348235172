// Editing the sheet: the user's edits of the grid, the row commands, the copy from the row
// above, and the columns opened for typing. Every check leaves typed text where it is; only
// the results are discarded, always by the same routines.
#include <algorithm>

#include "Checked.h"
#include "Cp1253.h"
#include "FrmRavoAdd.h"
#include "FrmRavolin.h"
#include "RavoMessages.h"

namespace {

// Column 1 takes the engineer's number of the radiator, at most five characters.
constexpr std::size_t kSomaNoLength = 5;

bool RowsOfTheCopy(int col) {
  return col == 2 || col == 3 || col == 10;
}

}  // namespace

// ---- The grid ------------------------------------------------------------------------------

void FrmRavolin::Grid_Click(int row, int col) {
  Grid.SetActiveCell(row, col);
  TakeOldCellValues(row, col);
  // Moving to another cell gives the form its caption back.
  Caption.Text = kCaption;
}

// A block is marked from its first cell, which becomes the active one.
void FrmRavolin::Grid_MarkBlock(CellBlock block) {
  Grid.SetActiveCell(block.Row1, block.Col1);
  TakeOldCellValues(block.Row1, block.Col1);
  Grid.SetBlock(block);
  SelectionBlock = block;
  Caption.Text = kBlockCaption;
}

// A cell typed into: entered first (as the click the typing needs), then changed. The values
// to compare with are taken when the edit begins as well as when the cell is entered: the cell
// still holds what it held then.
void FrmRavolin::Grid_EditCell(int row, int col, const std::string& text) {
  if (Grid.Locked(row, col)) return;
  if (Grid.ActiveRow() != row || Grid.ActiveCol() != col)
    Grid_Click(row, col);
  else
    TakeOldCellValues(row, col);
  std::u32string typed = Utf8ToU32(text);
  if (col == 1 && typed.size() > kSomaNoLength) typed.resize(kSomaNoLength);
  Grid.SetText(row, col, U32ToUtf8(typed));
  SomethingHasChanged_Spread(row, col);
}

// The load and the room temperature as they stood when the cell was entered: a new value that
// differs discards the results.
void FrmRavolin::TakeOldCellValues(int row, int col) {
  if (col == 2) OldLoad = CLng(st_.Parse(Grid.Text(row, 2)));
  if (col == 3) OldRoomTemp = CSng(st_.Parse(Grid.Text(row, 3)));
}

void FrmRavolin::SomethingHasChanged_Spread(int row, int col) {
  if (col == 10 && st_.Calculated != 0) {
    const std::string load = Trim(Grid.Text(row, 2));
    if (load.empty() || st_.Parse(load) == 0) {
      Grid.SetText(row, 10, {});
      FocusOn(Grid);
      return;
    }
    // A new model on a calculated sheet recalculates at once.
    for (int r = 1; r <= Grid.MaxRows(); ++r)
      for (int c = 11; c <= 14; ++c) Grid.SetText(r, c, {});
    SaveTemporarData();
    Calc();
    SaveTemporarData();
    return;
  }
  if (st_.Calculated == 0) return;
  const double value = st_.Parse(Grid.Text(row, col));
  if ((col == 2 && value != OldLoad) || (col == 3 && value != OldRoomTemp)) {
    // No question when a value is typed: the engineer calculates again.
    st_.StudyChanged = -1;
    DeleteResultsCells();
    st_.Calculated = 0;
  }
}

// ---- Rows ----------------------------------------------------------------------------------

void FrmRavolin::CmdAddSpaces_Click() {
  FocusOn(Grid);
  if (st_.Calculated == 0) {
    CheckWrittenValues("ADDVALUES");
    if (st_.ErrorFlag != 0) {
      st_.ErrorFlag = 0;
      return;
    }
  } else if (!DiscardAfterQuestion()) {
    return;
  }
  SaveTemporarData();
  int16_t lastRow = 0;
  GetLastDataRow(lastRow);
  if (lastRow >= kGridRows) {
    RavoMessages(RavoMessage::EightRadiatorsAlready, prompter_, st_);
    FocusOn(Grid);
    return;
  }
  FrmRavoAdd add(*this, st_, prompter_, screens_);
  add.Open(screens_);
  FocusOn(Grid);
}

// Message -5 on a calculated sheet: "YES" discards the results with the loop's figures.
bool FrmRavolin::DiscardAfterQuestion() {
  const bool yes = AskYes(RavoMessage::DiscardResults);
  FocusOn(Grid);
  if (yes) DiscardResults(true);
  return yes;
}

void FrmRavolin::CmdRemoveSpaces_Click() {
  FocusOn(Grid);
  const int row = Grid.ActiveRow();
  const int rows = Grid.DataRowCount();
  if (rows == 0 || row > rows) return;
  if (!AskYes(RavoMessage::DeleteEntry)) return;
  if (st_.Calculated != 0) DiscardResults(false);
  SaveTemporarData();
  Grid.DeleteRow(row);
  FIXData_in_Combo(1);
  FocusOn(Grid);
  st_.StudyChanged = -1;
  HeaderRecompute();
  // Kept on purpose: the flag was cleared above, so no recalculation follows.
}

void FrmRavolin::CmdDeleteRow_Click() {
  Grid.DeleteRow(Grid.ActiveRow());
  FIXData_in_Combo(1);
  FocusOn(Grid);
  HeaderRecompute();
}

void FrmRavolin::CmdDeleteColumn_Click() {
  Grid.DeleteColumn(Grid.ActiveCol());
  FocusOn(Grid);
}

void FrmRavolin::HeaderRecompute() {
  Set_TotalLoaD();
  float flow = 0;
  CalculateFlowRate(CSng(st_.Parse(TxtTempDrop.Text)), flow);
  TxtFlow.Text = st_.FormatF(flow, "#,##0.0");
  TxtVelocity.Text = st_.FormatF(Velocity(flow), "#,##0.00");
  TxtSFR.Text = st_.FormatF(SpecificResistance(flow), "#,##0.00");
}

void FrmRavolin::CmdOneRowUp_Click() {
  const int row = Grid.ActiveRow();
  if (row <= 1 || row > Grid.DataRowCount()) {
    FocusOn(Grid);
    return;
  }
  SwapRows(row, row - 1);
}

void FrmRavolin::CmdOneRowDn_Click() {
  const int row = Grid.ActiveRow();
  if (row >= Grid.DataRowCount()) {
    FocusOn(Grid);
    return;
  }
  SwapRows(row, row + 1);
}

// The active row changes place with its neighbour; the active cell follows it.
void FrmRavolin::SwapRows(int row, int other) {
  if (st_.Calculated != 0) DiscardResults(false);
  for (int col = 1; col <= kGridCols; ++col) {
    const std::string text = Grid.Text(row, col);
    Grid.SetText(row, col, Grid.Text(other, col));
    Grid.SetText(other, col, text);
  }
  Grid.SetActiveCell(other, 1);
  st_.StudyChanged = -1;
  SaveTemporarData();
  FocusOn(Grid);
}

// ---- The copy from the row above -----------------------------------------------------------

void FrmRavolin::CopyUpperValues() {
  CellBlock block = SelectionBlock;
  const int activeRow = Grid.ActiveRow(), activeCol = Grid.ActiveCol();
  if (block.Empty()) block = CellBlock{activeCol, activeRow, activeCol, activeRow};
  // Row 1 reads the heads' row above it: empty values.
  const int source = block.Row1 - 1;
  if (block.Col2 >= 2) {
    for (int row = block.Row1; row <= block.Row2; ++row)
      for (int col : {2, 3, 10})
        if (col >= block.Col1 && col <= block.Col2) Grid.SetText(row, col, Grid.Text(source, col));
  }
  if (activeRow > block.Row2)
    Grid.SetActiveCell(activeRow, activeCol);
  else
    Grid.SetActiveCell(block.Row2, block.Col2);
  SelectionBlock = {};
  Grid.ClearBlock();
  FocusOn(Grid);
  st_.StudyChanged = -1;
}

void FrmRavolin::KeyF5() {
  const int col = Grid.ActiveCol();
  if ((col == 2 || col == 3) && (st_.Calculated == 0 || DiscardAfterQuestion())) {
    CopyUpperValues();
  } else if (col == 10) {
    CopyUpperValues();
    Caption.Text = kCaption;
    SomethingHasChanged_Spread(Grid.ActiveRow(), Grid.ActiveCol());
  }
  Caption.Text = kCaption;
  SelectionBlock = {};
  Grid.ClearBlock();
  FocusOn(Grid);
}

void FrmRavolin::CmdPaste_Click() {
  FocusOn(Grid);
  const int row = Grid.ActiveRow();
  const int rows = Grid.DataRowCount();
  if (!RowsOfTheCopy(Grid.ActiveCol()) || row > rows + 1) return;
  const bool holdsData = row <= rows && !Grid.RowIsEmpty(row);
  if (holdsData && st_.Calculated != 0 && !DiscardAfterQuestion()) return;
  CopyUpperValues();
  Caption.Text = kCaption;
}

// ---- Columns opened for typing -------------------------------------------------------------

void FrmRavolin::CmdEditCols_Click() {
  EditSomeCols();
  FocusOn(Grid);
}

void FrmRavolin::EditSomeCols() {
  const int rows = Grid.DataRowCount();
  const int col = Grid.ActiveCol();
  if (rows == 0 || col > 3 || Trim(Grid.Text(Grid.ActiveRow(), col)).empty()) return;
  for (int row = 1; row <= rows; ++row)
    for (int c = 1; c <= 3; ++c) Grid.SetLocked(row, c, false);
}

// Run when a sheet is left: columns 1 to 3 stay open after the program's start, and are locked
// after a new study, to be opened with F2.
void FrmRavolin::LockProperColumns() {
  const bool locked = st_.ColumnsEditable != -1;
  for (int row = 1; row <= Grid.MaxRows(); ++row)
    for (int col = 1; col <= 3; ++col) Grid.SetLocked(row, col, locked);
}
