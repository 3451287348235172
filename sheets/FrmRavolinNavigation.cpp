// Walking the study: the next sheet (or a new one), the one before, the first and the last.
// A sheet is left only complete and calculated; it is written to the working files on the way
// out, and the sheet arriving comes from them.
#include "Checked.h"
#include "FrmRavoAdd.h"
#include "FrmRavolin.h"
#include "RavoMessages.h"

void FrmRavolin::SetInitialValues() {
  Txta_a.Text = std::to_string(st_.CurrentSheet);
  for (Field* f : {&TxtLoopLoad, &TxtFlow, &TxtVelocity, &TxtSFR}) f->Text.clear();
  st_.Calculated = 0;
  DeleteSpreadData();
  TakeFamilyInUse();
  FocusOn(Grid);
}

// The family of SomaCategory selected quietly in CboSomata, which takes its working copy.
void FrmRavolin::TakeFamilyInUse() {
  SomaRecord first;
  if (FamilyFileOf(st_.SomaCategory, &first))
    SelectFamilyOf(first);
  else
    FillSomaCategoryCombos();
}

// A sheet without rows, on the way to another: a study on disk asks whether it is to go.
// False when the command stops here.
bool FrmRavolin::LeaveEmptySheet(int16_t target) {
  const auto [exists, size] = ws_.FileExistsAndSize(SheetsFile.Name);
  if (exists && size == 0) ws_.Delete(SheetsFile.Name);
  if (!ws_.FileExists(SheetsFile.Name)) return false;
  st_.CurrentSheet = target;
  CmdDeleteSheet_Click();
  return false;
}

void FrmRavolin::CmdNext_Click() {
  FocusOn(Grid);
  if (Grid.DataRowCount() == 0) {
    LeaveEmptySheet(static_cast<int16_t>(st_.CurrentSheet + 1));
    return;
  }
  CheckIfOkToProceed();
  if (st_.ErrorFlag == -1) RavoMessages(RavoMessage::IncompleteData, prompter_, st_);
  if (st_.ErrorFlag != 0) {
    st_.ErrorFlag = 0;
    FocusOn(Grid);
    return;
  }
  SaveTemporarData();
  LockProperColumns();
  SaveTemporarData();
  st_.CurrentSheet = AddI16(st_.CurrentSheet, 1);
  if (st_.CurrentSheet <= st_.SheetCount) {
    LoadSheet(st_.CurrentSheet);
  } else {
    // A new sheet is born with the header of the one before it.
    SetInitialValues();
    FrmRavoAdd add(*this, st_, prompter_, screens_);
    add.Open(screens_);
    st_.Calculated = 0;
  }
  FocusOn(Grid);
}

void FrmRavolin::CmdPrev_Click() {
  GoBackTo(static_cast<int16_t>(st_.CurrentSheet - 1), st_.CurrentSheet == 1);
}

void FrmRavolin::CmdFirst_Click() {
  GoBackTo(1, st_.CurrentSheet == 1);
}

void FrmRavolin::CmdLast_Click() {
  GoBackTo(st_.SheetCount, st_.CurrentSheet == st_.SheetCount);
}

// PgUp, Ctrl-Home and Ctrl-End. Kept on purpose: unlike PgDn they move even after the message
// of a missing header field.
void FrmRavolin::GoBackTo(int16_t target, bool alreadyThere) {
  FocusOn(Grid);
  if (alreadyThere) return;
  if (Grid.DataRowCount() == 0) {
    LeaveEmptySheet(target);
    return;
  }
  CheckIfOkToProceed();
  if (st_.ErrorFlag == -1) {
    RavoMessages(RavoMessage::IncompleteData, prompter_, st_);
    st_.ErrorFlag = 0;
    return;
  }
  st_.ErrorFlag = 0;
  LockProperColumns();
  SaveTemporarData();
  if (target < 1 || target > CountSheets()) return;
  LoadSheet(target);
  FocusOn(Grid);
}
