#include "FrmRavoAdd.h"

#include "Checked.h"
#include "Cp1253.h"
#include "FrmRavoSheets.h"
#include "FrmRavolin.h"
#include "RavoMessages.h"

namespace {

constexpr char32_t kBackspace = 8;
constexpr char32_t kEnter = 13;
constexpr int kLowestRoomTemp = 8;
constexpr int kHighestRoomTemp = 30;
constexpr const char* kDefaultRoomTemp = "20";

}  // namespace

const std::vector<FrmRavoAdd::Label>& FrmRavoAdd::Labels() {
  static const std::vector<Label> labels = {
      {"TxtAdded", "ΠΡΟΣΤΙΘΕΜΕΝΟ ΠΟΣΟ ΘΕΡΜΙΚΗΣ ΙΣΧΥΟΣ ΣΤΟΝ ΒΡΟΧΟ, [Kcal/h]"},
      {"TxtSomaName", "Ο α/α ΤΟΥ ΘΕΡΜΑΝΤΙΚΟΥ ΣΩΜΑΤΟΣ, ΝΑ ΟΝΟΜΑΣΘΕΙ :"},
      {"CboRoomTemp", "ΕΠΙΘΥΜΗΤΗ ΘΕΡΜΟΚΡΑΣΙΑ ΤΟΥ ΧΩΡΟΥ, ΣΤΟΝ ΟΠΟΙΟ ΑΝΗΚΕΙ ΤΟ ΣΩΜΑ, [ oC ] :"}};
  return labels;
}

FrmRavoAdd::FrmRavoAdd(FrmRavolin& main, StudyState& state, Prompter& prompter, Screens& screens)
    : main_(main), st_(state), prompter_(prompter), screens_(screens) {
  TxtSomaName.MaxLength = 5;  // the width of the radiator's number in the sheet
  for (int t = kLowestRoomTemp; t <= kHighestRoomTemp; ++t)
    CboRoomTemp.Items.push_back(std::to_string(t));
  CboRoomTemp.Index = kHighestRoomTemp - kLowestRoomTemp - 10;  // "20"
  main_.AddedLoad = static_cast<float>(st_.Parse(main_.TxtLoopLoad.Text));
  controls_["Caption"] = LabelControl(Caption);
  controls_["TxtAdded"] =
      TextBoxControl(TxtAdded, {[this] { TxtAdded_GotFocus(); },
                                [this](char32_t c) { return TxtAdded_KeyPress(c); },
                                [this] { TxtAdded_LostFocus(); }});
  controls_["TxtSomaName"] = TextBoxControl(
      TxtSomaName, {nullptr, [this](char32_t c) { return TxtSomaName_KeyPress(c); }, nullptr});
  controls_["CboRoomTemp"] = ComboControl(CboRoomTemp, nullptr);
  controls_["CmdOK"] = CommandControl(CmdOK, [this] { CmdOK_Click(); });
  controls_["CmdCancel"] = CommandControl(CmdCancel, [this] { CmdCancel_Click(); });
  controls_["CmdSame"] = CommandControl(CmdSame, [this] { CmdSame_Click(); });
}

void FrmRavoAdd::TxtAdded_GotFocus() {
  TxtAdded.Text = StripThousands(TxtAdded.Text, st_.Seps());
}

bool FrmRavoAdd::TxtAdded_KeyPress(char32_t ch) {
  if (ch == kEnter) {
    FocusTarget = "TxtSomaName";
    return false;
  }
  return ch == kBackspace || (ch >= U'0' && ch <= U'9');
}

void FrmRavoAdd::TxtAdded_LostFocus() {
  TxtAdded.Text = st_.Format(st_.Parse(TxtAdded.Text), "#,###");
}

bool FrmRavoAdd::TxtSomaName_KeyPress(char32_t ch) {
  if (ch == kEnter) {
    FocusTarget = "CboRoomTemp";
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
    const int rows = main_.Grid.DataRowCount();
    for (int row = 1; row <= rows && !closed; ++row) {
      if (!main_.Grid.RowIsEmpty(row)) continue;
      main_.Grid.DeleteRow(row);
      main_.FIXData_in_Combo(1);
      closed = true;
    }
  }
}

void FrmRavoAdd::CmdOK_Click() {
  CloseGaps();
  const double added = st_.Parse(TxtAdded.Text);
  if (added == 0) {
    FocusTarget = "TxtAdded";
    return;
  }
  if (Trim(TxtSomaName.Text).empty()) {
    FocusTarget = "TxtSomaName";
    return;
  }
  if (st_.Parse(CboRoomTemp.Text()) == 0) {
    FocusTarget = "CboRoomTemp";
    return;
  }
  const int row = main_.Grid.DataRowCount() + 1;
  if (row > main_.Grid.MaxRows()) {
    closed_ = true;
    return;
  }
  main_.Grid.SetText(row, 1, Trim(TxtSomaName.Text));
  main_.Grid.SetText(row, 2, StripThousands(TxtAdded.Text, st_.Seps()));
  main_.Grid.SetText(row, 3, CboRoomTemp.Text());
  main_.AddedLoad = static_cast<float>(main_.AddedLoad + added);
  main_.TxtLoopLoad.Text = st_.FormatF(main_.AddedLoad, "#,###");
  if (row == main_.Grid.MaxRows()) {
    closed_ = true;
  } else {
    main_.Txta_a.Text = std::to_string(st_.CurrentSheet);
    // Kept on purpose: the running load shown a moment ago goes with the other figures.
    main_.DeleteLoopData();
    FocusTarget = "TxtSomaName";
  }
  st_.StudyChanged = -1;
}

void FrmRavoAdd::CmdCancel_Click() {
  closed_ = true;
}

void FrmRavoAdd::CmdSame_Click() {
  if (main_.CountSheets() == 0) return;
  if (main_.Grid.DataRowCount() > 0 &&
      prompter_.Show(RavoMessageBox(RavoMessage::OtherRowsOnSheet)) == Answer::Yes)
    main_.DeleteSpreadData();
  FrmRavoSheets sheets(main_, main_.Files(), st_, prompter_);
  screens_.ShowModal(sheets);
  if (sheets.Copied) closed_ = true;
}

void FrmRavoAdd::KeyDown(const KeyStroke& key) {
  if (key.Code == KeyCode::Escape) closed_ = true;
}
