#include "FrmRavolin.h"

#include <fstream>
#include <iterator>
#include <map>

#include "Checked.h"
#include "Cp1253.h"
#include "FrmOldStudy.h"
#include "RavoMessages.h"
#include "RuntimeFault.h"
#include "WorkingFiles.h"

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

const ControlTable<FrmRavolin>& FrmRavolin::Table() {
  using F = FrmRavolin;
  static const ControlTable<F> table = {
      kit::Label("Caption", &F::Caption),
      kit::TextBox("TxtThema", &F::TxtThema,
                   {&F::TxtThema_GotFocus, nullptr, &F::TxtThema_LostFocus}),
      kit::TextBox("TxtOwnership", &F::TxtOwnership,
                   {&F::TxtOwnership_GotFocus, &F::TxtOwnership_KeyPress, nullptr}),
      kit::TextBox("TxtLoopNo", &F::TxtLoopNo,
                   {&F::TxtLoopNo_GotFocus, &F::TxtLoopNo_KeyPress, nullptr}),
      kit::TextBox("TxtTempDrop", &F::TxtTempDrop,
                   {&F::TxtTempDrop_GotFocus, &F::TxtTempDrop_KeyPress, &F::TxtTempDrop_LostFocus}),
      kit::TextBox("TxtOrigTemp", &F::TxtOrigTemp,
                   {&F::TxtOrigTemp_GotFocus, &F::TxtOrigTemp_KeyPress, &F::TxtOrigTemp_LostFocus}),
      kit::TextBox(
          "TxtLoopLength", &F::TxtLoopLength,
          {&F::TxtLoopLength_GotFocus, &F::TxtLoopLength_KeyPress, &F::TxtLoopLength_LostFocus}),
      kit::TextBox("TxtOtherRes", &F::TxtOtherRes,
                   {&F::TxtOtherRes_GotFocus, &F::TxtOtherRes_KeyPress, &F::TxtOtherRes_LostFocus}),
      // Results: shown in boxes, never typed into.
      kit::Label("Txta_a", &F::Txta_a),
      kit::Label("TxtLoopLoad", &F::TxtLoopLoad),
      kit::Label("TxtFlow", &F::TxtFlow),
      kit::Label("TxtVelocity", &F::TxtVelocity),
      kit::Label("TxtSFR", &F::TxtSFR),
      kit::Label("LblThema", &F::LblThema),
      kit::Label("Lbla_a", &F::Lbla_a),
      kit::Label("LblOwnership", &F::LblOwnership),
      kit::Label("LblLoopNo", &F::LblLoopNo),
      kit::Label("LblTempDrop", &F::LblTempDrop),
      kit::Label("LblOrigTemp", &F::LblOrigTemp),
      kit::Label("LblLoopLength", &F::LblLoopLength),
      kit::Label("LblOtherRes", &F::LblOtherRes),
      kit::Label("LblPipes", &F::LblPipes),
      kit::Label("LblSomata", &F::LblSomata),
      kit::Label("LblLoopLoad", &F::LblLoopLoad),
      kit::Label("LblFlow", &F::LblFlow),
      kit::Label("LblVelocity", &F::LblVelocity),
      kit::Label("LblSFR", &F::LblSFR),
      kit::Combo("CboPipes", &F::CboPipes),  // no change handler, kept on purpose
      kit::Combo("CboSomata", &F::CboSomata, &F::CboSomata_Click),
      kit::Command("CmdCalc", &F::CmdCalc, &F::CmdCalc_Click, kCalcTip),
      kit::Command("CmdAddSpaces", &F::CmdAddSpaces, &F::CmdAddSpaces_Click,
                   "ΠΡΟΣΘΗΚΗ ΧΩΡΩΝ ή ΣΩΜΑΤΩΝ ΣΤΟ ΚΥΚΛΩΜΑ, < + >"),
      kit::Command("CmdRemoveSpaces", &F::CmdRemoveSpaces, &F::CmdRemoveSpaces_Click,
                   "ΔΙΑΓΡΑΦΗ ΧΩΡΩΝ ή ΣΩΜΑΤΩΝ ΑΠΟ ΤΟ ΚΥΚΛΩΜΑ, < - >"),
      kit::Command("CmdOneRowUp", &F::CmdOneRowUp, &F::CmdOneRowUp_Click,
                   "ΠΡΟΩΘΗΣΗ ΣΕΙΡΑΣ ΔΕΔΟΜΕΝΩΝ, ΠΡΟΣ ΤΑ ΑΝΩ"),
      kit::Command("CmdOneRowDn", &F::CmdOneRowDn, &F::CmdOneRowDn_Click,
                   "ΠΡΟΩΘΗΣΗ ΣΕΙΡΑΣ ΔΕΔΟΜΕΝΩΝ, ΠΡΟΣ ΤΑ ΚΑΤΩ"),
      kit::Command("CmdPaste", &F::CmdPaste, &F::CmdPaste_Click,
                   "ΕΠΙΚΟΛΛΗΣΗ ΤΗΣ ΑΝΩ ΣΕΙΡΑΣ (Paste Uper Row)  - ή πλήκτρο < F5 >"),
      kit::Command("CmdEditCols", &F::CmdEditCols, &F::CmdEditCols_Click),
      kit::Command("CmdDeleteRow", &F::CmdDeleteRow, &F::CmdDeleteRow_Click,
                   "ΔΙΑΓΡΑΦΗ ΣΕΙΡΑΣ ΑΠΟ ΤΟ SpreadSheet"),
      kit::Command("CmdDeleteColumn", &F::CmdDeleteColumn, &F::CmdDeleteColumn_Click,
                   "ΔΙΑΓΡΑΦΗ ΣΤΗΛΗΣ ΑΠΟ ΤΟ SpreadSheet"),
      kit::Command("CmdFirst", &F::CmdFirst, &F::CmdFirst_Click,
                   "ΠΡΩΤΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΟΥ, < Ctrl-Home >"),
      kit::Command("CmdPrev", &F::CmdPrev, &F::CmdPrev_Click,
                   "ΠΡΟΗΓΟΥΜΕΝΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΟΥ, < PgUp >"),
      kit::Command("CmdNext", &F::CmdNext, &F::CmdNext_Click,
                   "ΕΠΟΜΕΝΟ ΦΥΛΛΟ ή ΝΕΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΟΥ, < PgDn >"),
      kit::Command("CmdLast", &F::CmdLast, &F::CmdLast_Click,
                   "ΤΕΛΕΥΤΑΙΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΟΥ, < Ctrl-End >"),
      kit::Command("CmdDeleteSheet", &F::CmdDeleteSheet, &F::CmdDeleteSheet_Click,
                   "ΔΙΑΓΡΑΦΗ ΟΛΟΚΛΗΡΟΥ ΤΟΥ ΦΥΛΛΟΥ ΥΠΟΛΟΓΙΣΜΩΝ"),
      kit::Command("CmdSave", &F::CmdSave, &F::CmdSave_Click,
                   "ΔΗΜΙΟΥΡΓΙΑ ΑΡΧΕΙΟΥ ΜΟΝΟΣΩΛΗΝΙΟΥ, < Ctrl-S > ή  < Shift-F12 >"),
      kit::Command("CmdOpen", &F::CmdOpen, &F::CmdOpen_Click,
                   "ΑΝΑΚΛΗΣΗ ΑΡΧΕΙΟΥ ΜΟΝΟΣΩΛΗΝΙΟΥ, < Ctrl-O >"),
      kit::Command("CmdNew", &F::CmdNew, &F::CmdNew_Click, "ΝΕΑ ΜΕΛΕΤΗ"),
      kit::Command("Cmd_Client", &F::Cmd_Client, &F::Cmd_Client_Click, "ΕΠΙΛΟΓΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ"),
      kit::Grid("Grid", &F::Grid, {&F::Grid_EditCell, &F::Grid_Click, &F::Grid_MarkBlock}),
  };
  return table;
}

