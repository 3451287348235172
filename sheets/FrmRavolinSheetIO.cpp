// The sheet between the screen and the working files: SaveTemporarData writes the sheet on the
// screen into SheetsFile and LoopsFile and refreshes the water content of every sheet;
// PutGenSheetData and PutLoopDataOnScreen bring a sheet back.
#include <map>
#include <optional>
#include <utility>

#include "Checked.h"
#include "Cp1253.h"
#include "FrmRavolin.h"
#include "RavoMessages.h"
#include "RowCascade.h"
#include "SomaTypeFiles.h"

namespace {

// The loop pipes whose water content is known, with the water one metre of each holds.
struct PipeWater {
  const char* Pipe;
  double LitresPerMetre;  // l/m
};
constexpr PipeWater kPipeWater[] = {{"Φ16x1", 0.15}, {"Φ18x1", 0.2}};

// Litres of water per metre of a loop pipe. Any pipe not in kPipeWater leaves the value of the
// sheet before it in force.
bool LitresPerMetre(const std::string& pipeName, double& litres) {
  const std::string pipe = Trim(pipeName);
  for (const PipeWater& known : kPipeWater) {
    if (pipe != known.Pipe) continue;
    litres = known.LitresPerMetre;
    return true;
  }
  return false;
}

}  // namespace

// Reading ResultsValid back: exactly -1 or 0 set the flag, anything else leaves it.
static void TakeResultsValid(float resultsValid, int16_t& calculated) {
  if (resultsValid == -1.0f)
    calculated = -1;
  else if (resultsValid == 0.0f)
    calculated = 0;
}

// ---- Saving --------------------------------------------------------------------------------

void FrmRavolin::SaveTemporarData() {
  if (Grid.DataRowCount() == 0) {
    SaveEmptySheet();
    return;
  }
  const int16_t sheet = CInt(st_.Parse(Txta_a.Text));
  {
    auto sheets = ws_.Open(SheetsFile);
    auto loops = ws_.Open(LoopsFile);
    const SheetHeader header = ReadSheetHeader();
    float out = 0;
    SomaSize size;
    bool rowsEnded = false;
    for (int row = 1; row <= Grid.MaxRows(); ++row) {
      rowsEnded = rowsEnded || Trim(Grid.Text(row, 1)).empty();
      LoopRecord record = loops.Read(LoopRecordNumber(sheet, row));
      FillRowIdentity(record, header, sheet, row);
      if (rowsEnded) {
        ClearRowValues(record);
      } else {
        const float in = row == 1 ? CSng(st_.Parse(TxtOrigTemp.Text))
                                  : loops.Read(LoopRecordNumber(sheet, row - 1)).OutletTemp;
        SaveRow(row, header.Flow, in, out, size, record);
      }
      if (row == 1) WriteSheetRecord(sheets, sheet, header);
      loops.Write(LoopRecordNumber(sheet, row), record);
    }
  }
  st_.SheetCount = CInt(ws_.Open(SheetsFile).Count());
  ComputeWaterContent(sheet);
  st_.SheetCount = CInt(ws_.Open(SheetsFile).Count());
}

// A sheet without rows: a study on disk is asked whether the sheet is to go.
void FrmRavolin::SaveEmptySheet() {
  const auto [exists, size] = ws_.FileExistsAndSize(SheetsFile.Name);
  if (!exists) {
    FocusOn(Grid);
    return;
  }
  if (size == 0) ws_.Delete(SheetsFile.Name);
  if (AskYes(RavoMessage::NoDataOnSheet)) CmdDeleteSheet_Click();
  FocusOn(Grid);
}

FrmRavolin::SheetHeader FrmRavolin::ReadSheetHeader() {
  SheetHeader h;
  h.Thema = Trim(TxtThema.Text);
  h.Ownership = Trim(TxtOwnership.Text);
  h.LoopNo = Trim(TxtLoopNo.Text);
  h.PipeName = CboPipes.Text();
  // The flow comes back from its text, rounded to one decimal; velocity and resistance follow
  // from it, so the stored figures may differ in the last places from the calculation's.
  h.Flow = CSng(st_.Parse(TxtFlow.Text));
  h.Velocity = Velocity(h.Flow);
  h.SpecificResistance = SpecificResistance(h.Flow);
  return h;
}

