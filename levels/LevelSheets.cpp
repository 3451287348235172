#include "LevelSheets.h"

#include "Checked.h"
#include "LevelRecord.h"
#include "Numbers.h"

int16_t LevelCount(const Workspace& ws) {
  const auto [exists, size] = ws.FileExistsAndSize(FloorsFile.Name);
  if (!exists) return 0;
  return CInt(static_cast<double>(size) / RecordLengthOf<LevelRecord>());
}

bool DeleteEmptyFloorsFile(Workspace& ws) {
  const auto [exists, size] = ws.FileExistsAndSize(FloorsFile.Name);
  if (!exists || size != 0) return false;
  ws.Delete(FloorsFile.Name);
  return true;
}

std::vector<int16_t> ParseSheetList(std::string_view list) {
  std::vector<int16_t> numbers;
  if (list.empty()) return numbers;
  std::string text(list);
  if (text.back() != ',') text += ',';
  std::string token;
  for (const char ch : text) {
    if (ch != ',') {
      token += ch;
      continue;
    }
    numbers.push_back(CInt(Val(token)));
    token.clear();
  }
  return numbers;
}

int16_t CountLoopRadiators(Workspace& ws, int16_t sheet) {
  const RecordFile<LoopRecord> loops = ws.Open(LoopsFile, RecordFileMode::ReadOnly);
  int16_t count = 0;
  for (int32_t n = 1, last = loops.Count(); n <= last; ++n) {
    const LoopRecord row = loops.Read(n);
    if (row.SheetNo > sheet) break;
    if (row.SheetNo == sheet && !row.SomaNo.empty()) count = AddI16(count, 1);
  }
  return count;
}

float LoopDrop(const SheetRecord& sheet, int16_t radiators) {
  const double r = sheet.SpecificResistance;
  return CSng(r * sheet.LoopLength + (2.0 * radiators + 13.5) * r + sheet.OtherRes * r);
}

LevelSums SumSheetsOfLevel(Workspace& ws, std::string_view list) {
  LevelSums sums;
  const std::vector<int16_t> numbers = ParseSheetList(list);
  if (numbers.empty()) return sums;
  const RecordFile<SheetRecord> sheets = ws.Open(SheetsFile, RecordFileMode::ReadOnly);
  const int32_t count = sheets.Count();
  for (const int16_t number : numbers) {
    for (int32_t n = 1; n <= count; ++n) {
      const SheetRecord sheet = sheets.Read(n);
      sums.Title = sheet.Thema;
      if (sheet.SheetNo != number) continue;
      sums.Load = CSng(static_cast<double>(sums.Load) + sheet.TotalLoad);
      sums.Output = CSng(static_cast<double>(sums.Output) + sheet.RealOutput);
      sums.Flow = CSng(static_cast<double>(sums.Flow) + sheet.Flow);
      const float drop = LoopDrop(sheet, CountLoopRadiators(ws, sheet.SheetNo));
      if (!(sums.WorstDrop >= drop)) {
        sums.WorstDrop = drop;
        sums.WorstSheet = sheet.SheetNo;
      }
    }
  }
  return sums;
}
