// Calculate: the checks of the sheet, the loop flow, the temperature cascade along the
// radiators in series, the correction of each load to the 80/20 condition and the sizing.
// Every named quantity is kept in single precision; each step is worked in double and stored
// back, as the engineers' results have always been.
#include <tuple>

#include "Checked.h"
#include "Cp1253.h"
#include "FrmRavolin.h"
#include "RavoMessages.h"
#include "RowCascade.h"

namespace {

// The formats of the computed cells.
constexpr const char* kLoadFormat = "#,###";
constexpr const char* kTemperatureFormat = "#,##0.0";
constexpr const char* kFactorFormat = "#,##0.00";

// Clears a flag of the screen when the scope ends, however it ends.
class FlagScope {
 public:
  explicit FlagScope(int16_t& flag) : flag_(flag) { flag_ = -1; }
  ~FlagScope() { flag_ = 0; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  int16_t& flag_;
};

}  // namespace

// ---- The command ---------------------------------------------------------------------------

void FrmRavolin::CmdCalc_Click() {
  CheckWrittenValues("CALCULATIONS");
  if (st_.ErrorFlag == -1) {
    st_.ErrorFlag = 0;
    FocusOn(Grid);
    return;
  }
  FlagScope calculating(InCalculation);
  Calc();
}

void FrmRavolin::Calc() {
  if (Trim(TxtOwnership.Text).empty()) {
    RavoMessages(RavoMessage::NoOwnership, prompter_, st_);
    FocusOn(TxtOwnership);
    return;
  }
  if (Trim(TxtLoopNo.Text).empty()) {
    RavoMessages(RavoMessage::NoLoopNumber, prompter_, st_);
    FocusOn(TxtLoopNo);
    return;
  }
  if (st_.Parse(TxtLoopLength.Text) == 0) {
    RavoMessages(RavoMessage::NoLoopLength, prompter_, st_);
    FocusOn(TxtLoopLength);
    return;
  }
  int16_t lastRow = 0;
  GetLastDataRow(lastRow);
  if (lastRow == 0) {
    RavoMessages(RavoMessage::MissingEntries, prompter_, st_);
    FocusOn(Grid);
    return;
  }
  st_.Calculated = 0;
  for (int row = 1; row <= lastRow; ++row) {
    for (int col : {1, 2, 3, 10}) {
      if (Trim(Grid.Text(row, col)).empty()) {
        RavoMessages(RavoMessage::MissingEntries, prompter_, st_);
        FocusOn(Grid);
        return;
      }
    }
  }
  CalculateData();
}

// ---- The calculation -----------------------------------------------------------------------

void FrmRavolin::CalculateFlowRate(float tempDrop, float& flow) {
  LoopTotalLoad = 0;
  for (int row = 1; row <= Grid.MaxRows(); ++row)
    LoopTotalLoad = CSng(LoopTotalLoad + st_.Parse(Grid.Text(row, 2)));
  // Water carries 1 Kcal per litre and °C.
  flow = CSng(Divide(LoopTotalLoad, tempDrop));
}

float FrmRavolin::Velocity(float flow) const {
  return CSng(Divide(Divide(flow / 1000.0, st_.PipeArea), 3600));
}

// Read as mm of water column per metre of pipe; linear in the flow, with the diameter in
// metres and the flow in l/h.
float FrmRavolin::SpecificResistance(float flow) const {
  const double d = PipeInnerDiameter;
  return CSng(Divide(3.99e-9, d * d * d * d) * flow);
}

void FrmRavolin::CalculateData() {
  const float tempDrop = CSng(st_.Parse(TxtTempDrop.Text));
  float flow = 0;
  CalculateFlowRate(tempDrop, flow);
  TxtFlow.Text = st_.FormatF(flow, "#,##0.0");
  TxtVelocity.Text = st_.FormatF(Velocity(flow), "#,##0.00");
  TxtSFR.Text = st_.FormatF(SpecificResistance(flow), "#,##0.00");

  const int rows = Grid.DataRowCount();
  RebuildRunningSum();
  const int16_t sheet = CInt(st_.Parse(Txta_a.Text));
  st_.Thema = TxtThema.Text;

  float out = 0;
  SomaSize size;
  for (int row = 1; row <= rows; ++row) {
    const float room = CSng(st_.Parse(Grid.Text(row, 3)));
    const float load = CSng(st_.Parse(Grid.Text(row, 2)));
    const float in = row == 1 ? CSng(st_.Parse(TxtOrigTemp.Text)) : out;
    const RowTemperatures t = CascadeRow(in, load, room, flow);
    out = t.Out;
    WriteRowResults(row, in, out, t.Mean, t.Factor, t.Equivalent);
    if (Trim(Grid.Text(row, 10)).empty()) continue;  // the cascade goes on through the row
    if (st_.SomaCategory != kSectionFamilyNo) {
      int16_t fault = 0;
      CheckSomata(row, fault);
      if (fault == -1) {
        RadiatorTooSmall(row);
        return;
      }
    }
    SizeRow(row, CSng(t.Mean - static_cast<double>(room)), t.Equivalent, size);
  }
  TxtLoopLoad.Text = st_.FormatF(LoopTotalLoad, kLoadFormat);

  auto sheets = ws_.Open(SheetsFile);
  st_.SheetCount = CInt(sheets.Count());
  SheetRecord record = sheets.Read(sheet);
  record.ResultsValid = -1.0f;
  sheets.Write(sheet, record);
  st_.Calculated = -1;
}

void FrmRavolin::WriteRowResults(int row, float in, float out, float mean, float factor,
                                 float equivalent) {
  Grid.SetText(row, 5, st_.FormatF(in, kTemperatureFormat));
  Grid.SetText(row, 6, st_.FormatF(out, kTemperatureFormat));
  Grid.SetText(row, 7, st_.FormatF(mean, kTemperatureFormat));
  Grid.SetText(row, 8, st_.FormatF(factor, kFactorFormat));
  Grid.SetText(row, 9, st_.FormatF(equivalent, kLoadFormat));
}

void FrmRavolin::SizeRow(int row, float tempDiff, float equivalent, SomaSize& size) {
  const std::string model = Trim(Grid.Text(row, 10));
  if (st_.SomaCategory == kSectionFamilyNo)
    CalculateSoma_Fetes(tempDiff, equivalent, model, size);
  else
    CalculateSoma_Panel(tempDiff, equivalent, model, size);
  WriteRowSize(row, size);
}

void FrmRavolin::WriteRowSize(int row, const SomaSize& size) {
  Grid.SetText(row, 11, Trim(size.SomaText));
  Grid.SetText(row, 12, st_.FormatF(size.Output, kLoadFormat));
  Grid.SetText(row, 13, size.Area > 0 ? st_.FormatF(size.Area, kFactorFormat) : std::string());
  Grid.SetText(row, 14, st_.FormatF(size.Length, kFactorFormat));
}

// Column 4, the running sum of the loads, over the rows that hold a load.
void FrmRavolin::RebuildRunningSum() {
  LoopTotalLoad = 0;
  const int rows = Grid.DataRowCount();
  for (int row = 1; row <= rows; ++row) {
    if (Trim(Grid.Text(row, 2)).empty()) continue;
    LoopTotalLoad = CSng(LoopTotalLoad + st_.Parse(Grid.Text(row, 2)));
    Grid.SetText(row, 4, st_.FormatF(LoopTotalLoad, kLoadFormat));
  }
}

void FrmRavolin::RadiatorTooSmall(int row) {
  Grid.SetBlock(CellBlock{1, row, kGridCols, row});
  prompter_.Show(RavoMessageBox(RavoMessage::RadiatorTooSmall));
  st_.StudyChanged = -1;
  DeleteResultsCells();
  st_.Calculated = 0;
  DeleteLoopData();
  FocusOn(Grid);
}

void FrmRavolin::CalculateSoma_Fetes(float tempDiff, float load, const std::string& somaType,
                                     SomaSize& size) {
  sizing_.CalculateSoma_Fetes(tempDiff, load, somaType, size);
}

void FrmRavolin::CalculateSoma_Panel(float tempDiff, float load, const std::string& somaType,
                                     SomaSize& size) {
  sizing_.CalculateSoma_Panel(tempDiff, load, somaType, size);
}

// The model of the row must cover the equivalent load of column 9 within its sizes. The check
// is made before the discontinuities, so a radiator that steps over one may end a step above
// its largest size.
void FrmRavolin::CheckSomata(int row, int16_t& fault) {
  const std::string model = Trim(Grid.Text(row, 10));
  const float load = CSng(st_.Parse(Grid.Text(row, 9)));
  int16_t minSteps = 0, maxSteps = 0;
  const int16_t steps = sizing_.StepsWithoutDiscontinuities(load, model, minSteps, maxSteps);
  if (steps < minSteps || steps > maxSteps) fault = -1;
}

// ---- The rows of the sheet -----------------------------------------------------------------

// Closes any gap: a row without a load goes, the rows below move up, and the new bottom row
// gets the model list of the family.
void FrmRavolin::GetLastDataRow(int16_t& lastRow) {
  bool closedGap = true;
  while (closedGap) {
    closedGap = false;
    const int rows = Grid.DataRowCount();
    for (int row = 1; row <= rows; ++row) {
      if (!Trim(Grid.Text(row, 2)).empty()) continue;
      Grid.DeleteRow(row);
      FIXData_in_Combo(1);
      closedGap = true;
      break;
    }
  }
  lastRow = static_cast<int16_t>(Grid.DataRowCount());
}

void FrmRavolin::Set_TotalLoaD() {
  LoopTotalLoad = 0;
  const int rows = Grid.DataRowCount();
  for (int row = 1; row <= rows; ++row)
    LoopTotalLoad = CSng(LoopTotalLoad + st_.Parse(Grid.Text(row, 2)));
  TxtLoopLoad.Text = st_.FormatF(LoopTotalLoad, kLoadFormat);
}

void FrmRavolin::GetTotalSheetLoaD(float& total, float& real) {
  const int rows = Grid.DataRowCount();
  total = CSng(st_.Parse(Grid.Text(rows, 4)));
  real = 0;
  for (int row = 1; row <= rows; ++row) real = CSng(real + st_.Parse(Grid.Text(row, 12)));
}

// The test before the sheet is left: only a complete, calculated sheet may be left. -2: a
// header field was missing and has been reported; -1: the caller reports (message -6).
void FrmRavolin::CheckIfOkToProceed() {
  const std::pair<Field*, RavoMessage> header[] = {{&TxtOwnership, RavoMessage::NoOwnership},
                                                   {&TxtLoopNo, RavoMessage::NoLoopNumber}};
  for (const auto& [field, code] : header) {
    if (!Trim(field->Text).empty()) continue;
    RavoMessages(code, prompter_, st_);
    st_.ErrorFlag = -2;
    FocusOn(*field);
    return;
  }
  if (st_.Parse(TxtLoopLength.Text) == 0) {
    RavoMessages(RavoMessage::NoLoopLength, prompter_, st_);
    st_.ErrorFlag = -2;
    FocusOn(TxtLoopLength);
    return;
  }
  int16_t lastRow = 0;
  GetLastDataRow(lastRow);
  if (lastRow == 0 && st_.CurrentSheet <= st_.SheetCount) st_.ErrorFlag = -1;
  for (int row = 1; row <= lastRow; ++row) {
    for (int col = 1; col <= kGridCols; ++col) {
      if (col == 13 || !Trim(Grid.Text(row, col)).empty()) continue;
      st_.ErrorFlag = -1;
      return;
    }
  }
}

// The rows as typed: a name, a load that is not 0, a room temperature of 10 to 30 °C, and for
// the calculation a model; then, for the calculation, a loop load of at most 8000 Kcal/h.
void FrmRavolin::CheckWrittenValues(const std::string& mode) {
  const bool forCalculation = mode == "CALCULATIONS";
  const int rows = Grid.DataRowCount();
  for (int row = 1; row <= rows; ++row) {
    const std::string no = "< " + std::to_string(row) + " >";
    const double room = st_.Parse(Grid.Text(row, 3));
    std::string fault;
    int col = 0;
    if (Trim(Grid.Text(row, 1)).empty()) {
      fault = "... ΔΕΝ υπάρχει ονομασία Σώματος στη Σειρά Νο : " + no + " ...";
      col = 1;
    } else if (st_.Parse(Grid.Text(row, 2)) == 0) {
      fault = "... Η Ισχύς τού Σώματος στη Σειρά Νο : " + no + ", είναι ΜΗΔΕΝΙΚΗ !...";
      col = 2;
    } else if (room > 30 || room < 10) {
      fault = "... Η Επιθυμητή Θερμοκρασία τού Χώρου στη Σειρά Νο : " + no +
              ", είναι ΕΚΤΟΣ ΠΕΔΙΟΥ (10°C-30°C) !...";
      col = 3;
    } else if (forCalculation && Trim(Grid.Text(row, 10)).empty()) {
      fault = "... ΔΕΝ έχετε επιλέξει Τύπο Σώματος στη Σειρά Νο : " + no + " ...";
      col = 10;
    }
    if (fault.empty()) continue;
    prompter_.Show(NoticeBox("... ΕΛΛΙΠΗΣ ΚΑΤΑΧΩΡΗΣΗ ...", {fault}));
    st_.ErrorFlag = -1;
    Grid.SetActiveCell(row, col);
    FocusOn(Grid);
    return;
  }
  if (!forCalculation) return;
  int32_t sum = 0;
  for (int row = 1; row <= rows; ++row) sum = CLng(sum + st_.Parse(Grid.Text(row, 2)));
  if (sum >= 8001) {
    st_.ErrorFlag = -1;
    prompter_.Show(RavoMessageBox(RavoMessage::ExcessiveLoopLoad));
    FocusOn(Grid);
  }
}
