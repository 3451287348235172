#include "FrmOpenSave_M.h"

#include <chrono>
#include <ctime>

#include "Checked.h"
#include "Cp1253.h"
#include "WorkingFiles.h"

namespace {

// The last-write date and time of a file as the list shows them: "23/11/2026", "09:41:05".
std::pair<std::string, std::string> DateAndTime(std::filesystem::file_time_type written) {
  const auto system = std::chrono::file_clock::to_sys(written);
  const std::time_t t = std::chrono::system_clock::to_time_t(
      std::chrono::time_point_cast<std::chrono::system_clock::duration>(system));
  std::tm local{};
  localtime_r(&t, &local);
  char date[16], time[16];
  std::strftime(date, sizeof date, "%d/%m/%Y", &local);
  std::strftime(time, sizeof time, "%H:%M:%S", &local);
  return {date, time};
}

}  // namespace

const ControlTable<FrmOpenSave_M>& FrmOpenSave_M::Table() {
  using F = FrmOpenSave_M;
  static const ControlTable<F> table = {
      kit::Label("Caption", &F::Caption),
      kit::List("LstStudies", &F::LstStudies, &F::LstStudies_Click),
      kit::Command("CmdOpenSave", &F::CmdOpenSave, &F::CmdOpenSave_Click),
      kit::Command("CmdClassic", &F::CmdClassic, &F::CmdClassic_Click),
      kit::Label("LblFileName", &F::LblFileName),
      kit::Label("LblFilePath", &F::LblFilePath),
      kit::Label("LblFileDate", &F::LblFileDate),
      kit::Label("LblFileTime", &F::LblFileTime),
      kit::Label("LblNumber", &F::LblNumber),
      kit::Label("LblFileNameCaption", &F::LblFileNameCaption),
      kit::Label("LblFilePathCaption", &F::LblFilePathCaption),
      kit::Label("LblFileDateCaption", &F::LblFileDateCaption),
      kit::Label("LblFileTimeCaption", &F::LblFileTimeCaption),
  };
  return table;
}

FrmOpenSave_M::FrmOpenSave_M(SheetOnScreen& sheet, Workspace& workspace, StudyState& state)
    : Dialog(kName), sheet_(sheet), ws_(workspace), st_(state) {
  const std::string folder = WithBackslash(ws_.PathOf(Workspace::kStudiesFolder).string());
  MakeCurrentStudiesFile(folder);
  std::vector<std::string> lines;
  {
    auto studies = ws_.Open(StudiesFile, RecordFileMode::ReadOnly);
    const int32_t count = studies.Count();
    for (int32_t n = 1; n <= count; ++n)
      lines.push_back("(" + st_.Format(n, "0000") + ".) " + Trim(studies.Read(n).StudyTitle));
  }
  LstStudies.SetItems(std::move(lines));
  LblNumber.Text = st_.Format(static_cast<double>(LstStudies.Items.size()), "##,###");
}

void FrmOpenSave_M::MakeCurrentStudiesFile(const std::string& folder) {
  const auto [exists, size] = ws_.FileExistsAndSize(StudiesFile.Name);
  if (exists && size > 0) ws_.Delete(StudiesFile.Name);
  auto studies = ws_.Open(StudiesFile);
  const std::string where = WithBackslash(folder);
  int16_t number = 0;
  for (const std::string& name : ws_.ListFiles(where, std::string("*") + kStudyExtension)) {
    const SheetRecord first =
        RecordFile<SheetRecord>(std::filesystem::path(where) / name, RecordFileMode::ReadOnly)
            .Read(1);
    StudyRecord r;
    r.StudyNo = number = AddI16(number, 1);
    r.StudyTitle = first.Thema;
    r.FileName = name;
    r.FolderPath = where;
    if (const auto written = ws_.LastWriteTime(where + name))
      std::tie(r.FileDate, r.FileTime) = DateAndTime(*written);
    studies.Write(number, r);
  }
}

StudyRecord FrmOpenSave_M::RecordOfLine(int index) {
  return ws_.Open(StudiesFile, RecordFileMode::ReadOnly).Read(index + 1);
}

void FrmOpenSave_M::LstStudies_Click() {
  const int index = LstStudies.SelectedIndex();
  if (index < 0) return;
  const StudyRecord r = RecordOfLine(index);
  LblFileName.Text = Trim(r.FileName);
  LblFilePath.Text = Trim(r.FolderPath);
  LblFileDate.Text = " < " + r.FileDate + " > ";
  LblFileTime.Text = " < " + r.FileTime + " > ";
}

void FrmOpenSave_M::Form_Load() {
  LstStudies.Selected.assign(LstStudies.Items.size(), false);
  for (Field* f : {&LblFileName, &LblFilePath, &LblFileDate, &LblFileTime}) f->Text.clear();
}

void FrmOpenSave_M::CmdOpenSave_Click() {
  const int index = LstStudies.SelectedIndex();
  if (index < 0) return;
  const StudyRecord r = RecordOfLine(index);
  sheet_.OpenFile(WithBackslash(Trim(r.FolderPath)) + Trim(r.FileName));
  Close();
}

void FrmOpenSave_M::CmdClassic_Click() {
  ClassicRequested = true;
  Close();
}
