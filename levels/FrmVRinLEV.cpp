#include "FrmVRinLEV.h"

#include <algorithm>

#include "Checked.h"
#include "Cp1253.h"
#include "LevelMessages.h"
#include "LevelSheets.h"
#include "Numbers.h"
#include "RuntimeFault.h"

namespace {

constexpr const char* kDataExist =
    "... Υπάρχουν Δεδομένα Κατανομής Βρόχων στα Επίπεδα, καθώς και Μήκη και Εξαρτήματα τού "
    "Δικτύου των Τροφοδοτικών Σωλήνων ...";

bool StartsWithDigit(const std::string& text) {
  return !text.empty() && text[0] >= '0' && text[0] <= '9';
}

// The number an entry of the lists names: what follows its ":".
int16_t NumberOf(const std::string& entry) {
  const std::size_t colon = entry.find(':');
  return CInt(Val(colon == std::string::npos ? std::string() : entry.substr(colon + 1)));
}

std::string Joined(const std::vector<std::string>& entries) {
  std::string list;
  for (const std::string& entry : entries)
    list += (list.empty() ? "" : ",") + std::to_string(NumberOf(entry));
  return list;
}

}  // namespace

const ControlTable<FrmVRinLEV>& FrmVRinLEV::Table() {
  using F = FrmVRinLEV;
  static const ControlTable<F> table = {
      kit::Label("Caption", &F::Caption),
      kit::Label("LblLevels", &F::LblLevels),
      kit::TextBox<F>("TxtLevels", &F::TxtLevels,
                      {.GotFocus = {},
                       .KeyPress =
                           [](F& f, char32_t ch) {
                             if (ch == 13) f.FocusOn(f.CboLevels);
                             return (ch >= U'0' && ch <= U'9') || ch == 8;
                           },
                       .LostFocus = &F::TxtLevels_LostFocus}),
      kit::Combo("CboLevels", &F::CboLevels, &F::CboLevels_Click),
      kit::List("LstVroxoi", &F::LstVroxoi),
      kit::List("LstUsedVroxoi", &F::LstUsedVroxoi),
      kit::Command("CmdGive", &F::CmdGive, &F::CmdGive_Click,
                   " Ο ΒΡΟΧΟΣ ή ΟΙ ΒΡΟΧΟΙ, ΘΑ ΑΝΗΚΟΥΝ ΣΤΟ < ΤΡΕΧΟΝ > ΕΠΙΠΕΔΟ "),
      kit::Command("CmdTakeBack", &F::CmdTakeBack, &F::CmdTakeBack_Click,
                   " Ο ΒΡΟΧΟΣ ή ΟΙ ΒΡΟΧΟΙ ΘΑ ΑΦΑΙΡΕΘΟΥΝ ΑΠΟ ΤΟ < ΤΡΕΧΟΝ > ΕΠΙΠΕΔΟ "),
      kit::Command("CmdReset", &F::CmdReset, &F::CmdReset_Click),
      kit::Command("CmdOK", &F::CmdOK, &F::CmdOK_Click),
      kit::Label("LblError", &F::LblError),
  };
  return table;
}

FrmVRinLEV::FrmVRinLEV(Workspace& ws, StudyState& study, LevelState& levels, Prompter& prompter,
                       FloorEntries& entries)
    : Dialog(kName), ws_(ws), st_(study), lv_(levels), prompter_(prompter), entries_(entries) {
  LstVroxoi.MultiSelect = LstUsedVroxoi.MultiSelect = true;
  LblError.Visible = false;
}

std::function<void()> FrmVRinLEV::KeepOwnState() {
  return [this, kept = lv_, blinking = Blinking] {
    lv_ = kept;
    Blinking = blinking;
  };
}

std::vector<std::string> FrmVRinLEV::AllSheetEntries() const {
  std::vector<std::string> entries;
  const int32_t count = ws_.Open(SheetsFile, RecordFileMode::ReadOnly).Count();
  for (int32_t n = 1; n <= count; ++n) entries.push_back(kSheetEntry + st_.Format(n, "000"));
  return entries;
}

int16_t FrmVRinLEV::LevelsTyped() const { return CInt(Val(TxtLevels.Text)); }

void FrmVRinLEV::Form_Load() {
  if (DeleteEmptyFloorsFile(ws_)) LblError.Visible = false;
  const int16_t n = LevelCount(ws_);
  if (n > 0 && lv_.Correction != 0) {
    TxtLevels.Text = std::to_string(n);
    CboLevels.Items.clear();
    for (int16_t k = 1; k <= n; ++k) CboLevels.Items.push_back(kLevelEntry + std::to_string(k));
    LstVroxoi.Enabled = false;
    ChooseFirstLevel();
    LblError.Text = kDataExist;
    LblError.Visible = true;
  }
  // Kept on purpose: sheets already on a level stay in the list; the disabled list says that
  // a Reset comes before a new distribution.
  LstVroxoi.SetItems(AllSheetEntries());
}

