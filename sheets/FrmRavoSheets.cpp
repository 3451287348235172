#include "FrmRavoSheets.h"

#include "Checked.h"
#include "Cp1253.h"
#include "FrmRavolin.h"
#include "RavoMessages.h"
#include "StudyRecords.h"

FrmRavoSheets::FrmRavoSheets(FrmRavolin& main, Workspace& workspace, StudyState& state,
                             Prompter& prompter)
    : main_(main), ws_(workspace), st_(state), prompter_(prompter) {
  std::vector<std::string> lines;
  const int16_t count = main_.CountSheets();
  for (int n = 1; n <= count; ++n)
    lines.push_back("Φύλλο Υπολογισμών Νο : " + st_.Format(n, "000"));
  LstSheets.SetItems(std::move(lines));
  controls_["Caption"] = LabelControl(Caption);
  controls_["LstSheets"] = ListControl(LstSheets, nullptr);
  controls_["CmdOK"] = CommandControl(CmdOK, [this] { CmdOK_Click(); });
  controls_["CmdCancel"] = CommandControl(CmdCancel, [this] { closed_ = true; });
}

void FrmRavoSheets::CmdOK_Click() {
  const int index = LstSheets.SelectedIndex();
  if (index < 0) return;
  const std::string& line = LstSheets.Items[index];
  const int16_t sheet = CInt(Val(line.substr(line.find(':') + 1)));
  if (sheet == 0) return;
  std::vector<LoopRecord> rows;
  {
    auto loops = ws_.Records<LoopRecord>("LOOPS.TMP", RecordFileMode::ReadOnly);
    for (int row = 1; row <= kRowsPerSheet; ++row) {
      LoopRecord r = loops.Read(LoopRecordNumber(sheet, row));
      if (!Trim(r.SomaNo).empty()) rows.push_back(std::move(r));
    }
  }
  if (static_cast<int>(rows.size()) + main_.Grid.DataRowCount() > main_.Grid.MaxRows()) {
    RavoMessages(RavoMessage::EightRadiatorsAlready, prompter_, st_);
    closed_ = true;
    return;
  }
  const float family =
      ws_.Records<SheetRecord>("SHEETS.TMP", RecordFileMode::ReadOnly).Read(sheet).SomaCategoryNo;
  for (const LoopRecord& r : rows) main_.PutAddLoopDataOnSpread(r, family);
  if (st_.Calculated != 0) main_.RebuildRunningLoad();
  main_.DeleteLoopData();
  st_.StudyChanged = -1;
  Copied = true;
  closed_ = true;
}

void FrmRavoSheets::KeyDown(const KeyStroke& key) {
  if (key.Code == KeyCode::Escape) closed_ = true;
}
