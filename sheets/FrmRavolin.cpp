#include "FrmRavolin.h"

#include <fstream>
#include <iterator>
#include <map>

#include "Checked.h"
#include "Cp1253.h"
#include "FrmOldStudy.h"
#include "RavoMessages.h"
#include "RuntimeFault.h"

namespace {

// A step of the start-up whose failure is reported without stopping the steps after it:
// a missing pipe list must not keep the engineer from the program.
template <class F>
void Guarded(CommandBoundary& boundary, F&& step) {
  try {
    step();
  } catch (const RuntimeFault& fault) {
    boundary.Report(fault);
  }
}

// The characters of a text as the old run-time counted them (one per character).
std::u32string Chars(const std::string& text) {
  return Utf8ToU32(text);
}

}  // namespace

const std::vector<HeaderCaption>& FrmRavolin::Captions() {
  static const std::vector<HeaderCaption> captions = {
      {"TxtThema", "LblThema", "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ : "},
      {"Txta_a", "Lbla_a", "ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ : "},
      {"TxtOwnership", "LblOwnership", "ΙΔΙΟΚΤΗΣΙΑ : "},
      {"TxtLoopNo", "LblLoopNo", "ΕΝΔΕΙΚΤΙΚΟΣ ΑΡΙΘΜΟΣ ΚΥΚΛΩΜΑΤΟΣ : "},
      {"TxtTempDrop", "LblTempDrop", "ΘΕΡΜΟΚΡΑΣΙΑΚΗ ΠΤΩΣΗ ΝΕΡΟΥ, ΣΤΟ ΚΥΚΛΩΜΑ :"},
      {"TxtOrigTemp", "LblOrigTemp", "ΘΕΡΜΟΚΡΑΣΙΑ ΕΙΣΟΔΟΥ ΤΟΥ ΝΕΡΟΥ ΣΤΟΝ ΒΡΟΧΟ :"},
      {"TxtLoopLength", "LblLoopLength", "ΣΥΝΟΛΙΚΟ ΜΗΚΟΣ ΒΡΟΧΟΥ :"},
      {"TxtOtherRes", "LblOtherRes", "ΙΣΟΔΥΝΑΜΟ ΜΗΚΟΣ ΕΙΔΙΚΩΝ ΤΟΠΙΚΩΝ ΑΝΤΙΣΤΑΣΕΩΝ ΒΡΟΧΟΥ :"},
      {"CboPipes", "LblPipes", "ΔΙΑΜΕΤΡΟΣ ΣΩΛΗΝΩΝ ΚΥΚΛΩΜΑΤΟΣ :"},
      {"CboSomata", "LblSomata", "ΚΑΤΗΓΟΡΙΑ ΘΕΡΜΑΝΤΙΚΩΝ ΣΩΜΑΤΩΝ :"},
      {"TxtLoopLoad", "LblLoopLoad", "ΘΕΡΜΙΚΟ ΦΟΡΤΙΟ ΚΥΚΛΩΜΑΤΟΣ : "},
      {"TxtFlow", "LblFlow", "ΠΑΡΟΧΗ ΝΕΡΟΥ : "},
      {"TxtVelocity", "LblVelocity", "ΤΑΧΥΤΗΤΑ ΡΟΗΣ :"},
      {"TxtSFR", "LblSFR", "ΕΙΔΙΚΗ ΑΝΤΙΣΤΑΣΗ ΡΟΗΣ :"},
  };
  return captions;
}