void FrmRavolin::FillRowIdentity(LoopRecord& record, const SheetHeader& header, int16_t sheet,
                                 int row) const {
  record.SheetNo = sheet;
  record.Thema = header.Thema;
  record.Ownership = header.Ownership;
  record.LoopNo = header.LoopNo;
  record.PipeName = header.PipeName;
  record.RowNo = static_cast<int16_t>(row);
}

void FrmRavolin::ClearRowValues(LoopRecord& record) {
  record.SomaNo.clear();
  record.SomaType.clear();
  record.SomaText.clear();
  record.RoomTemp = record.Load = record.InletTemp = record.OutletTemp = record.MeanTemp = 0;
  record.CorrectionFactor = record.EquivalentLoad = 0;
  record.SomaOutput = record.SomaArea = record.SomaLength = record.SomaWater = 0;
}

// The cascade of one row again from the screen. The grid shows the results only while the
// sheet is being calculated or holds results; the record always gets the temperatures.
void FrmRavolin::SaveRow(int row, float flow, float in, float& out, SomaSize& size,
                         LoopRecord& record) {
  const float room = CSng(st_.Parse(Grid.Text(row, 3)));
  const float load = CSng(st_.Parse(Grid.Text(row, 2)));
  // A sheet saved before its first calculation has no flow: its rows keep the outlet before.
  const RowTemperatures t =
      CascadeRow(in, load, room, flow > 0 ? std::optional<float>(flow) : std::nullopt, out);
  out = t.Out;
  const bool showResults = InCalculation != 0 || st_.Calculated != 0;
  const std::string model = Trim(Grid.Text(row, 10));
  if (showResults) {
    WriteRowResults(row, in, out, t.Mean, t.Factor, t.Equivalent);
    if (!model.empty()) SizeRow(row, CSng(t.Mean - static_cast<double>(room)), t.Equivalent, size);
  }
  record.SomaNo = Trim(Grid.Text(row, 1));
  record.RoomTemp = room;
  record.Load = load;
  record.InletTemp = in;
  record.OutletTemp = out;
  record.MeanTemp = t.Mean;
  record.CorrectionFactor = t.Factor;
  record.EquivalentLoad = t.Equivalent;
  record.SomaType = model;
  if (showResults && !model.empty()) {
    record.SomaText = Trim(size.SomaText);
    record.SomaOutput = size.Output;
    record.SomaArea = size.Area;
    record.SomaLength = size.Length;
  } else {
    // Not sized now: the record takes what the grid shows.
    record.SomaText = Trim(Grid.Text(row, 11));
    record.SomaOutput = CSng(st_.Parse(Grid.Text(row, 12)));
    record.SomaArea = CSng(st_.Parse(Grid.Text(row, 13)));
    record.SomaLength = CSng(st_.Parse(Grid.Text(row, 14)));
  }
}

void FrmRavolin::WriteSheetRecord(RecordFile<SheetRecord>& sheets, int16_t sheet,
                                  const SheetHeader& header) {
  SheetRecord record = sheets.Read(sheet);
  record.SheetNo = sheet;
  record.Thema = header.Thema;
  record.Ownership = header.Ownership;
  record.LoopNo = header.LoopNo;
  record.TempDrop = CSng(st_.Parse(TxtTempDrop.Text));
  record.PipeName = header.PipeName;
  record.Flow = header.Flow;
  record.Velocity = header.Velocity;
  record.SpecificResistance = header.SpecificResistance;
  record.LoopLength = CSng(st_.Parse(TxtLoopLength.Text));
  record.OrigTemp = CSng(st_.Parse(TxtOrigTemp.Text));
  record.OtherRes = CSng(st_.Parse(TxtOtherRes.Text));
  record.ResultsValid = st_.Calculated == -1 ? -1.0f : 0.0f;
  record.SomaCategoryNo = st_.SomaCategory;
  GetTotalSheetLoaD(record.TotalLoad, record.RealOutput);
  sheets.Write(sheet, record);
}

// ---- Water content -------------------------------------------------------------------------

