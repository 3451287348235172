#pragma once
// The levels read with the calculation sheets: the number of levels, the sheet list of a level,
// the loop pressure drop and the sums of a level's sheets.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "SheetRecords.h"
#include "Workspace.h"

// N, the number of heated levels: never stored, always the length of FloorsFile over the
// record length (0 without the file). A count beyond 16 bits is the run-time's overflow.
int16_t LevelCount(const Workspace& ws);
// An empty FloorsFile is deleted wherever it is met and treated as absent. True when it was.
bool DeleteEmptyFloorsFile(Workspace& ws);

// The numbers of a sheet list, in list order. A comma is added when the text does not end in
// one; each comma closes a number, read as the run-time's Val reads it ("1,,2" gives 1, 0, 2).
// An empty text gives none.
std::vector<int16_t> ParseSheetList(std::string_view list);

// The radiators of a sheet: its rows of LoopsFile whose SomaNo is not blank, read in record
// order up to the first record of a higher sheet.
int16_t CountLoopRadiators(Workspace& ws, int16_t sheet);

// The pressure drop of a loop, mm w.g.: each radiator adds 2 equivalent metres and the loop
// 13.5 once, whatever it holds: R × L + (2 n + 13.5) × R + E × R.
float LoopDrop(const SheetRecord& sheet, int16_t radiators);

struct LevelSums {
  float Load = 0;       // the sum of TotalLoad
  float Output = 0;     // the sum of RealOutput
  float Flow = 0;       // the sum of Flow
  float WorstDrop = 0;  // the largest loop drop; an equal later one does not replace it
  int16_t WorstSheet = 0;
  std::string Title;    // the Thema of the last record of the sheets' file
};

// The sums of the sheets of a list, each addition rounded to single precision. Every number of
// the list walks the whole sheets' file, so a number given twice is added twice.
LevelSums SumSheetsOfLevel(Workspace& ws, std::string_view list);
