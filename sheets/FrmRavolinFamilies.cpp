// The radiator families of the main screen: the type files of the program folder, their
// numbers, CboSomata, the working copy SomataWorkingCopy that every sizing reads, and the
// model lists of column 10.
#include <algorithm>
#include <optional>

#include "Checked.h"
#include "Cp1253.h"
#include "FrmRavolin.h"
#include "RavoMessages.h"
#include "SomaTypeFiles.h"

// Start-up: every type file is tested on its first record; a file that fails is renamed to
// ".th_" and left out of the lists. Then the files are numbered, and the first family of the
// combo becomes the family in use.
void FrmRavolin::TestSomaFiles() {
  const std::vector<std::string> files = TypeFiles(ws_);
  CboSomata.Items.clear();
  CboSomata.Index = -1;
  SomaSortKeys.clear();
  const auto listed = static_cast<int32_t>(files.size());
  for (const std::string& name : files) {
    SomaRecord first;
    {
      auto file = ws_.Records<SomaRecord>(name, RecordFileMode::ReadOnly);
      first = file.Read(1);
    }
    if (!PassesTypeFileTest(first, listed)) {
      const std::string failed = FailedTypeFileName(name);
      ws_.Delete(failed);
      ws_.Rename(name, failed, true);
      continue;
    }
    CboSomata.Items.push_back(DisplayCategory(first.Category));
    SomaSortKeys.push_back(st_.Format(first.CategoryNo, "000") + "/" + name);
    std::sort(SomaSortKeys.begin(), SomaSortKeys.end());
  }
  SetCategoryNumbers();
  st_.SomaCategory = kSectionFamilyNo;
  if (!CboSomata.Items.empty()) SelectFamilyQuietly(0);
}

// Numbers the type files 1 (the family with sections) and 2, 3, ... (the others, densely, in
// list order), keeping each file's date; restores the family with sections from its master
// copy when it is missing.
void FrmRavolin::SetCategoryNumbers() {
  bool sectionFamilyMet = false;
  const std::vector<std::string> files = TypeFiles(ws_);
  for (std::size_t i = 0; i < files.size(); ++i) {
    const auto date = ws_.LastWriteTime(files[i]);
    {
      auto file = ws_.Records<SomaRecord>(files[i]);
      const bool sectionFamily = Trim(file.Read(1).Category) == kSectionFamilyCategory;
      if (sectionFamily) sectionFamilyMet = true;
      const int16_t number = sectionFamily      ? kSectionFamilyNo
                             : sectionFamilyMet ? CInt(static_cast<double>(i) + 1)
                                                : CInt(static_cast<double>(i) + 2);
      const int32_t count = file.Count();
      for (int32_t n = 1; n <= count; ++n) {
        SomaRecord record = file.Read(n);
        if (record.CategoryNo == number) continue;  // the same bytes need no write
        record.CategoryNo = number;
        file.Write(n, record);
      }
    }
    if (date) ws_.SetLastWriteTime(files[i], *date);
  }
  if (sectionFamilyMet) return;
  ws_.Copy(kSectionFamilyMaster, kSectionFamilyFile);
  const std::vector<std::string> restored = TypeFiles(ws_);
  if (restored.empty()) return;
  CboSomata.Items.clear();
  int position = 0;
  for (std::size_t i = 0; i < restored.size(); ++i) {
    auto file = ws_.Records<SomaRecord>(restored[i], RecordFileMode::ReadOnly);
    const SomaRecord first = file.Read(1);
    CboSomata.Items.push_back(DisplayCategory(first.Category));
    if (first.CategoryNo == st_.SomaCategory) position = static_cast<int>(i);
  }
  CboSomata.Index = position;  // with the click handling off: nothing else happens
}

