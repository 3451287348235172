// The header fields of the main screen: what each accepts, and what happens when it gets and
// loses the focus.
#include <functional>
#include <map>

#include "Checked.h"
#include "FrmRavolin.h"
#include "RavoMessages.h"
#include "SheetRecords.h"

namespace {
constexpr char32_t kBackspace = 8;
constexpr char32_t kEnter = 13;
}  // namespace

bool FrmRavolin::AcceptsDigits(char32_t ch, bool decimalSeparator) {
  if (ch == kEnter) {
    FocusOn(Grid);
    return false;
  }
  if (ch == kBackspace || (ch >= U'0' && ch <= U'9')) return true;
  return decimalSeparator && ch == st_.Seps().Decimal;
}

// "+" and "-" are refused in the two text fields, because those keys are the row commands.
static bool AcceptsText(char32_t ch) {
  return ch != U'+' && ch != U'-';
}

void FrmRavolin::TxtThema_GotFocus() {
  oldThema_ = TxtThema.Text;
}

void FrmRavolin::TxtThema_LostFocus() {
  if (TxtThema.Text == oldThema_) return;
  st_.StudyChanged = -1;
  RewriteThemaInRecords(TxtThema.Text);
  oldThema_ = TxtThema.Text;
}

// The subject is the same in every record of both files: each file is written anew through a
// second file, so a failure leaves it whole.
void FrmRavolin::RewriteThemaInRecords(const std::string& thema) {
  auto rewrite = [&](auto file) {
    using Record = typename decltype(file)::Record;
    const char* name = file.Name;
    const auto [exists, size] = ws_.FileExistsAndSize(name);
    if (!exists || size == 0) return;
    ws_.Rewrite(name, [&](const std::filesystem::path& second) {
      RecordFile<Record> from(ws_.PathOf(name), RecordFileMode::ReadOnly);
      RecordFile<Record> to(second);
      const int32_t count = from.Count();
      for (int32_t n = 1; n <= count; ++n) {
        Record record = from.Read(n);
        record.Thema = thema;
        to.Write(n, record);
      }
    });
  };
  rewrite(SheetsFile);
  rewrite(LoopsFile);
}

void FrmRavolin::TxtOwnership_GotFocus() {}
bool FrmRavolin::TxtOwnership_KeyPress(char32_t ch) {
  if (ch == kEnter) {
    FocusOn(TxtLoopNo);
    return false;
  }
  return AcceptsText(ch);
}

void FrmRavolin::TxtLoopNo_GotFocus() {}
bool FrmRavolin::TxtLoopNo_KeyPress(char32_t ch) {
  if (ch == kEnter) {
    FocusOn(TxtTempDrop);
    return false;
  }
  return AcceptsText(ch);
}

void FrmRavolin::TxtTempDrop_GotFocus() {
  OldTempDrop = CSng(st_.Parse(TxtTempDrop.Text));
}
bool FrmRavolin::TxtTempDrop_KeyPress(char32_t ch) {
  return AcceptsDigits(ch, false);
}
void FrmRavolin::TxtTempDrop_LostFocus() {
  CheckTemperatureField(TxtTempDrop, OldTempDrop, 8, 30, RavoMessage::TempDropOutOfRange);
}

void FrmRavolin::TxtOrigTemp_GotFocus() {
  OldOrigTemp = CSng(st_.Parse(TxtOrigTemp.Text));
}
bool FrmRavolin::TxtOrigTemp_KeyPress(char32_t ch) {
  return AcceptsDigits(ch, false);
}
void FrmRavolin::TxtOrigTemp_LostFocus() {
  CheckTemperatureField(TxtOrigTemp, OldOrigTemp, 30, 90, RavoMessage::InletTempOutOfRange);
}

// Out of range: the message, the old value back, the focus stays. In range but
// changed on a calculated sheet: question -5; "NO" puts the old value back.
void FrmRavolin::CheckTemperatureField(Field& field, float& oldValue, double low, double high,
                                       RavoMessage rangeMessage) {
  const double value = st_.Parse(field.Text);
  if (value < low || value > high) {
    RavoMessages(rangeMessage, prompter_, st_);
    field.Text = CStrSingle(oldValue, st_.Seps());
    FocusOn(field);
    return;
  }
  if (CSng(value) == oldValue || !st_.Calculated) return;
  const bool discard = AskYes(RavoMessage::DiscardResults);
  if (discard)
    DiscardResults(true);
  else
    field.Text = CStrSingle(oldValue, st_.Seps());
  FocusOn(Grid);
}

void FrmRavolin::TxtLoopLength_GotFocus() {
  TxtLoopLength.Text = StripThousands(TxtLoopLength.Text, st_.Seps());
}
bool FrmRavolin::TxtLoopLength_KeyPress(char32_t ch) {
  return AcceptsDigits(ch, true);
}
void FrmRavolin::TxtLoopLength_LostFocus() {
  TxtLoopLength.Text = st_.Format(st_.Parse(TxtLoopLength.Text), "#,##0.0");
}

void FrmRavolin::TxtOtherRes_GotFocus() {
  TxtOtherRes.Text = StripThousands(TxtOtherRes.Text, st_.Seps());
}
bool FrmRavolin::TxtOtherRes_KeyPress(char32_t ch) {
  return AcceptsDigits(ch, true);
}
void FrmRavolin::TxtOtherRes_LostFocus() {
  const double value = st_.Parse(TxtOtherRes.Text);
  TxtOtherRes.Text = value == 0 ? std::string() : st_.Format(value, "#,##0.00");
}

void FrmRavolin::DiscardResults(bool withLoopData) {
  st_.StudyChanged = -1;
  DeleteResultsCells();
  st_.Calculated = 0;
  if (withLoopData) DeleteLoopData();
}

void FrmRavolin::DeleteResultsCells() {
  LoopTotalLoad = 0;
  TxtLoopLoad.Text.clear();
  const int rows = Grid.DataRowCount();
  for (int row = 1; row <= rows; ++row)
    for (int col : {4, 5, 6, 7, 8, 9, 11, 12, 13, 14}) Grid.SetText(row, col, "");
}

void FrmRavolin::DeleteLoopData() {
  for (Field* f : {&TxtLoopLoad, &TxtFlow, &TxtVelocity, &TxtSFR}) f->Text.clear();
}

void FrmRavolin::DeleteSpreadData() {
  Grid.ClearAll();
  Grid.SetActiveCell(1, 1);
}
