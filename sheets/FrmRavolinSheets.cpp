// The sheets of the study as a whole: deleting the sheet on the screen.
#include <algorithm>

#include "Checked.h"
#include "FrmRavolin.h"
#include "RavoMessages.h"
#include "WorkingFiles.h"

namespace {

// Copies every record of `file` except those `keep` refuses into "~" + its name, renumbered by
// `renumber`, then puts the copy in place of the file.
template <class Record, class Keep, class Renumber>
void RewriteWithout(Workspace& ws, const WorkingFile<Record>& file, Keep keep, Renumber renumber) {
  const std::string name = file.Name;
  const std::string second = "~" + name;
  ws.Delete(second);
  {
    auto from = ws.Records<Record>(name);
    auto to = ws.Records<Record>(second);
    const int32_t count = from.Count();
    int32_t written = 0;
    for (int32_t n = 1; n <= count; ++n) {
      Record record = from.Read(n);
      if (!keep(record, n)) continue;
      renumber(record, ++written);
      to.Write(written, record);
    }
    to.Flush();
  }
  ws.Delete(name, false);
  ws.Rename(second, name);
}

}  // namespace

void FrmRavolin::CmdDeleteSheet_Click() {
  CountSheets();
  const int16_t shown = CInt(st_.Parse(Txta_a.Text));
  if (st_.SheetCount == 0 || (st_.SheetCount == 1 && shown == 1)) {
    FocusOn(Grid);
    return;
  }
  if (!AskYes(RavoMessage::DeleteWholeSheet)) {
    FocusOn(Grid);
    return;
  }
  int16_t next = 0;
  if (shown >= 1 && shown <= st_.SheetCount) {
    RemoveSheetFromFiles(shown);
    next = shown == st_.SheetCount ? static_cast<int16_t>(shown - 1) : shown;
    if (next == 0) next = 1;
    st_.SheetCount = static_cast<int16_t>(st_.SheetCount - 1);
  } else {
    // The sheet was never saved.
    next = std::min(st_.CurrentSheet, st_.SheetCount);
  }
  DeleteSpreadData();
  LoadSheet(next);
  st_.StudyChanged = -1;
  // A deleted loop invalidates the levels and the whole network work of the study.
  ws_.Delete(kFloorsFile);
  for (const std::string& name : NetworkFileNames()) ws_.Delete(name);
  FocusOn(Grid);
}

void FrmRavolin::RemoveSheetFromFiles(int16_t sheet) {
  RewriteWithout(
      ws_, SheetsFile, [sheet](const SheetRecord&, int32_t n) { return n != sheet; },
      [](SheetRecord& r, int32_t position) { r.SheetNo = static_cast<int16_t>(position); });
  RewriteWithout(
      ws_, LoopsFile, [sheet](const LoopRecord& r, int32_t) { return r.SheetNo != sheet; },
      [sheet](LoopRecord& r, int32_t) {
        if (r.SheetNo > sheet) r.SheetNo = static_cast<int16_t>(r.SheetNo - 1);
      });
}