// The water held in each loop: the pipe by its length, and the water of each radiator's model
// once per radiator, whatever its number of steps or sections. Records whose bytes would not
// change are not written again.
void FrmRavolin::ComputeWaterContent(int16_t savedSheet) {
  auto sheets = ws_.Open(SheetsFile);
  const int32_t count = sheets.Count();
  // A batch run saves one sheet after another and nothing else touches the others: once a
  // pass has gone over all of them, a new pass would find the same water in every other sheet.
  if (otherSheetsWaterKnown_ && savedSheet >= 1 && savedSheet <= count)
    UpdateWaterContent(sheets, savedSheet, savedSheet);
  else
    UpdateWaterContent(sheets, 1, count);
  otherSheetsWaterKnown_ = keepOtherSheetsWater_;
}

void FrmRavolin::UpdateWaterContent(RecordFile<SheetRecord>& sheets, int32_t first, int32_t last) {
  if (last < first) return;
  auto loops = ws_.Open(LoopsFile);
  std::map<float, std::vector<SomaRecord>> families;
  const auto familyOf = [&](float categoryNo) -> const std::vector<SomaRecord>& {
    auto at = families.find(categoryNo);
    if (at == families.end()) at = families.emplace(categoryNo, ReadFamilyOf(categoryNo)).first;
    return at->second;
  };
  // The records are read in one piece per file and only the fields the content needs are
  // decoded; a record is decoded whole and written only when its bytes change.
  const int32_t firstLoop = LoopRecordNumber(first, 1);
  const std::string sheetBytes = sheets.ReadRangeBytes(first, last - first + 1);
  const std::string loopBytes = loops.ReadRangeBytes(firstLoop, (last - first + 1) * kRowsPerSheet);
  const auto bytesOf = [](const std::string& piece, int32_t index, std::size_t length) {
    return reinterpret_cast<const unsigned char*>(piece.data()) + index * length;
  };
  const int32_t loopCount = loops.Count();
  double litres = 0;
  for (int32_t s = first; s <= last; ++s) {
    const unsigned char* sheetAt = bytesOf(sheetBytes, s - first, SheetRecordLayout.RecordLength);
    SheetRecord sheet;
    DecodeNumbersAnd(sheetAt, sheet, {&SheetRecord::PipeName});
    const std::vector<SomaRecord>& models = familyOf(sheet.SomaCategoryNo);
    LitresPerMetre(sheet.PipeName, litres);
    float water = CSng(sheet.LoopLength * litres);
    for (int row = 1; row <= kRowsPerSheet; ++row) {
      const int32_t number = LoopRecordNumber(s, row);
      if (number > loopCount) continue;  // a file cut short reads as empty records
      const unsigned char* loopAt =
          bytesOf(loopBytes, number - firstLoop, LoopRecordLayout.RecordLength);
      LoopRecord record;
      DecodeNumbersAnd(loopAt, record, {&LoopRecord::SomaType});
      const SomaRecord* model = nullptr;
      for (const SomaRecord& m : models)
        if (Trim(m.SomaType) == Trim(record.SomaType)) {
          model = &m;
          break;
        }
      if (model == nullptr) continue;
      water = CSng(water + static_cast<double>(model->UnitWater));
      if (record.SomaWater == model->UnitWater) continue;
      DecodeRecord(loopAt, record);
      record.SomaWater = model->UnitWater;
      loops.Write(number, record);
    }
    if (sheet.WaterContent == water) continue;
    DecodeRecord(sheetAt, sheet);
    sheet.WaterContent = water;
    sheets.Write(s, sheet);
  }
}

// The models of the first type file whose family number equals `categoryNo`; none when no
// file has it.
std::vector<SomaRecord> FrmRavolin::ReadFamilyOf(float categoryNo) {
  const auto file = FamilyFileOf(categoryNo);
  if (!file) return {};
  return ws_.Records<SomaRecord>(*file, RecordFileMode::ReadOnly).ReadAll();
}

// ---- Bringing a sheet back -----------------------------------------------------------------