// The family shown in CboSomata becomes the family in use: the first type file whose display
// category equals the combo's text is copied as the working copy, and every row of column 10
// gets the models of the working copy. Without a match the working copy stays as it is.
void FrmRavolin::FillSomaCategoryCombos() {
  const std::string shown = Trim(CboSomata.Text());
  for (const std::string& name : TypeFiles(ws_)) {
    auto file = ws_.Records<SomaRecord>(name, RecordFileMode::ReadOnly);
    if (DisplayCategory(file.Read(1).Category) != shown) continue;
    file.Close();
    ws_.Delete(SomataWorkingCopy.Name);
    ws_.Copy(name, SomataWorkingCopy.Name, true);  // a failed copy leaves the old working copy
    break;
  }
  TakeModelLists(1, Grid.MaxRows());
}

// The model list for the `rows` bottom rows of the grid (rows just added at the end).
void FrmRavolin::FIXData_in_Combo(int16_t rows) {
  TakeModelLists(Grid.MaxRows() - rows + 1, Grid.MaxRows());
}

void FrmRavolin::TakeModelLists(int first, int last) {
  std::vector<SomaRecord> models;
  {
    auto file = ws_.Open(SomataWorkingCopy);
    st_.SomaRecords = CInt(file.Count());
    models = file.ReadAll();
  }
  if (!models.empty()) st_.SomaCategory = models.front().CategoryNo;
  std::vector<std::string> list;
  list.reserve(models.size());
  for (const SomaRecord& model : models) list.push_back(Trim(model.SomaType));
  for (int row = std::max(first, 1); row <= last; ++row) Grid.SetList(row, 10, list);
}

void FrmRavolin::GetListIndex(const std::string& name, int16_t& index) {
  index = 0;
  for (std::size_t i = 0; i < CboSomata.Items.size(); ++i) {
    if (CboSomata.Items[i] != name) continue;
    index = static_cast<int16_t>(i);
    return;
  }
}

std::optional<std::string> FrmRavolin::FamilyFileOf(float categoryNo, SomaRecord* first) {
  for (const std::string& name : TypeFiles(ws_)) {
    const SomaRecord record = ws_.Records<SomaRecord>(name, RecordFileMode::ReadOnly).Read(1);
    if (record.CategoryNo != categoryNo) continue;
    if (first != nullptr) *first = record;
    return name;
  }
  return std::nullopt;
}

// The entry of a family file in CboSomata, selected as the program selects it.
void FrmRavolin::SelectFamilyOf(const SomaRecord& first) {
  int16_t index = 0;
  GetListIndex(DisplayCategory(first.Category), index);
  SelectFamilyQuietly(index);
}

// An entry chosen by the program: the change handler only takes the working copy.
void FrmRavolin::SelectFamilyQuietly(int index) {
  CboSomataSetByProgram = true;
  CboSomata.Index = index;
  CboSomata_Click();
  CboSomataSetByProgram = false;
}

// The family of the sheet changes only here. On a calculated sheet the engineer is asked first:
// the results of the old family would no longer hold.
void FrmRavolin::CboSomata_Click() {
  if (cboSomataGoingBack_) {
    cboSomataGoingBack_ = false;
    return;
  }
  if (CboSomataSetByProgram) {
    FillSomaCategoryCombos();
    return;
  }
  std::string inUse;
  {
    auto file = ws_.Open(SomataWorkingCopy, RecordFileMode::ReadOnly);
    if (file.Count() > 0) inUse = DisplayCategory(file.Read(1).Category);
  }
  if (inUse == DisplayCategory(CboSomata.Text()) || st_.Calculated == 0) {
    FillSomaCategoryCombos();
    return;
  }
  if (!AskYes(RavoMessage::DiscardResults)) {
    int16_t index = 0;
    GetListIndex(inUse, index);
    cboSomataGoingBack_ = true;
    CboSomata.Index = index;
    CboSomata_Click();  // the change back only clears the guard
    FocusOn(Grid);
    return;
  }
  FillSomaCategoryCombos();
  DiscardResults(true);
  FocusOn(Grid);
}
