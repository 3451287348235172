#include "FrmRavoSheets.h"

#include "Checked.h"
#include "Cp1253.h"
#include "RavoMessages.h"
#include "SheetRecords.h"
#include "Workspace.h"

const ControlTable<FrmRavoSheets>& FrmRavoSheets::Table() {
  using F = FrmRavoSheets;
  static const ControlTable<F> table = {
      kit::Label("Caption", &F::Caption),
      kit::List("LstSheets", &F::LstSheets),
      kit::Command("CmdOK", &F::CmdOK, &F::CmdOK_Click),
      kit::Command("CmdCancel", &F::CmdCancel, [](F& f) { f.Close(); }),
  };
  return table;
}

FrmRavoSheets::FrmRavoSheets(SheetOnScreen& sheet, StudyState& state, Prompter& prompter)
    : Dialog(kName), sheet_(sheet), st_(state), prompter_(prompter) {
  std::vector<std::string> lines;
  const int16_t count = sheet_.CountSheets();
  for (int n = 1; n <= count; ++n)
    lines.push_back("Φύλλο Υπολογισμών Νο : " + st_.Format(n, "000"));
  LstSheets.SetItems(std::move(lines));
}

void FrmRavoSheets::CmdOK_Click() {
  const int index = LstSheets.SelectedIndex();
  if (index < 0) return;
  const std::string& line = LstSheets.Items[index];
  const int16_t sheet = CInt(Val(line.substr(line.find(':') + 1)));
  if (sheet == 0) return;
  std::vector<LoopRecord> rows;
  {
    auto loops = sheet_.Files().Open(LoopsFile, RecordFileMode::ReadOnly);
    for (int row = 1; row <= kRowsPerSheet; ++row) {
      LoopRecord r = loops.Read(LoopRecordNumber(sheet, row));
      if (!Trim(r.SomaNo).empty()) rows.push_back(std::move(r));
    }
  }
  if (static_cast<int>(rows.size()) + sheet_.Rows().DataRowCount() > sheet_.Rows().MaxRows()) {
    RavoMessages(RavoMessage::EightRadiatorsAlready, prompter_, st_);
    Close();
    return;
  }
  const float family =
      sheet_.Files().Open(SheetsFile, RecordFileMode::ReadOnly).Read(sheet).SomaCategoryNo;
  for (const LoopRecord& r : rows) sheet_.PutAddLoopDataOnSpread(r, family);
  if (st_.Calculated != 0) sheet_.RebuildRunningLoad();
  sheet_.DeleteLoopData();
  st_.StudyChanged = -1;
  Accept();
}
