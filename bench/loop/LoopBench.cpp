// The cost of one sheet: Calculate and SaveTemporarData on a full sheet of eight radiators, and
// the water content of a whole study, beside the floor the disk sets for the same files. The
// system's pauses are set to 0: they are waits on purpose, not work.
//   CalculateAndSave/Sections, /Panels: F10 then SaveTemporarData on sheet 1 of a 1-sheet study,
//     each through the command boundary (with its journal), as the screen runs them.
//   SaveWith200Sheets: SaveTemporarData of sheet 200 of a 200-sheet study: the sheet written,
//     then the water content of all 200 sheets worked out again.
//   PgDnPgUpIn200Sheets: one step forward and one back in the middle of a 200-sheet study.
//   IoFloor/1, /200: the same files read whole and written back whole, without any work.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "MainScreen.h"

namespace fs = std::filesystem;

namespace {

// A full sheet of eight radiators on the main screen, of the sections or of a stepped family.
struct Desk : MainScreen {
  explicit Desk(bool panels) {
    WritePipes({"Φ16x1"});
    WriteSectionFamily(1.2f);
    WriteTypeFile("Πάνελ.ths", 2, "Χαλύβδινα Πάνελ",
                  {Stepped("11/600", 95.3f, 0.12f, 100, "400", 4, 30, "27,"),
                   Stepped("22/600", 170.7f, 0.25f, 100, "400", 4, 30, "27,"),
                   Stepped("33/600", 241.9f, 0.37f, 100, "400", 4, 30, "27,")});
    Load();
    if (panels) Choose("CboSomata", "Χαλύβδινα Πάνελ");
    for (auto [name, text] :
         {std::pair{"TxtOwnership", "Οικία"}, {"TxtLoopNo", "Κ1"}, {"TxtLoopLength", "24.5"}})
      Type(name, text);
    const char* loads[] = {"950", "820", "1130", "640", "780", "1010", "560", "870"};
    const char* models[] = {"II/905",  "III/655", "IV/905", "II/505",
                            "III/505", "IV/655",  "II/355", "III/905"};
    const char* panelModels[] = {"22/600", "11/600", "33/600", "11/600",
                                 "22/600", "33/600", "11/600", "22/600"};
    for (int row = 1; row <= 8; ++row) {
      form->Grid.SetText(row, 1, std::to_string(row));
      form->Grid.SetText(row, 2, loads[row - 1]);
      form->Grid.SetText(row, 3, row % 2 ? "20" : "22");
      form->Grid.SetText(row, 10, panels ? panelModels[row - 1] : models[row - 1]);
    }
  }
  void Calculate() {
    KeyStroke f10;
    f10.Code = KeyCode::F10;
    if (!boundary.Run([&] { form->Form_KeyDown(f10); }) || state.Calculated != -1)
      throw std::runtime_error("the sheet did not calculate");
  }
  void Save() {
    if (!boundary.Run([&] { form->SaveTemporarData(); }))
      throw std::runtime_error("the sheet was not saved");
  }
};

void CalculateAndSave(benchmark::State& run) {
  Desk desk(run.range(0) != 0);
  for (auto _ : run) {
    desk.Calculate();
    desk.Save();
  }
  run.SetLabel(run.range(0) ? "stepped family" : "sections");
}
BENCHMARK(CalculateAndSave)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// A study of 200 sheets like the one on the screen, with the screen on the last.
void SaveWith200Sheets(benchmark::State& run) {
  Desk desk(false);
  desk.Calculate();
  for (int sheet = 1; sheet <= 200; ++sheet) {
    desk.form->Txta_a.Text = std::to_string(sheet);
    desk.Save();
  }
  for (auto _ : run) desk.Save();
  run.SetLabel("sheet 200 written, water content of 200 sheets");
}
BENCHMARK(SaveWith200Sheets)->Unit(benchmark::kMicrosecond);

// PgDn from sheet 100 to 101 and PgUp back, in a study of 200 calculated sheets: each step
// checks the sheet, writes it twice (with the water content of all 200) and loads the next.
void PgDnPgUpIn200Sheets(benchmark::State& run) {
  Desk desk(false);
  desk.Calculate();
  for (int sheet = 1; sheet <= 200; ++sheet) {
    desk.form->Txta_a.Text = std::to_string(sheet);
    desk.Save();
  }
  desk.boundary.Run([&] { desk.form->LoadSheet(100); });
  KeyStroke pgDn{KeyCode::PageDown}, pgUp{KeyCode::PageUp};
  for (auto _ : run) {
    desk.boundary.Run([&] { desk.form->Form_KeyDown(pgDn); });
    desk.boundary.Run([&] { desk.form->Form_KeyDown(pgUp); });
  }
  if (desk.state.CurrentSheet != 100 || !desk.prompter.History().empty())
    throw std::runtime_error("the walk did not come back to sheet 100");
  run.SetLabel("two steps: PgDn then PgUp");
}
BENCHMARK(PgDnPgUpIn200Sheets)->Unit(benchmark::kMicrosecond);

void ReadWriteWhole(const fs::path& file) {
  const std::string bytes = ReadAllBytes(file);
  const int fd = ::open(file.c_str(), O_WRONLY);
  if (fd < 0 || ::pwrite(fd, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
    throw std::runtime_error("write failed");
  ::close(fd);
}

void IoFloor(benchmark::State& run) {
  Desk desk(false);
  desk.Calculate();
  for (int sheet = 1; sheet <= run.range(0); ++sheet) {
    desk.form->Txta_a.Text = std::to_string(sheet);
    desk.Save();
  }
  for (auto _ : run) {
    ReadWriteWhole(desk.folder / "SHEETS.TMP");
    ReadWriteWhole(desk.folder / "LOOPS.TMP");
  }
  run.SetLabel("SHEETS.TMP and LOOPS.TMP read and written whole");
}
BENCHMARK(IoFloor)->Arg(1)->Arg(200)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
