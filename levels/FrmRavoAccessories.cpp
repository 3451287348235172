#include "FrmRavoAccessories.h"

#include <tuple>

#include "Checked.h"
#include "Cp1253.h"
#include "LevelMessages.h"
#include "LevelSheets.h"
#include "Numbers.h"
#include "RuntimeFault.h"

namespace {

bool IsDigit(char32_t ch) { return ch >= U'0' && ch <= U'9'; }

// The end node as the run-time converts a text to an integer: what is not a number ("ANT") is
// a type mismatch.
int16_t NodeNumber(const std::string& text, Separators seps) {
  double value = 0;
  if (!RegionalToDouble(text, seps, value)) throw RuntimeFault(FaultCode::TypeMismatch, text);
  return CInt(value);
}

// Start node right justified in three characters, "/", end node as a number.
std::string SectionNameOf(const std::string& start, const std::string& end, Separators seps) {
  const std::string left = start.size() >= 3 ? start.substr(0, 3) : std::string(3 - start.size(), ' ') + start;
  return left + "/" + std::to_string(NodeNumber(end, seps));
}

// The boxes of the record's numbers, each with its field.
using F = FrmRavoAccessories;
constexpr std::pair<Field F::*, float LevelRecord::*> kDecimalBoxes[] = {
    {&F::Txt2, &LevelRecord::Length},        {&F::Txt6, &LevelRecord::Elbows},
    {&F::Txt7, &LevelRecord::Bends90},       {&F::Txt16, &LevelRecord::OtherLossMm},
    {&F::Txt17, &LevelRecord::OtherLossEqM}};
constexpr std::pair<Field F::*, int16_t LevelRecord::*> kCountBoxes[] = {
    {&F::Txt8, &LevelRecord::Valves},           {&F::Txt9, &LevelRecord::StraightControlValves},
    {&F::Txt10, &LevelRecord::AngleControlValves}, {&F::Txt11, &LevelRecord::TeesBranch},
    {&F::Txt12, &LevelRecord::TeesPass},        {&F::Txt13, &LevelRecord::TeesCounterflow},
    {&F::Txt14, &LevelRecord::TeesJunction},    {&F::Txt15, &LevelRecord::CheckValves}};

}  // namespace

const ControlTable<FrmRavoAccessories>& FrmRavoAccessories::Table() {
  using F = FrmRavoAccessories;
  // Enter goes on to the next box; digits and Backspace pass, and the decimal separator where a
  // box takes one; everything else is swallowed.
  const auto numeric = [](Field F::*next, bool decimal) {
    return kit::TextEvents<F>{.GotFocus = {},
                              .KeyPress =
                                  [next, decimal](F& f, char32_t ch) {
                                    if (ch == 13) f.FocusOn(f.*next);
                                    return IsDigit(ch) || ch == 8 ||
                                           (decimal &&
                                            ch == static_cast<char32_t>(f.st_.DecimalSep));
                                  },
                              .LostFocus = {}};
  };
  static const ControlTable<F> table = {
      kit::Label("Caption", &F::Caption),
      kit::Label("TxtFloorNo", &F::TxtFloorNo),
      kit::Label("Txt_aa", &F::Txt_aa),
      kit::Label("Txt_Floor", &F::Txt_Floor),
      kit::TextBox<F>("Txt0", &F::Txt0,
                      {.GotFocus = {},
                       .KeyPress =
                           [](F& f, char32_t ch) {
                             if (ch != 13) return true;
                             f.FocusOn(f.Txt1);
                             return false;
                           },
                       .LostFocus = &F::Txt0_LostFocus}),
      kit::TextBox<F>("Txt1", &F::Txt1,
                      {.GotFocus = {},
                       .KeyPress =
                           [](F& f, char32_t ch) {
                             if (ch == U'A' || ch == U'a' || ch == U'Α' || ch == U'α') {
                               f.Txt1.Text = "ANT";
                               f.FocusOn(f.Txt2);
                               return false;
                             }
                             if (ch == 13) f.FocusOn(f.Txt2);
                             return IsDigit(ch) || ch == 8;
                           },
                       .LostFocus = &F::Txt1_LostFocus}),
      kit::TextBox("Txt2", &F::Txt2, numeric(&F::Txt6, true)),
      kit::TextBox("Txt6", &F::Txt6, numeric(&F::Txt7, true)),
      kit::TextBox("Txt7", &F::Txt7, numeric(&F::Txt8, true)),
      kit::TextBox("Txt8", &F::Txt8, numeric(&F::Txt9, false)),
      kit::TextBox("Txt9", &F::Txt9, numeric(&F::Txt10, false)),
      kit::TextBox("Txt10", &F::Txt10, numeric(&F::Txt11, false)),
      kit::TextBox("Txt11", &F::Txt11, numeric(&F::Txt12, false)),
      kit::TextBox("Txt12", &F::Txt12, numeric(&F::Txt13, false)),
      kit::TextBox("Txt13", &F::Txt13, numeric(&F::Txt14, false)),
      kit::TextBox("Txt14", &F::Txt14, numeric(&F::Txt15, false)),
      kit::TextBox("Txt15", &F::Txt15, numeric(&F::Txt16, false)),
      kit::TextBox("Txt16", &F::Txt16, numeric(&F::Txt17, false)),
      kit::TextBox("Txt17", &F::Txt17, numeric(&F::Cmd_End, false)),
      kit::Command("Cmd_End", &F::Cmd_End, &F::Cmd_End_Click),
      kit::Command("CmdANT", &F::CmdANT, &F::CmdANT_Click,
                   " Θέτει το Όνομα Τελικού Κόμβου σε \"ΑΝΤ \" "),
      kit::Command("Cmd_Tau", &F::Cmd_Tau, [](F& f) { f.TeePanelShown = true; },
                   " Αυτόματος Καθορισμός < ΤΑΥ > "),
      kit::Command("Cmd_CloseTees", &F::Cmd_CloseTees, [](F& f) { f.TeePanelShown = false; }),
      kit::Command("CmdNoTau", &F::CmdNoTau, &F::CmdNoTau_Click, " Μηδενισμός όλων των < ΤΑΥ > "),
      kit::Command("Cmd_Same", &F::Cmd_Same, &F::Cmd_Same_Click),
      kit::Label("Lbl_Same", &F::Lbl_Same),
      kit::Combo("CboSame", &F::CboSame, &F::CboSame_Click),
      kit::Command("CmdSaveF", &F::CmdSaveF, [](F&) {}),
  };
  return table;
}