void FrmVRinLEV::ChooseFirstLevel() {
  if (CboLevels.Items.empty()) return;  // an empty list's failure to select is ignored
  CboLevels.Index = 0;
  CboLevels_Click();
}

void FrmVRinLEV::FocusBack() {
  if (LevelsTyped() == 0) return FocusOn(TxtLevels);
  FocusOn(CboLevels);
}

void FrmVRinLEV::TxtLevels_LostFocus() {
  const int16_t typed = LevelsTyped();
  const int16_t n = LevelCount(ws_);
  if (typed != n && n != 0 && lv_.Correction != 0) {
    if (prompter_.Show(LevelMessageBox(LevelMessage::ChangeLevelCount)) == Answer::Yes) {
      DeleteEverything();
      LblError.Visible = false;
    }
  }
  CboLevels.Items.clear();
  CboLevels.Index = -1;
  for (int16_t k = 1; k <= typed; ++k) CboLevels.Items.push_back(kLevelEntry + std::to_string(k));
  ChooseFirstLevel();
  Blinking = typed == 0;
}

void FrmVRinLEV::CboLevels_Click() {
  if (CboLevels.Index < 0) return ChooseFirstLevel();
  const int16_t level = static_cast<int16_t>(CboLevels.Index + 1);
  lv_.CurrentLevel = level;
  DeleteEmptyFloorsFile(ws_);
  bool isNew = false;
  const int16_t n = LevelCount(ws_);
  if (n > 0) {
    if (level > n) {
      isNew = true;
      lv_.Floor.SheetList.clear();
      lv_.Floor.RecNo = level;
    } else {
      lv_.Floor = ws_.Open(FloorsFile).Read(level);
    }
  }
  if (!isNew && StartsWithDigit(lv_.Floor.SheetList)) return Analyze_and_PutOnData();
  LstUsedVroxoi.SetItems({});
}

void FrmVRinLEV::Analyze_and_PutOnData() {
  std::vector<std::string> entries;
  std::string digits;
  const std::string list = Trim(lv_.Floor.SheetList) + ",";
  for (const char ch : list) {
    if (ch >= '0' && ch <= '9') digits += ch;
    if (ch != ',') continue;
    entries.push_back(kSheetEntry + st_.Format(Val(digits), "000"));
    digits.clear();
  }
  LstUsedVroxoi.SetItems(std::move(entries));
}

std::string FrmVRinLEV::AnalyzeAndShortSheets(const std::string& list) {
  if (Trim(list).empty()) return {};
  std::vector<std::string> keys;
  for (const int16_t number : ParseSheetList(list)) {
    const std::string digits = std::to_string(number);
    // The key is padded with String(2 - length, "0"): a third digit is an invalid call.
    if (digits.size() > 2) throw RuntimeFault(FaultCode::InvalidCall, "Φύλλο " + digits);
    keys.push_back(std::string(2 - digits.size(), '0') + digits);
  }
  std::sort(keys.begin(), keys.end());
  std::string sorted;
  for (const std::string& key : keys)
    sorted += (sorted.empty() ? "" : ",") + std::to_string(CInt(Val(key)));
  return sorted;
}

void FrmVRinLEV::PutLevelList(int16_t level, const std::string& list, bool keepOld) {
  auto floors = ws_.Open(FloorsFile);
  if (level <= floors.Count()) lv_.Floor = floors.Read(level);
  const std::string& old = lv_.Floor.SheetList;
  const bool oldBlank = Trim(old).empty() || old[0] == '\0';
  lv_.Floor.SheetList = AnalyzeAndShortSheets(keepOld && !oldBlank ? old + "," + list : list);
  lv_.Floor.RecNo = level;
  const auto sheets = ws_.Open(SheetsFile, RecordFileMode::ReadOnly);
  if (sheets.Count() > 0) lv_.Floor.StudyTitle = sheets.Read(sheets.Count()).Thema;
  floors.Write(level, lv_.Floor);
  lv_.Floor.SheetList.clear();
  FocusOn(CboLevels);
}