const std::vector<std::string>& FrmRavolin::ColumnHeads() {
  static const std::vector<std::string> heads = {
      "α/α ΣΩ-  ΜΑ-  ΤΟΣ",
      "ΑΠΩΛΕΙΕΣ ΠΡΟΣ ΚΑΛΥΨΗ    [Kcal/h]",
      "ΕΠΙΘ.  ΘΕΡΜ.  ΧΩ-  ΡΟΥ [°C]",
      "ΔΙΑΔΟΧΙΚΑ ΑΘΡΟΙ- ΣΜΑΤΑ ΦΟΡΤΙΩΝ    [Kcal/h]",
      "ΘΕΡΜ. ΕΙΣΟ- ΔΟΥ ΝΕΡΟΥ ΣΤΟ ΣΩΜΑ   [°C]",
      "ΘΕΡΜ. ΕΞΟ- ΔΟΥ ΝΕΡΟΥ ΑΠ'ΤΟ ΣΩΜΑ   [°C]",
      "ΜΕΣΗ ΘΕΡΜ. ΤΟΥ ΝΕΡΟΥ  ΣΤΟ ΣΩΜΑ   [°C]",
      "ΣΥΝΤ. ΔΙΟΡ- ΘΩ- ΣΗΣ",
      "ΙΣΟΔ. ΘΕΡΜ. ΦΟΡΤΙΟ ΥΠΟ ΣΥΝΘ. 80/20    [Kcal/h]",
      "ΤΥΠΟΣ ΘΕΡΜΑ- ΝΤΙΚΟΥ ΣΩΜΑ- ΤΟΣ",
      "ΘΕΡΜΑΝΤΙΚΟ  ΣΩΜΑ",
      "ΠΡΑΓΜΑ- ΤΙΚΗ ΑΠΟΔΟΣΗ ΣΩΜΑΤΟΣ  [Kcal/h]",
      "ΕΠΙΦΑ- ΝΕΙΑ ΣΩΜΑ- ΤΟΣ [m²]",
      "ΜΗΚΟΣ ΣΩΜΑ- ΤΟΣ [m]",
  };
  return heads;
}

const std::vector<FrmRavolin::CommandButton>& FrmRavolin::CommandButtons() {
  static const std::vector<CommandButton> buttons = {
      {"CmdCalc", &FrmRavolin::CmdCalc, kCalcTip},
      {"CmdAddSpaces", &FrmRavolin::CmdAddSpaces, "ΠΡΟΣΘΗΚΗ ΧΩΡΩΝ ή ΣΩΜΑΤΩΝ ΣΤΟ ΚΥΚΛΩΜΑ, < + >"},
      {"CmdRemoveSpaces", &FrmRavolin::CmdRemoveSpaces,
       "ΔΙΑΓΡΑΦΗ ΧΩΡΩΝ ή ΣΩΜΑΤΩΝ ΑΠΟ ΤΟ ΚΥΚΛΩΜΑ, < - >"},
      {"CmdOneRowUp", &FrmRavolin::CmdOneRowUp, "ΠΡΟΩΘΗΣΗ ΣΕΙΡΑΣ ΔΕΔΟΜΕΝΩΝ, ΠΡΟΣ ΤΑ ΑΝΩ"},
      {"CmdOneRowDn", &FrmRavolin::CmdOneRowDn, "ΠΡΟΩΘΗΣΗ ΣΕΙΡΑΣ ΔΕΔΟΜΕΝΩΝ, ΠΡΟΣ ΤΑ ΚΑΤΩ"},
      {"CmdPaste", &FrmRavolin::CmdPaste,
       "ΕΠΙΚΟΛΛΗΣΗ ΤΗΣ ΑΝΩ ΣΕΙΡΑΣ (Paste Uper Row)  - ή πλήκτρο < F5 >"},
      {"CmdEditCols", &FrmRavolin::CmdEditCols, ""},
      {"CmdDeleteRow", &FrmRavolin::CmdDeleteRow, "ΔΙΑΓΡΑΦΗ ΣΕΙΡΑΣ ΑΠΟ ΤΟ SpreadSheet"},
      {"CmdDeleteColumn", &FrmRavolin::CmdDeleteColumn, "ΔΙΑΓΡΑΦΗ ΣΤΗΛΗΣ ΑΠΟ ΤΟ SpreadSheet"},
      {"CmdFirst", &FrmRavolin::CmdFirst, "ΠΡΩΤΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΟΥ, < Ctrl-Home >"},
      {"CmdPrev", &FrmRavolin::CmdPrev, "ΠΡΟΗΓΟΥΜΕΝΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΟΥ, < PgUp >"},
      {"CmdNext", &FrmRavolin::CmdNext, "ΕΠΟΜΕΝΟ ΦΥΛΛΟ ή ΝΕΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΟΥ, < PgDn >"},
      {"CmdLast", &FrmRavolin::CmdLast, "ΤΕΛΕΥΤΑΙΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΟΥ, < Ctrl-End >"},
      {"CmdDeleteSheet", &FrmRavolin::CmdDeleteSheet, "ΔΙΑΓΡΑΦΗ ΟΛΟΚΛΗΡΟΥ ΤΟΥ ΦΥΛΛΟΥ ΥΠΟΛΟΓΙΣΜΩΝ"},
      {"CmdSave", &FrmRavolin::CmdSave,
       "ΔΗΜΙΟΥΡΓΙΑ ΑΡΧΕΙΟΥ ΜΟΝΟΣΩΛΗΝΙΟΥ, < Ctrl-S > ή  < Shift-F12 >"},
      {"CmdOpen", &FrmRavolin::CmdOpen, "ΑΝΑΚΛΗΣΗ ΑΡΧΕΙΟΥ ΜΟΝΟΣΩΛΗΝΙΟΥ, < Ctrl-O >"},
      {"CmdNew", &FrmRavolin::CmdNew, "ΝΕΑ ΜΕΛΕΤΗ"},
      {"Cmd_Client", &FrmRavolin::Cmd_Client, "ΕΠΙΛΟΓΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ"},
  };
  return buttons;
}