FrmRavoAccessories::FrmRavoAccessories(Workspace& ws, StudyState& study, LevelState& levels,
                                       Prompter& prompter, FloorEntries& entries)
    : Dialog(kName), ws_(ws), st_(study), lv_(levels), prompter_(prompter), entries_(entries) {
  CboSame.Visible = Lbl_Same.Visible = false;
}

std::function<void()> FrmRavoAccessories::KeepOwnState() {
  return [this, kept = lv_, values = values_, shown = TeePanelShown] {
    lv_ = kept;
    values_ = values;
    TeePanelShown = shown;
  };
}

std::array<Field*, FrmRavoAccessories::kBoxes> FrmRavoAccessories::Boxes() {
  return {&Txt0,  &Txt1,  &Txt2,  &Txt6,  &Txt7,  &Txt8,  &Txt9, &Txt10,
          &Txt11, &Txt12, &Txt13, &Txt14, &Txt15, &Txt16, &Txt17};
}

void FrmRavoAccessories::Form_Load() {
  TeePanelShown = false;
  lv_.FittingsChanged = false;
  const std::string level = std::to_string(lv_.CurrentLevel);
  TxtFloorNo.Text = Txt_aa.Text = level;
  if (lv_.Correction != 0) lv_.Floor = ws_.Open(FloorsFile).Read(lv_.CurrentLevel);
  UpdateScreen();
  UpdateCboSame();
  GiveValuesToArray();
  Cmd_End.Text = lv_.Correction != 0 ? "Τέλος Διόρθωσης Εξαρτημάτων του Τμήματος"
                                     : "Τέλος Καταχώρησης Εξαρτημάτων του Τμήματος";
}

void FrmRavoAccessories::UpdateScreen() {
  const int16_t level = lv_.CurrentLevel;
  const int16_t n = LevelCount(ws_);
  if (lv_.Correction == 0) {
    if (n > 0 && level <= n) lv_.Floor = ws_.Open(FloorsFile).Read(level);
    Txt0.Text = level == 1 ? "ANT" : std::to_string(level - 1);
    Txt1.Text = std::to_string(level);
  } else {
    std::tie(Txt0.Text, Txt1.Text) = SectionNodes(lv_.Floor.SectionName);
  }
  if (level > n) {
    Txt2.Text.clear();
    for (Field* box : Boxes())
      if (box != &Txt0 && box != &Txt1 && box != &Txt2) box->Text = "0";
    return;
  }
  const LevelRecord& r = lv_.Floor;
  const Separators seps = st_.Seps();
  for (const auto& [box, field] : kDecimalBoxes) (this->*box).Text = CStrSingle(r.*field, seps);
  for (const auto& [box, field] : kCountBoxes) (this->*box).Text = std::to_string(r.*field);
}

void FrmRavoAccessories::UpdateCboSame() {
  CboSame.Items.clear();
  for (int16_t k = 1, n = LevelCount(ws_); k <= n; ++k) CboSame.Items.push_back(std::to_string(k));
  CboSame.Index = lv_.SameIndex < static_cast<int>(CboSame.Items.size()) ? lv_.SameIndex : -1;
}

void FrmRavoAccessories::GiveValuesToArray() {
  const auto boxes = Boxes();
  for (int i = 0; i < kBoxes; ++i) values_[i] = boxes[i]->Text;
}

bool FrmRavoAccessories::CheckForChanges() {
  const auto boxes = Boxes();
  for (int i = 0; i < kBoxes; ++i)
    if (values_[i] != boxes[i]->Text) return true;
  return false;
}

void FrmRavoAccessories::Add(Field& counter) {
  counter.Text = CStrDouble(Val(counter.Text) + 1, st_.Seps());
}