bool FrmVRinLEV::GuardsPass(const ListBox& from) {
  if (!LstVroxoi.Enabled) {
    FocusOn(CboLevels);
    return false;
  }
  if (CboLevels.Index < 0) {
    CboLevels.Items.empty() ? FocusOn(TxtLevels) : FocusOn(CboLevels);
    return false;
  }
  return from.SelectedIndex() >= 0;
}

std::vector<std::string> FrmVRinLEV::MoveSelected(ListBox& from, ListBox& to) {
  std::vector<std::string> moved, stay, grown = to.Items;
  for (std::size_t i = 0; i < from.Items.size(); ++i)
    (from.Selected[i] ? moved : stay).push_back(from.Items[i]);
  grown.insert(grown.end(), moved.begin(), moved.end());
  to.SetItems(std::move(grown));
  from.SetItems(stay);
  return moved;
}

void FrmVRinLEV::CmdGive_Click() {
  if (!GuardsPass(LstVroxoi)) return;
  const std::vector<std::string> given = MoveSelected(LstVroxoi, LstUsedVroxoi);
  PutLevelList(NumberOf(CboLevels.Text()), Joined(given), true);
}

void FrmVRinLEV::CmdTakeBack_Click() {
  if (!GuardsPass(LstUsedVroxoi)) return;
  MoveSelected(LstUsedVroxoi, LstVroxoi);
  PutLevelList(NumberOf(CboLevels.Text()), Joined(LstUsedVroxoi.Items), false);
}

void FrmVRinLEV::CmdReset_Click() {
  const int16_t n = LevelCount(ws_);
  if (n == 0) return FocusOn(TxtLevels);
  if (prompter_.Show(LevelMessageBox(LevelMessage::ResetDistribution)) != Answer::Yes)
    return FocusBack();
  auto floors = ws_.Open(FloorsFile);
  for (int16_t k = 1; k <= n; ++k) {
    LevelRecord record = floors.Read(k);
    record.SheetList.clear();
    floors.Write(k, record);
  }
  LblError.Visible = false;
  LstVroxoi.Enabled = true;
  LstVroxoi.SetItems(AllSheetEntries());
  LstUsedVroxoi.SetItems({});
  ChooseFirstLevel();
}

void FrmVRinLEV::DeleteEverything() {
  ws_.Delete(FloorsFile.Name);
  entries_.ClearEntries();
  lv_.Correction = 0;
  CboLevels.Items.clear();
  CboLevels.Index = -1;
  LstUsedVroxoi.SetItems({});
  LstVroxoi.Enabled = true;
  ClearFloorRecord(lv_.Floor);
  lv_.SingleLevel = 0;
  lv_.AllSheets.clear();
  lv_.TotalLoad = lv_.TotalOutput = lv_.TotalFlow = lv_.TotalWorstDrop = 0;
  lv_.TotalWorstSheet = 0;
}

void FrmVRinLEV::CmdOK_Click() {
  const int16_t n = LevelCount(ws_);
  bool emptyLevel = false;
  {
    const auto floors = ws_.Open(FloorsFile, RecordFileMode::ReadOnly);
    for (int16_t k = 1; k <= n && !emptyLevel; ++k)
      emptyLevel = !StartsWithDigit(floors.Read(k).SheetList);
  }
  if (LevelsTyped() > n || emptyLevel) {
    prompter_.Show(LevelMessageBox(LevelMessage::LevelsWithoutLoops));
    return FocusBack();
  }
  if (LstVroxoi.Enabled && !LstVroxoi.Items.empty())
    lv_.UnusedSheets = static_cast<int16_t>(-static_cast<int>(LstVroxoi.Items.size()));
  if (lv_.UnusedSheets < 0) {
    const Message box = LevelMessageBox(LevelMessage::UnusedSheets, -lv_.UnusedSheets);
    if (prompter_.Show(box) != Answer::Yes) {
      if (LevelsTyped() == 0) return FocusOn(TxtLevels);
      ChooseFirstLevel();
      return FocusOn(CboLevels);
    }
    DeleteEverything();
    entries_.EnableWaysOut(true, false);
    return Close();
  }
  auto floors = ws_.Open(FloorsFile);
  for (int16_t k = 1; k <= n; ++k) {
    LevelRecord record = floors.Read(k);
    const LevelSums sums = SumSheetsOfLevel(ws_, Trim(record.SheetList));
    record.LevelLoad = sums.Load;
    record.LevelOutput = sums.Output;
    record.SectionFlow = sums.Flow;
    record.WorstLoopDrop = sums.WorstDrop;
    record.WorstSheet = sums.WorstSheet;
    record.StudyTitle = sums.Title;
    floors.Write(k, record);
  }
  entries_.EnableWaysOut(false, true);
  Accept();
}
