#include "FrmRavoAdd.h"

#include "Checked.h"
#include "Cp1253.h"
#include "FrmRavoSheets.h"
#include "RavoMessages.h"

namespace {

constexpr char32_t kBackspace = 8;
constexpr char32_t kEnter = 13;
constexpr int kLowestRoomTemp = 8;
constexpr int kHighestRoomTemp = 30;
constexpr const char* kDefaultRoomTemp = "20";

}  // namespace

const ControlTable<FrmRavoAdd>& FrmRavoAdd::Table() {
  using F = FrmRavoAdd;
  static const ControlTable<F> table = {
      kit::Label("Caption", &F::Caption),
      kit::Label("LblAdded", &F::LblAdded),
      kit::Label("LblSomaName", &F::LblSomaName),
      kit::Label("LblRoomTemp", &F::LblRoomTemp),
      kit::TextBox("TxtAdded", &F::TxtAdded,
                   {&F::TxtAdded_GotFocus, &F::TxtAdded_KeyPress, &F::TxtAdded_LostFocus}),
      kit::TextBox("TxtSomaName", &F::TxtSomaName, {nullptr, &F::TxtSomaName_KeyPress, nullptr}),
      kit::Combo("CboRoomTemp", &F::CboRoomTemp),
      kit::Command("CmdOK", &F::CmdOK, &F::CmdOK_Click),
      kit::Command("CmdCancel", &F::CmdCancel, &F::CmdCancel_Click),
      kit::Command("CmdSame", &F::CmdSame, &F::CmdSame_Click),
  };
  return table;
}

FrmRavoAdd::FrmRavoAdd(SheetOnScreen& sheet, StudyState& state, Prompter& prompter,
                       Screens& screens)
    : Dialog(kName), sheet_(sheet), st_(state), prompter_(prompter), screens_(screens) {
  TxtSomaName.MaxLength = 5;  // the width of the radiator's number in the sheet
  for (int t = kLowestRoomTemp; t <= kHighestRoomTemp; ++t)
    CboRoomTemp.Items.push_back(std::to_string(t));
  CboRoomTemp.Index = kHighestRoomTemp - kLowestRoomTemp - 10;  // "20"
  sheet_.RunningLoad() = CSng(st_.Parse(sheet_.LoopLoadBox().Text));
  FocusOn(TxtAdded);
}

void FrmRavoAdd::TxtAdded_GotFocus() {
  TxtAdded.Text = StripThousands(TxtAdded.Text, st_.Seps());
}

bool FrmRavoAdd::TxtAdded_KeyPress(char32_t ch) {
  if (ch == kEnter) {
    FocusOn(TxtSomaName);
    return false;
  }
  return ch == kBackspace || (ch >= U'0' && ch <= U'9');
}

void FrmRavoAdd::TxtAdded_LostFocus() {
  TxtAdded.Text = st_.Format(st_.Parse(TxtAdded.Text), "#,###");
}

bool FrmRavoAdd::TxtSomaName_KeyPress(char32_t ch) {
  if (ch == kEnter) {
    FocusOn(CboRoomTemp);
    return false;
  }
  return true;
}

int FrmRavoAdd::SomaNameSelectionStart() const {
  const std::u32string name = Utf8ToU32(TxtSomaName.Text);
  std::size_t at = 0;
  while (at < name.size() && name[at] >= U'0' && name[at] <= U'9') ++at;
  return static_cast<int>(at);
}

// A row is a gap here only when every one of its cells is empty.
void FrmRavoAdd::CloseGaps() {
  bool closed = true;
  while (closed) {
    closed = false;
    const int rows = sheet_.Rows().DataRowCount();
    for (int row = 1; row <= rows && !closed; ++row) {
      if (!sheet_.Rows().RowIsEmpty(row)) continue;
      sheet_.Rows().DeleteRow(row);
      sheet_.FIXData_in_Combo(1);
      closed = true;
    }
  }
}

void FrmRavoAdd::CmdOK_Click() {
  CloseGaps();
  const double added = st_.Parse(TxtAdded.Text);
  if (added == 0) {
    FocusOn(TxtAdded);
    return;
  }
  if (Trim(TxtSomaName.Text).empty()) {
    FocusOn(TxtSomaName);
    return;
  }
  if (st_.Parse(CboRoomTemp.Text()) == 0) {
    FocusOn(CboRoomTemp);
    return;
  }
  const int row = sheet_.Rows().DataRowCount() + 1;
  if (row > sheet_.Rows().MaxRows()) {
    Close();
    return;
  }
  sheet_.Rows().SetText(row, 1, Trim(TxtSomaName.Text));
  sheet_.Rows().SetText(row, 2, StripThousands(TxtAdded.Text, st_.Seps()));
  sheet_.Rows().SetText(row, 3, CboRoomTemp.Text());
  sheet_.RunningLoad() = CSng(sheet_.RunningLoad() + added);
  sheet_.LoopLoadBox().Text = st_.FormatF(sheet_.RunningLoad(), "#,###");
  if (row == sheet_.Rows().MaxRows()) {
    Close();
  } else {
    sheet_.SheetNumberBox().Text = std::to_string(st_.CurrentSheet);
    // Kept on purpose: the running load shown a moment ago goes with the other figures.
    sheet_.DeleteLoopData();
    FocusOn(TxtSomaName);
  }
  st_.StudyChanged = -1;
}

void FrmRavoAdd::CmdCancel_Click() {
  Close();
}

void FrmRavoAdd::CmdSame_Click() {
  if (sheet_.CountSheets() == 0) return;
  if (sheet_.Rows().DataRowCount() > 0 &&
      prompter_.Show(RavoMessageBox(RavoMessage::OtherRowsOnSheet)) == Answer::Yes)
    sheet_.DeleteSpreadData();
  FrmRavoSheets sheets(sheet_, st_, prompter_);
  sheets.Open(screens_);
  if (sheets.Accepted()) Close();
}