void FrmRavoAccessories::TeePicture(char letter) {
  switch (letter) {
    case 'A': case 'J': case 'K': case 'M': case 'R': Add(Txt12); break;
    case 'C': case 'L': case 'N': case 'P': Add(Txt11); break;
    case 'D': case 'E': Add(Txt14); break;
    case 'G': case 'H': Add(Txt13); break;
    case 'Q': case 'S': Add(Txt11), Add(Txt14); break;
    default: break;  // a situation with no tee loss
  }
  FocusOn(Txt15);
}

bool FrmRavoAccessories::KeyDown(const KeyStroke& key) {
  if (key.Code == KeyCode::Char && key.Shift && !key.Ctrl && !key.Alt) {
    const char32_t upper = key.Char >= U'a' && key.Char <= U'z' ? key.Char - 32 : key.Char;
    if (upper >= U'A' && upper <= U'T') {
      TeePicture(static_cast<char>(upper));
      return true;
    }
  }
  if (key.Code == KeyCode::Enter && (key.Ctrl || key.Alt)) {
    Cmd_End_Click();
    return true;
  }
  // Kept on purpose: the screen has no cancel, Esc does nothing; the close box leaves it.
  return key.Code == KeyCode::Escape;
}

void FrmRavoAccessories::CmdANT_Click() {
  if (lv_.CurrentLevel == 1) return;
  Txt1.Text = "ANT";
  FocusOn(Txt2);
}

void FrmRavoAccessories::CmdNoTau_Click() {
  for (Field* box : {&Txt11, &Txt12, &Txt13, &Txt14}) box->Text = "0";
}

void FrmRavoAccessories::Cmd_Same_Click() {
  if (lv_.CurrentLevel == 1) return;
  CboSame.Visible = Lbl_Same.Visible = true;
  Cmd_Same.Visible = false;
  CboSame.Index = lv_.SameIndex < static_cast<int>(CboSame.Items.size()) ? lv_.SameIndex : -1;
  FocusOn(CboSame);
}

void FrmRavoAccessories::CboSame_LostFocus() {
  CboSame.Visible = Lbl_Same.Visible = false;
  Cmd_Same.Visible = true;
}

void FrmRavoAccessories::CboSame_Click() {
  if (Val(CboSame.Text()) <= 0) return;
  lv_.SameIndex = CboSame.Index;
  lv_.Floor = ws_.Open(FloorsFile).Read(lv_.CurrentLevel);
  lv_.Floor.SectionNo = CInt(Val(Txt0.Text));
  lv_.Floor.SectionName = SectionNameOf(Txt0.Text, Txt1.Text, st_.Seps());
  // Kept on purpose: the fittings of the level chosen are not copied.
  st_.StudyChanged = -1;
}

void FrmRavoAccessories::Txt0_LostFocus() {
  if (lv_.CurrentLevel == 1) {
    Txt0.Text = "ANT";
  } else if (Val(Txt0.Text) == 0 && Txt0.Text != "ANT") {
    Txt0.Text.clear();
    FocusOn(Txt0);
  }
}

void FrmRavoAccessories::Txt1_LostFocus() {
  if (lv_.CurrentLevel == 1) {
    Txt1.Text = "1";
  } else if (Txt1.Text == Txt0.Text || (Val(Txt1.Text) == 0 && Txt1.Text != "ANT")) {
    Txt1.Text.clear();
    FocusOn(Txt1);
  }
}

void FrmRavoAccessories::Cmd_End_Click() {
  if (Trim(Txt2.Text).empty() || st_.Parse(Txt2.Text) == 0) return FocusOn(Txt2);
  for (Field* box : {&Txt2, &Txt6, &Txt7, &Txt16, &Txt17}) {
    int16_t flag = 0;
    if (CountDecimalSeparators(box->Text, st_.Seps(), flag) >= 2) {
      prompter_.Show(LevelMessageBox(LevelMessage::TwoDecimalSeparators));
      return FocusOn(*box);
    }
  }
  if (CheckForChanges()) {
    lv_.FittingsChanged = true;
    st_.StudyChanged = -1;
  }
  const int16_t previous = lv_.CurrentLevel;
  lv_.CurrentLevel = CInt(Val(Txt_aa.Text));
  SaveAccessoriesFloorData();
  lv_.CurrentLevel = previous;
  Accept();
}

void FrmRavoAccessories::SaveAccessoriesFloorData() {
  auto floors = ws_.Open(FloorsFile);
  const int16_t level = lv_.CurrentLevel;
  if (floors.Count() > 0) lv_.Floor = floors.Read(level);
  LevelRecord& r = lv_.Floor;
  r.RecNo = r.Level = level;
  r.SectionName = SectionNameOf(Txt0.Text, Txt1.Text, st_.Seps());
  for (const auto& [box, field] : kDecimalBoxes) r.*field = CSng(st_.Parse((this->*box).Text));
  for (const auto& [box, field] : kCountBoxes) r.*field = CInt(st_.Parse((this->*box).Text));
  entries_.ShowPipeLength(Txt2.Text);
  floors.Write(level, r);
}