void FrmRavolin::PutGenSheetData(const SheetRecord& record) {
  TxtThema.Text = record.Thema;
  TxtOwnership.Text = record.Ownership;
  Txta_a.Text = std::to_string(record.SheetNo);
  TxtLoopNo.Text = record.LoopNo;
  TxtFlow.Text = st_.FormatF(record.Flow, "#,###.0");
  TxtTempDrop.Text = CStrSingle(record.TempDrop, st_.Seps());
  TxtOrigTemp.Text = CStrSingle(record.OrigTemp, st_.Seps());
  TxtVelocity.Text = st_.FormatF(record.Velocity, "#,##0.00");
  TxtSFR.Text = st_.FormatF(record.SpecificResistance, "#,##0.00");
  TxtOtherRes.Text = st_.FormatF(record.OtherRes, "#,##0.00");
  TxtLoopLength.Text = st_.FormatF(record.LoopLength, "#,##0.0");
  st_.SomaCategory = CInt(record.SomaCategoryNo);
  if (st_.SomaCategory == 0) st_.SomaCategory = 1;
  TakeFamilyOfSheet();
}

// The family of the sheet becomes the family in use: its entry in CboSomata is selected
// quietly and its type file copied as the working copy. When no file has the family number,
// the last file of the list is the one copied.
void FrmRavolin::TakeFamilyOfSheet() {
  const std::vector<std::string> files = TypeFiles(ws_);
  if (files.empty()) return;
  SomaRecord first;
  const auto found = FamilyFileOf(st_.SomaCategory, &first);
  if (found) SelectFamilyOf(first);
  ws_.Delete(SomataWorkingCopy.Name);
  ws_.Copy(found ? *found : files.back(), SomataWorkingCopy.Name);
}

void FrmRavolin::PutLoopDataOnScreen(const LoopRecord& record) {
  const int row = record.RowNo;
  if (Trim(record.SomaNo).empty()) {
    for (int col = 1; col <= kGridCols; ++col) Grid.SetText(row, col, {});
  } else {
    Grid.SetText(row, 1, Trim(record.SomaNo));
    Grid.SetText(row, 2, CStrSingle(record.Load, st_.Seps()));
    Grid.SetText(row, 3, CStrSingle(record.RoomTemp, st_.Seps()));
    Grid.SetText(row, 4, {});
    WriteRowResults(row, record.InletTemp, record.OutletTemp, record.MeanTemp,
                    record.CorrectionFactor, record.EquivalentLoad);
    Grid.SetText(row, 10, record.SomaType);
    WriteRowSize(row,
                 SomaSize{record.SomaText, record.SomaOutput, record.SomaArea, record.SomaLength});
  }
  st_.Thema = TxtThema.Text;
  if (!Trim(record.SomaNo).empty()) {
    RebuildRunningLoad();
  }
  // Kept on purpose: a sheet brought back counts as calculated, whatever its record said.
  st_.Calculated = -1;
}

void FrmRavolin::PutAddLoopDataOnSpread(const LoopRecord& record, float sourceFamily) {
  const bool intoEmptyGrid = Grid.DataRowCount() == 0;
  const int row = Grid.DataRowCount() + 1;
  Grid.SetText(row, 1, Trim(record.SomaNo));
  Grid.SetText(row, 2, CStrSingle(record.Load, st_.Seps()));
  Grid.SetText(row, 3, CStrSingle(record.RoomTemp, st_.Seps()));
  Grid.SetText(row, 4, {});
  Grid.SetText(row, 10, record.SomaType);
  if (!intoEmptyGrid) return;
  st_.SomaCategory = CInt(sourceFamily);
  if (st_.SomaCategory == 0) st_.SomaCategory = 1;
  TakeFamilyOfSheet();
}

void FrmRavolin::RebuildRunningLoad() {
  RebuildRunningSum();
  TxtLoopLoad.Text = st_.FormatF(LoopTotalLoad, "#,###");
}

int16_t FrmRavolin::CountSheets() {
  st_.SheetCount = CInt(ws_.Open(SheetsFile, RecordFileMode::ReadOnly).Count());
  return st_.SheetCount;
}

void FrmRavolin::OpeningOld() {
  st_.CurrentSheet = 1;
  PutSheetRecordOnScreen(1);
  PutLoopsOfSheetOnScreen(1);
  RebuildRunningLoad();  // no gap closing here
  ReportUnreadableNumbers(1);
}