FrmRavolin::FrmRavolin(Workspace& workspace, StudyState& state, Prompter& prompter,
                       Platform& platform, CommandBoundary& boundary, Screens& screens)
    : ws_(workspace),
      st_(state),
      prompter_(prompter),
      platform_(platform),
      boundary_(boundary),
      sizing_(workspace, state),
      screens_(screens) {
  Caption.Text = kCaption;
  for (auto* output : {&Txta_a, &TxtLoopLoad, &TxtFlow, &TxtVelocity, &TxtSFR})
    output->Enabled = false;  // shown, never typed into
  BuildControls();
}

// The load of the main screen, in the order the engineer has always seen it.
void FrmRavolin::Form_Load() {
  TestResolution();
  BuildGrid();
  FindSeparators();
  SetStartValues();
  Guarded(boundary_, [&] { LoadPipeList(); });
  TxtThema.Text = kDefaultThema;
  Guarded(boundary_, [&] { RenameFiles(ws_, ".rvo", ".jpg"); });
  Guarded(boundary_, [&] { TestSomaFiles(); });
  Guarded(boundary_, [&] { LookForStudyLeftBehind(); });
  FocusTarget = "Grid";
}

void FrmRavolin::TestResolution() {
  // Kept on purpose: only a display short in both directions is warned about.
  const DisplaySize display = platform_.Display();
  if (display.Width < 1024 && display.Height < 768)
    prompter_.Show(RavoMessageBox(RavoMessage::ScreenTooSmall));
}

void FrmRavolin::BuildGrid() {
  const auto& heads = ColumnHeads();
  for (int col = 1; col <= kGridCols; ++col) Grid.SetHead(col, heads[col - 1]);
}

void FrmRavolin::FindSeparators() {
  st_.SetSeparators(platform_.NumberSeparators());
}

void FrmRavolin::SetStartValues() {
  st_.CurrentSheet = 1;
  Txta_a.Text = "1";
  TxtOrigTemp.Text = "85";
  st_.ColumnsEditable = -1;
  TxtTempDrop.Text = "20";
}

void FrmRavolin::LoadPipeList() {
  CboPipes.Items.clear();
  CboPipes.Index = -1;
  const auto path = ws_.PathOf(kPipeListFile);
  std::ifstream in(path, std::ios::binary);
  if (!in) throw RuntimeFault(FaultCode::FileNotFound, kPipeListFile);
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::size_t start = 0;
  while (start < bytes.size()) {
    std::size_t end = bytes.find('\n', start);
    if (end == std::string::npos) end = bytes.size();
    std::string line = bytes.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    CboPipes.Items.push_back(Cp1253ToUtf8(line));
    start = end + 1;
  }
  if (CboPipes.Items.empty())
    throw RuntimeFault(FaultCode::InvalidCall,
                       std::string(kPipeListFile) + ": δεν περιέχει καμία διάμετρο σωλήνα");
  CboPipes.Index = 0;
  FindPipeArea(CboPipes.Items.front());
}

