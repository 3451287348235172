#pragma once
// A study in RVLFiles/ of a program folder for tests and benchmarks: one sheet entered on the
// screen and calculated, the others copies of it with their own numbers, as a long study
// stands in its files.
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "MainScreen.h"
#include "TypeFiles.h"

// The pipe list and the family with sections of a program folder.
inline void WriteStartFiles(const std::filesystem::path& folder) {
  std::ofstream(folder / "RavoPipes.txt", std::ios::binary) << "\xD6"
                                                               "16x1\r\n";
  WriteTypeFile(folder / kSectionFamilyFile, 1, kSectionFamilyCategory, SectionModels(1));
  WriteTypeFile(folder / kSectionFamilyMaster, 1, kSectionFamilyCategory, SectionModels(1));
}

inline std::filesystem::path MakeStudyOfCopies(Workspace& ws, const std::string& name, int sheets,
                                               const std::vector<std::string>& loads,
                                               const std::string& model) {
  {
    MainScreen screen(ws.Folder());
    screen.Load();
    screen.Type("TxtOwnership", "Οικία");
    screen.Type("TxtLoopNo", "Κ1");
    screen.Type("TxtLoopLength", "12");
    for (int row = 1; row <= static_cast<int>(loads.size()); ++row)
      screen.Radiator(row, std::to_string(row), loads[row - 1], "20", model);
    screen.Key(KeyCode::F10);
    screen.Run([&] { screen.form->SaveTemporarData(); });
  }
  {
    RecordFile<SheetRecord> sheetFile(ws.PathOf("SHEETS.TMP"));
    RecordFile<LoopRecord> loopFile(ws.PathOf("LOOPS.TMP"));
    SheetRecord first = sheetFile.Read(1);
    for (int s = 2; s <= sheets; ++s) {
      first.SheetNo = static_cast<int16_t>(s);
      sheetFile.Write(s, first);
      for (int row = 1; row <= kRowsPerSheet; ++row) {
        LoopRecord r = loopFile.Read(row);
        r.SheetNo = static_cast<int16_t>(s);
        loopFile.Write(LoopRecordNumber(s, row), r);
      }
    }
  }
  const auto study = ws.PathOf("RVLFiles/" + name + ".sht");
  std::filesystem::rename(ws.PathOf("SHEETS.TMP"), study);
  std::filesystem::rename(ws.PathOf("LOOPS.TMP"), ws.PathOf("RVLFiles/" + name + ".lps"));
  return study;
}
