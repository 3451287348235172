#pragma once
// What the dialogs of the sheet screen reach of it: the radiator rows they fill, the running
// load they add to, and the few steps of the sheet they ask for. The main screen is one; the
// dialogs know nothing else of it.
#include <cstdint>
#include <string>

#include "Controls.h"
#include "SheetRecords.h"
#include "TextGrid.h"

class Workspace;

class SheetOnScreen {
 public:
  virtual ~SheetOnScreen() = default;
  // The radiator rows of the sheet on the screen.
  virtual TextGrid& Rows() = 0;
  // Kcal/h: the loop load as the adding dialog adds to it, from the load the sheet shows.
  virtual float& RunningLoad() = 0;
  // The loop load and the sheet number as the sheet shows them.
  virtual Field& LoopLoadBox() = 0;
  virtual Field& SheetNumberBox() = 0;
  virtual Workspace& Files() = 0;
  // The sheets of the study ("SHEETS.TMP" counted).
  virtual int16_t CountSheets() = 0;
  // Discarding the loop's results, or every row.
  virtual void DeleteLoopData() = 0;
  virtual void DeleteSpreadData() = 0;
  // The model lists of the first `rows` rows again, after rows moved.
  virtual void FIXData_in_Combo(int16_t rows) = 0;
  // A copied radiator at the first free row; the first row into an empty grid brings the
  // family of the sheet it comes from.
  virtual void PutAddLoopDataOnSpread(const LoopRecord& record, float sourceFamily) = 0;
  virtual void RebuildRunningLoad() = 0;
  // A study left behind comes back on the screen; a study file is opened.
  virtual void OpeningOld() = 0;
  virtual void OpenFile(std::string fileName) = 0;
};
