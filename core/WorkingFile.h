#pragma once
// A working file of the program folder together with the record it holds. The subsystem that
// owns the record declares the file once beside it, e.g.
//   inline constexpr WorkingFile<SheetRecord> SheetsFile{"SHEETS.TMP"};
// and every reader opens it through the Workspace (Workspace::Open), so that no file name is
// typed twice and no file is opened with the wrong record.
template <class T>
struct WorkingFile {
  using Record = T;
  const char* Name;  // a name of the program folder, UTF-8

  constexpr explicit WorkingFile(const char* name) : Name(name) {}
};
