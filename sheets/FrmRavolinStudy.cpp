// The study as a whole from the main screen: writing it to a study file, and starting a new
// one. A study file is a set of byte copies of the working files.
#include <algorithm>

#include "Checked.h"
#include "Cp1253.h"
#include "FrmOpenSave_M.h"
#include "FrmRavolin.h"
#include "RavoMessages.h"
#include "WorkingFiles.h"

namespace {

// The filter of the platform's file dialogs, in the old form "text|pattern".
const std::string kStudyFilter =
    std::string("Special Files (*") + kStudyExtension + ")|*" + kStudyExtension;

// The name with its last four characters replaced by `extension` (".lps", ".rvf").
std::string SisterFile(const std::string& fileName, const char* extension) {
  std::u32string name = Utf8ToU32(fileName);
  if (name.size() < 4) throw RuntimeFault(FaultCode::InvalidCall, "ΑΡΧΕΙΟ \"" + fileName + "\"");
  name.resize(name.size() - 4);
  return U32ToUtf8(name) + extension;
}

bool EndsWithStudyExtension(const std::string& name) {
  if (name.size() < 4) return false;
  std::string tail = name.substr(name.size() - 4);
  std::transform(tail.begin(), tail.end(), tail.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return tail == kStudyExtension;
}

}  // namespace

// Ctrl-S, Shift-F12: only a calculated sheet is saved. The sheet on the screen is written to
// the working files first, so that the study file holds it as the engineer sees it.
void FrmRavolin::CmdSave_Click() {
  FocusOn(Grid);
  if (st_.Calculated == 0) return;
  SaveTemporarData();
  const auto answer = platform_.AskSaveFile(ws_.PathOf(Workspace::kStudiesFolder), kStudyFilter,
                                            std::filesystem::path(st_.StudyFileName));
  if (!answer) return;
  std::string fileName = answer->string();
  if (!EndsWithStudyExtension(fileName)) fileName += kStudyExtension;
  SaveAsFile(fileName);
  st_.StudyFileName = fileName;
  st_.StudyChanged = 0;
}

// The files of the study are written as one set: a crash leaves the old study or the new one,
// never a new sheets' file beside old loops; the next look at the folder finishes the set.
void FrmRavolin::SaveAsFile(std::string fileName) {
  FocusOn(Grid);
  const auto [sheetsExist, sheetsSize] = ws_.FileExistsAndSize(SheetsFile.Name);
  if (!sheetsExist || sheetsSize == 0) return;
  std::vector<std::pair<std::string, std::string>> copies = {{SheetsFile.Name, fileName}};
  for (const auto& [working, extension] :
       {std::pair{LoopsFile.Name, kLoopsExtension}, std::pair{kFloorsFile, kFloorsExtension}}) {
    const auto [exists, size] = ws_.FileExistsAndSize(working);
    if (!exists || size == 0) break;
    fileName = SisterFile(fileName, extension);
    copies.emplace_back(working, fileName);
  }
  ws_.CopyAsOneSet(copies);
  CountSheets();
}

// Kept on purpose: TxtOrigTemp, Txta_a and CurrentSheet stay as they were, so a new study
// begun on a later sheet starts with gaps.
void FrmRavolin::CmdNew_Click() {
  FocusOn(Grid);
  if (Grid.DataRowCount() > 0 &&
      prompter_.Show(RavoMessageBox(RavoMessage::NewStudyLosesData)) != Answer::Yes)
    return;
  OfferToSave();
  KillRavoTemporaries(ws_);
  st_.InitializeVariables();
  TxtThema.Text = kDefaultThema;
  oldThema_ = kDefaultThema;
  TxtTempDrop.Text = "20";
  for (Field* f : {&TxtOwnership, &TxtLoopNo, &TxtLoopLoad, &TxtFlow, &TxtVelocity, &TxtSFR,
                   &TxtLoopLength, &TxtOtherRes})
    f->Text.clear();
  if (!CboPipes.Items.empty()) CboPipes.Index = 0;
  if (!CboSomata.Items.empty()) SelectFamilyQuietly(0);
  Grid.ClearAll();
}

// Message -10 when the study has changed since it was last saved and the sheet holds results;
// true when the engineer chose to save.
bool FrmRavolin::OfferToSave() {
  if (st_.StudyChanged == 0 || st_.Calculated == 0 || !AskYes(RavoMessage::StudyNotSaved))
    return false;
  CmdSave_Click();
  return true;
}

// Ctrl-O: unsaved work is offered a save first, then the browser of RVLFiles/.
void FrmRavolin::CmdOpen_Click() {
  if (st_.StudyChanged != 0) {
    int16_t lastRow = 0;
    GetLastDataRow(lastRow);
    if (OfferToSave()) st_.StudyChanged = 0;
  }
  FrmOpenSave_M browser(*this, ws_, st_);
  browser.Open(screens_);
  if (browser.ClassicRequested) ClassicOpenFile_M();
  FocusOn(Grid);
}

void FrmRavolin::ClassicOpenFile_M() {
  const auto answer = platform_.AskOpenFile(ws_.PathOf(Workspace::kStudiesFolder), kStudyFilter);
  if (answer && !answer->empty()) OpenFile(answer->string());
}

// A study file and its sister must look like a study before the workspace is touched: a file
// that is not one is refused with a message, and the study on the screen stays.
bool FrmRavolin::LooksLikeAStudy(const std::string& fileName) {
  const auto [sheetsExist, sheetsSize] = ws_.FileExistsAndSize(fileName);
  if (!sheetsExist) ws_.RequireFile(fileName);
  const std::string loops = SisterFile(fileName, kLoopsExtension);
  const auto [loopsExist, loopsSize] = ws_.FileExistsAndSize(loops);
  if (!loopsExist) ws_.RequireFile(loops);
  const bool whole = sheetsSize > 0 && sheetsSize % SheetRecordLayout.RecordLength == 0 &&
                     loopsSize % LoopRecordLayout.RecordLength == 0 &&
                     loopsSize / LoopRecordLayout.RecordLength >=
                         sheetsSize / SheetRecordLayout.RecordLength * kRowsPerSheet;
  if (whole &&
      RecordFile<SheetRecord>(ws_.PathOf(fileName), RecordFileMode::ReadOnly).Read(1).SheetNo == 1)
    return true;
  const std::string name = std::filesystem::path(fileName).filename().string();
  prompter_.Show(
      NoticeBox("!! ΠΡΟΣΟΧΗ !!", {"... Το αρχείο < " + name + " > ΔΕΝ είναι αρχείο Μελέτης ...",
                                  "... Η τρέχουσα Μελέτη έμεινε όπως ήταν ..."}));
  return false;
}

void FrmRavolin::OpenFile(std::string fileName) {
  // A save of this study that a crash interrupted is finished or undone first.
  ws_.CompleteFileSets(std::filesystem::path(fileName).parent_path().string());
  if (!LooksLikeAStudy(fileName)) return;
  st_.StudyFileName = fileName;
  ws_.Delete(SheetsFile.Name);
  ws_.Delete(LoopsFile.Name);
  ws_.Copy(fileName, SheetsFile.Name);
  fileName = SisterFile(fileName, kLoopsExtension);
  ws_.Copy(fileName, LoopsFile.Name);
  DeleteSpreadData();
  LoadSheet(1);
  ws_.Delete(kFloorsFile);
  // A study saved before its levels has no levels' file: it opens without levels.
  ws_.Copy(SisterFile(fileName, kFloorsExtension), kFloorsFile, true);
}

void FrmRavolin::Cmd_Client_Click() {
  screens_.Open(kNamesScreen);
}