// "Φ16x1": letter, outer diameter in mm, "x", wall in mm. Only the last character is read as
// the wall, so a wall must be a single digit; the value 3.14159 stands as it is.
void FrmRavolin::FindPipeArea(const std::string& pipeName) {
  const std::u32string name = Chars(pipeName);
  const std::size_t x = name.find(U'x');
  // The old routine took the text between the first character and the "x"; without an "x"
  // (or with the "x" first) that length is negative, which the run-time refused.
  if (x == std::u32string::npos || x < 1)
    throw RuntimeFault(FaultCode::InvalidCall, "ΔΙΑΜΕΤΡΟΣ ΣΩΛΗΝΑ : \"" + pipeName + "\"");
  const double wall = Val(U32ToUtf8(name.substr(name.size() - 1)));
  const double outer = st_.Parse(U32ToUtf8(name.substr(1, x - 1)));
  PipeInnerDiameter = static_cast<float>((outer - 2 * wall) / 1000);
  const double d = PipeInnerDiameter;
  st_.PipeArea = static_cast<float>(d * d * (3.14159 / 4));
}

void FrmRavolin::LookForStudyLeftBehind() {
  const auto [sheetsExist, sheetsSize] = ws_.FileExistsAndSize("SHEETS.TMP");
  const auto [loopsExist, loopsSize] = ws_.FileExistsAndSize("LOOPS.TMP");
  if (sheetsExist && sheetsSize > 0 && loopsExist && loopsSize > 0) {
    // A study left behind by a run that did not end normally.
    FrmOldStudy old(*this, ws_);
    screens_.ShowModal(old);
    return;
  }
  const bool sheetsWithoutRows = sheetsExist && sheetsSize > 0 && loopsExist && loopsSize == 0;
  const bool emptySheets = sheetsExist && sheetsSize == 0;
  if (sheetsWithoutRows || emptySheets) KillRavoTemporaries(ws_);
}

bool FrmRavolin::AskYes(RavoMessage code) {
  RavoMessages(code, prompter_, st_);
  const bool yes = st_.LastAnswer == "YES";
  st_.LastAnswer.clear();
  return yes;
}

void FrmRavolin::Form_Unload() {
  if (Grid.DataRowCount() > 0) OfferToSave();
  KillRavoTemporaries(ws_);
  RenameFiles(ws_, ".jpg", ".rvo");
  closed_ = true;
}

bool FrmRavolin::Form_KeyDown(const KeyStroke& key) {
  const bool plain = !key.Ctrl && !key.Shift && !key.Alt;
  if (key.Code == KeyCode::F1 && plain) {
    ShowManual();
    return true;
  }
  if (key.Ctrl && !key.Shift && !key.Alt && key.Code == KeyCode::Home) {
    CmdFirst_Click();
    return true;
  }
  if (key.Ctrl && !key.Shift && !key.Alt && key.Code == KeyCode::End) {
    CmdLast_Click();
    return true;
  }
  const bool saveKey =
      (key.Ctrl && !key.Shift && !key.Alt && key.Code == KeyCode::Char && key.Char == U'S') ||
      (key.Shift && !key.Ctrl && !key.Alt && key.Code == KeyCode::F12);
  if (saveKey) {
    CmdSave_Click();
    return true;
  }
  if (key.Ctrl && !key.Shift && !key.Alt && key.Code == KeyCode::Char && key.Char == U'O') {
    CmdOpen_Click();
    return true;
  }
  if (!plain) return false;
  switch (key.Code) {
    case KeyCode::F10:
      CmdCalc_Click();
      return true;
    case KeyCode::PageDown:
      CmdNext_Click();
      return true;
    case KeyCode::PageUp:
      CmdPrev_Click();
      return true;
    case KeyCode::F5:
      KeyF5();
      return true;
    case KeyCode::F2:
      CmdEditCols_Click();
      return true;
    case KeyCode::NumPlus:
      CmdAddSpaces_Click();
      return true;
    case KeyCode::NumMinus:
      CmdRemoveSpaces_Click();
      return true;
    default:
      return false;
  }
}