// A sheet whose records hold a number the program never writes (an infinity, a NaN) is shown
// with 0 in its place, and the engineer is told which sheet it is; the other sheets are not
// touched.
void FrmRavolin::ReportUnreadableNumbers(int16_t sheet) {
  if (!std::exchange(unreadableNumbers_, false)) return;
  prompter_.Show(NoticeBox(
      "!! ΠΡΟΣΟΧΗ !!",
      {"... Το Φύλλο Υπολογισμών Νο : < " + std::to_string(sheet) +
           " > έχει στο αρχείο αριθμούς που δεν διαβάζονται ...",
       "... Εμφανίζονται ως 0 : ελέγξτε τα δεδομένα και κάντε ξανά τους Υπολογισμούς ..."}));
}

// Record `sheet` of SheetsFile into the header; Calculated from its ResultsValid. Returns
// the record.
SheetRecord FrmRavolin::PutSheetRecordOnScreen(int16_t sheet) {
  auto sheets = ws_.Open(SheetsFile, RecordFileMode::ReadOnly);
  st_.SheetCount = CInt(sheets.Count());
  SheetRecord record = sheets.Read(sheet);
  if (ZeroUnreadableNumbers(record)) unreadableNumbers_ = true;
  PutGenSheetData(record);
  TakeResultsValid(record.ResultsValid, st_.Calculated);
  return record;
}

// The rows of `sheet` from LoopsFile, read in order from record 1 up to the first record of a
// later sheet. Only the number of each record is decoded until it belongs to the sheet.
// Returns which rows (1 to 8) a record brought.
std::vector<bool> FrmRavolin::PutLoopsOfSheetOnScreen(int16_t sheet) {
  std::vector<bool> rowsMet(kRowsPerSheet + 1, false);
  auto loops = ws_.Open(LoopsFile, RecordFileMode::ReadOnly);
  const int32_t count = loops.Count();
  const std::string bytes = loops.ReadAllBytes();
  for (int32_t n = 1; n <= count; ++n) {
    const auto* at = reinterpret_cast<const unsigned char*>(bytes.data()) +
                     (n - 1) * LoopRecordLayout.RecordLength;
    // Only the sheet number is needed to walk past the records of other sheets.
    const int16_t sheetNo = record_codec::GetI16(at);  // SheetNo leads the record
    if (sheetNo > sheet) break;
    if (sheetNo != sheet) continue;
    LoopRecord record;
    DecodeRecord(at, record);
    if (ZeroUnreadableNumbers(record)) unreadableNumbers_ = true;
    PutLoopDataOnScreen(record);
    if (record.RowNo >= 1 && record.RowNo <= kRowsPerSheet) rowsMet[record.RowNo] = true;
  }
  return rowsMet;
}

// A record whose number field disagrees with its place: the sheet is shown under its place,
// so that saving it never writes over another sheet, and the engineer is told.
void FrmRavolin::SheetNumberDisagrees(int16_t sheet, int16_t written) {
  prompter_.Show(NoticeBox(
      "!! ΠΡΟΣΟΧΗ !!",
      {"... Το Φύλλο Υπολογισμών Νο : < " + std::to_string(sheet) +
           " > είναι γραμμένο στο αρχείο ως Νο : < " + std::to_string(written) + " > ...",
       "... Εμφανίζεται και θα αποθηκευθεί ως Φύλλο Νο : < " + std::to_string(sheet) + " > ..."}));
  Txta_a.Text = std::to_string(sheet);
}

void FrmRavolin::LoadSheet(int16_t sheet) {
  st_.CurrentSheet = sheet;
  const SheetRecord record = PutSheetRecordOnScreen(sheet);
  if (record.SheetNo != sheet) SheetNumberDisagrees(sheet, record.SheetNo);
  const std::vector<bool> rowsMet = PutLoopsOfSheetOnScreen(sheet);
  // A file cut short reads as empty records: rows of the sheet that no record brought are
  // empty, never left over from the sheet shown before.
  for (int row = 1; row <= kRowsPerSheet; ++row)
    if (!rowsMet[row]) Grid.ClearRow(row);
  int16_t lastRow = 0;
  GetLastDataRow(lastRow);
  RebuildRunningLoad();
  ReportUnreadableNumbers(sheet);
}