FrmRavolin::FrmRavolin(Workspace& workspace, StudyState& state, Prompter& prompter,
                       Platform& platform, CommandBoundary& boundary, Screens& screens)
    : Screen(kName),
      ws_(workspace),
      st_(state),
      prompter_(prompter),
      platform_(platform),
      boundary_(boundary),
      sizing_(workspace, state),
      screens_(screens) {
  Caption.Text = kCaption;
  for (auto* output : {&Txta_a, &TxtLoopLoad, &TxtFlow, &TxtVelocity, &TxtSFR})
    output->Enabled = false;  // shown, never typed into
}

std::function<void()> FrmRavolin::KeepOwnState() {
  return [this, kept = std::tuple(LoopTotalLoad, PipeInnerDiameter, InCalculation, OldTempDrop,
                                  OldOrigTemp, OldRoomTemp, OldLoad, AddedLoad, SelectionBlock,
                                  SomaSortKeys, CboSomataSetByProgram, oldThema_,
                                  otherSheetsWaterKnown_, cboSomataGoingBack_)] {
    std::tie(LoopTotalLoad, PipeInnerDiameter, InCalculation, OldTempDrop, OldOrigTemp, OldRoomTemp,
             OldLoad, AddedLoad, SelectionBlock, SomaSortKeys, CboSomataSetByProgram, oldThema_,
             otherSheetsWaterKnown_, cboSomataGoingBack_) = kept;
  };
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
  // A save that a crash interrupted is finished, or undone, before anything lists the studies.
  Guarded(boundary_, [&] { ws_.CompleteFileSets(Workspace::kStudiesFolder); });
  Guarded(boundary_, [&] { LookForStudyLeftBehind(); });
  FocusOn(Grid);
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
  const std::optional<std::string> read = ws_.ReadWholeFile(kPipeListFile);
  if (!read) throw RuntimeFault(FaultCode::FileNotFound, kPipeListFile);
  const std::string& bytes = *read;
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
  PipeInnerDiameter = CSng((outer - 2 * wall) / 1000);
  const double d = PipeInnerDiameter;
  st_.PipeArea = CSng(d * d * (3.14159 / 4));
}

void FrmRavolin::LookForStudyLeftBehind() {
  const auto [sheetsExist, sheetsSize] = ws_.FileExistsAndSize(SheetsFile.Name);
  const auto [loopsExist, loopsSize] = ws_.FileExistsAndSize(LoopsFile.Name);
  if (sheetsExist && sheetsSize > 0 && loopsExist && loopsSize > 0) {
    // A study left behind by a run that did not end normally.
    FrmOldStudy old(*this, ws_);
    old.Open(screens_);
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
  Close();
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
  // No manual, no box; a manual that nothing on the desktop can open is said so.
  if (!ws_.FileExists(kManualFile)) return;
  if (!platform_.OpenDocument(ws_.PathOf(kManualFile)))
    prompter_.Show(RavoMessageBox(RavoMessage::ManualNotOpened));
}