void FrmRavolin::ShowManual() {
  if (ws_.FileExists(kManualFile)) platform_.OpenDocument(ws_.PathOf(kManualFile));
}

void FrmRavolin::BuildControls() {
  controls_["Caption"] = LabelControl(Caption);
  const std::vector<std::pair<const char*, Field*>> inputs = {
      {"TxtThema", &TxtThema},       {"TxtOwnership", &TxtOwnership},
      {"TxtLoopNo", &TxtLoopNo},     {"TxtTempDrop", &TxtTempDrop},
      {"TxtOrigTemp", &TxtOrigTemp}, {"TxtLoopLength", &TxtLoopLength},
      {"TxtOtherRes", &TxtOtherRes}};
  for (const auto& [name, field] : inputs) controls_[name] = TextBoxControl(*field, EventsOf(name));
  const std::vector<std::pair<const char*, Field*>> outputs = {{"Txta_a", &Txta_a},
                                                               {"TxtLoopLoad", &TxtLoopLoad},
                                                               {"TxtFlow", &TxtFlow},
                                                               {"TxtVelocity", &TxtVelocity},
                                                               {"TxtSFR", &TxtSFR}};
  for (const auto& [name, field] : outputs) controls_[name] = LabelControl(*field);
  static std::vector<Field> captionFields;  // the captions never change
  if (captionFields.empty())
    for (const auto& c : Captions()) captionFields.push_back(Field{c.Text});
  for (std::size_t i = 0; i < Captions().size(); ++i)
    controls_[Captions()[i].Label] = LabelControl(captionFields[i]);
  controls_["CboPipes"] = ComboControl(CboPipes, [] {});  // no change handler, kept on purpose
  controls_["CboSomata"] = ComboControl(CboSomata, [this] { CboSomata_Click(); });
  const std::map<std::string, std::function<void()>> clicks = {
      {"CmdCalc", [this] { CmdCalc_Click(); }},
      {"CmdAddSpaces", [this] { CmdAddSpaces_Click(); }},
      {"CmdRemoveSpaces", [this] { CmdRemoveSpaces_Click(); }},
      {"CmdOneRowUp", [this] { CmdOneRowUp_Click(); }},
      {"CmdOneRowDn", [this] { CmdOneRowDn_Click(); }},
      {"CmdPaste", [this] { CmdPaste_Click(); }},
      {"CmdEditCols", [this] { CmdEditCols_Click(); }},
      {"CmdDeleteRow", [this] { CmdDeleteRow_Click(); }},
      {"CmdDeleteColumn", [this] { CmdDeleteColumn_Click(); }},
      {"CmdFirst", [this] { CmdFirst_Click(); }},
      {"CmdPrev", [this] { CmdPrev_Click(); }},
      {"CmdNext", [this] { CmdNext_Click(); }},
      {"CmdLast", [this] { CmdLast_Click(); }},
      {"CmdDeleteSheet", [this] { CmdDeleteSheet_Click(); }},
      {"CmdSave", [this] { CmdSave_Click(); }},
      {"CmdOpen", [this] { CmdOpen_Click(); }},
      {"CmdNew", [this] { CmdNew_Click(); }},
      {"Cmd_Client", [this] { Cmd_Client_Click(); }}};
  for (const CommandButton& b : CommandButtons())
    controls_[b.Name] = CommandControl(this->*b.Button, clicks.at(b.Name));
  Control grid;
  grid.Grid = &Grid;
  grid.EditCell = [this](int r, int c, const std::string& t) { Grid_EditCell(r, c, t); };
  grid.ClickCell = [this](int r, int c) { Grid_Click(r, c); };
  grid.MarkBlock = [this](CellBlock b) { Grid_MarkBlock(b); };
  controls_["Grid"] = grid;
}
