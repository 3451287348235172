// RecordFile on real files: counts, reads and writes past the end, failures, the journal.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "RecordFile.h"
#include "RuntimeFault.h"
#include "SheetRecords.h"
#include "TempFolder.h"

namespace fs = std::filesystem;

namespace {

struct CountCase {
  std::size_t Bytes;
  int32_t Count;
};

TEST(RecordFileCount, IsTheLengthOverTheRecordLengthRoundedHalfToEven) {
  const std::vector<CountCase> cases = {
      {0, 0},   {97, 0},  {98, 0},  {99, 1},  {195, 1}, {196, 1}, {200, 1}, {293, 1},
      {294, 2}, {295, 2}, {392, 2}, {490, 2}, {491, 3}, {686, 4}, {882, 4}, {980, 5},
  };
  TempFolder dir;
  for (const auto& c : cases) {
    WriteAllBytes(dir / "SHEETS.TMP", std::string(c.Bytes, '\x5A'));
    RecordFile<SheetRecord> readOnly(dir / "SHEETS.TMP", RecordFileMode::ReadOnly);
    RecordFile<SheetRecord> readWrite(dir / "SHEETS.TMP");
    EXPECT_EQ(readOnly.Count(), c.Count) << c.Bytes << " bytes";
    EXPECT_EQ(readWrite.Count(), c.Count) << c.Bytes << " bytes";
  }
}

TEST(RecordFileCount, FollowsTheFileAsItGrows) {
  TempFolder dir;
  RecordFile<LoopRecord> loops(dir / "LOOPS.TMP");
  EXPECT_EQ(loops.Count(), 0);
  loops.Write(1, LoopRecord{});
  EXPECT_EQ(loops.Count(), 1);
  loops.Write(8, LoopRecord{});
  EXPECT_EQ(loops.Count(), 8);
  loops.Write(3, LoopRecord{});
  EXPECT_EQ(loops.Count(), 8);
}

void ExpectEmptySheet(const SheetRecord& s) {
  EXPECT_EQ(s.SheetNo, 0);
  EXPECT_EQ(s.Thema, "");
  EXPECT_EQ(s.Ownership, "");
  EXPECT_EQ(s.LoopNo, "");
  EXPECT_EQ(s.PipeName, "");
  EXPECT_EQ(s.Flow, 0.0f);
  EXPECT_EQ(s.ResultsValid, 0.0f);
  EXPECT_EQ(s.WaterContent, 0.0f);
}

SheetRecord Numbered(int16_t n) {
  SheetRecord s;
  s.SheetNo = n;
  s.Thema = "Μελέτη";
  s.PipeName = "Φ16x1";
  s.Flow = 100.0f * n;
  return s;
}

TEST(RecordFileRead, PastTheEndGivesAnEmptyRecord) {
  TempFolder dir;
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP");
  sheets.Write(1, Numbered(1));
  sheets.Write(2, Numbered(2));
  for (int32_t n : {3, 4, 100, 2147483647}) {
    SCOPED_TRACE(n);
    ExpectEmptySheet(sheets.Read(n));
  }
  EXPECT_EQ(sheets.Read(2).SheetNo, 2);
  EXPECT_EQ(sheets.Read(2).Flow, 200.0f);
  EXPECT_EQ(sheets.Read(2).PipeName, "Φ16x1");
}

TEST(RecordFileRead, ReadAllGivesEveryRecordInOrder) {
  TempFolder dir;
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP");
  for (int16_t n = 1; n <= 5; ++n) sheets.Write(n, Numbered(n));
  const std::vector<SheetRecord> all = sheets.ReadAll();
  ASSERT_EQ(all.size(), 5u);
  for (int16_t n = 1; n <= 5; ++n) EXPECT_EQ(all[n - 1].SheetNo, n);
}

TEST(RecordFileWrite, PastTheEndExtendsTheFileWithZeros) {
  TempFolder dir;
  {
    RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP");
    sheets.Write(5, Numbered(5));
    EXPECT_EQ(sheets.Count(), 5);
  }
  const std::string disk = ReadAllBytes(dir / "SHEETS.TMP");
  ASSERT_EQ(disk.size(), 5u * 196u);
  EXPECT_EQ(disk.substr(0, 4 * 196), std::string(4 * 196, '\0'));
  EXPECT_EQ(disk.substr(4 * 196, 2), std::string("\x05\x00", 2));

  // The gap records read as zero-filled: zero numbers, texts of zero bytes.
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP", RecordFileMode::ReadOnly);
  for (int32_t n = 1; n <= 4; ++n) {
    const SheetRecord s = sheets.Read(n);
    EXPECT_EQ(s.SheetNo, 0);
    EXPECT_EQ(s.Flow, 0.0f);
    EXPECT_EQ(s.Thema, std::string(78, '\0'));
    EXPECT_EQ(s.PipeName, std::string(8, '\0'));
  }
  EXPECT_EQ(sheets.Read(5).Flow, 500.0f);
}

TEST(RecordFileWrite, OverwritesOnlyItsOwnRecord) {
  TempFolder dir;
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP");
  for (int16_t n = 1; n <= 3; ++n) sheets.Write(n, Numbered(n));
  const std::string before = ReadAllBytes(dir / "SHEETS.TMP");
  SheetRecord s = Numbered(2);
  s.Flow = 7.0f;
  sheets.Write(2, s);
  const std::string after = ReadAllBytes(dir / "SHEETS.TMP");
  ASSERT_EQ(after.size(), before.size());
  EXPECT_EQ(after.substr(0, 196), before.substr(0, 196));
  EXPECT_EQ(after.substr(392), before.substr(392));
  EXPECT_NE(after.substr(196, 196), before.substr(196, 196));
  EXPECT_EQ(sheets.Read(2).Flow, 7.0f);
}

TEST(RecordFileRead, ATruncatedFileReadsWhatIsThere) {
  TempFolder dir;
  {
    RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP");
    sheets.Write(1, Numbered(1));
    sheets.Write(2, Numbered(2));
  }
  // A crash left 200 bytes: one whole record and four bytes of the second.
  std::string disk = ReadAllBytes(dir / "SHEETS.TMP");
  WriteAllBytes(dir / "SHEETS.TMP", disk.substr(0, 200));
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP", RecordFileMode::ReadOnly);
  EXPECT_EQ(sheets.Count(), 1);
  EXPECT_EQ(sheets.Read(1).Flow, 100.0f);
  const SheetRecord cut = sheets.Read(2);
  EXPECT_EQ(cut.SheetNo, 2);
  EXPECT_EQ(cut.Thema, "\xCE\x9C\xCE\xB5" + std::string(76, '\0'));  // "Με" then zeros
  EXPECT_EQ(cut.Flow, 0.0f);
  ExpectEmptySheet(sheets.Read(3));
}

TEST(RecordFileRead, AFileShorterThanHalfARecordCountsNoneButStillReads) {
  TempFolder dir;
  WriteAllBytes(dir / "SHEETS.TMP", std::string("\x07\x00", 2));
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP", RecordFileMode::ReadOnly);
  EXPECT_EQ(sheets.Count(), 0);
  EXPECT_EQ(sheets.Read(1).SheetNo, 7);
  EXPECT_TRUE(sheets.ReadAll().empty());
}

TEST(RecordFileOpen, AMissingFileReadOnlyIsEmptyAndNotCreated) {
  TempFolder dir;
  const fs::path path = dir / "LOOPS.TMP";
  {
    RecordFile<LoopRecord> loops(path, RecordFileMode::ReadOnly);
    EXPECT_EQ(loops.Count(), 0);
    EXPECT_EQ(loops.Read(1).SomaNo, "");
    EXPECT_EQ(loops.Read(1).RowNo, 0);
    EXPECT_TRUE(loops.ReadAll().empty());
  }
  EXPECT_FALSE(fs::exists(path));
}

TEST(RecordFileOpen, AMissingFileReadWriteIsCreatedEmpty) {
  TempFolder dir;
  const fs::path path = dir / "LOOPS.TMP";
  {
    RecordFile<LoopRecord> loops(path);
    EXPECT_EQ(loops.Count(), 0);
  }
  ASSERT_TRUE(fs::exists(path));
  EXPECT_EQ(fs::file_size(path), 0u);
}

TEST(RecordFileOpen, WritingAFileOpenedForReadingFails) {
  TempFolder dir;
  WriteAllBytes(dir / "SHEETS.TMP", std::string(196, '\0'));
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP", RecordFileMode::ReadOnly);
  EXPECT_THROW(sheets.Write(1, Numbered(1)), RuntimeFault);
  EXPECT_EQ(ReadAllBytes(dir / "SHEETS.TMP"), std::string(196, '\0'));
}

FaultCode FaultOfOpening(const fs::path& path, RecordFileMode mode) {
  try {
    RecordFile<SheetRecord> sheets(path, mode);
  } catch (const RuntimeFault& fault) {
    EXPECT_NE(fault.Detail().find(path.filename().string()), std::string::npos) << fault.Detail();
    return fault.Code();
  }
  ADD_FAILURE() << "no fault for " << path;
  return FaultCode::Internal;
}

struct OpenFailure {
  const char* What;
  std::string Name;  // inside the temp folder
  RecordFileMode Mode;
  FaultCode Code;
};

TEST(RecordFileOpen, FailuresOfTheFileSystemThrowTheirFault) {
  TempFolder dir;
  fs::create_directory(dir / "AFOLDER");
  WriteAllBytes(dir / "AFILE", "x");
  const std::vector<OpenFailure> cases = {
      {"folder, read-write", "AFOLDER", RecordFileMode::ReadWrite, FaultCode::PathFileAccess},
      {"folder, read-only", "AFOLDER", RecordFileMode::ReadOnly, FaultCode::PathFileAccess},
      {"missing folder", "NOFOLDER/SHEETS.TMP", RecordFileMode::ReadWrite, FaultCode::PathNotFound},
      {"file as folder", "AFILE/SHEETS.TMP", RecordFileMode::ReadWrite, FaultCode::PathFileAccess},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FaultOfOpening(dir / c.Name, c.Mode), c.Code) << c.What;
  }
  EXPECT_FALSE(fs::exists(dir / "NOFOLDER"));
}

TEST(RecordFileOpen, AnUnwritablePlaceThrowsPermissionDenied) {
  TempFolder dir;
  fs::path path;
  if (::geteuid() != 0) {
    fs::create_directory(dir / "LOCKED");
    fs::permissions(dir / "LOCKED", fs::perms::owner_read | fs::perms::owner_exec);
    path = dir / "LOCKED" / "SHEETS.TMP";
  } else if (fs::is_directory("/sys/kernel")) {
    // The super-user passes permission bits; the kernel's own folders still refuse new files.
    path = "/sys/kernel/SHEETS.TMP";
  } else {
    GTEST_SKIP() << "no place refuses a new file to this user";
  }
  EXPECT_EQ(FaultOfOpening(path, RecordFileMode::ReadWrite), FaultCode::PermissionDenied);
  EXPECT_FALSE(fs::exists(path));
  if (fs::exists(dir / "LOCKED")) fs::permissions(dir / "LOCKED", fs::perms::owner_all);
}

TEST(RecordFileNumbers, BelowOneAreABadRecordNumber) {
  TempFolder dir;
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP");
  for (int32_t n : {0, -1, -32768, -2147483647 - 1}) {
    SCOPED_TRACE(n);
    try {
      sheets.Read(n);
      ADD_FAILURE() << "read did not fail";
    } catch (const RuntimeFault& fault) {
      EXPECT_EQ(fault.Code(), FaultCode::BadRecordNumber);
    }
    try {
      sheets.Write(n, Numbered(1));
      ADD_FAILURE() << "write did not fail";
    } catch (const RuntimeFault& fault) {
      EXPECT_EQ(fault.Code(), FaultCode::BadRecordNumber);
    }
  }
  EXPECT_EQ(fs::file_size(dir / "SHEETS.TMP"), 0u);
}

TEST(RecordFileMove, TheFileMovesWithItsOwner) {
  TempFolder dir;
  RecordFile<SheetRecord> first(dir / "SHEETS.TMP");
  first.Write(1, Numbered(1));
  RecordFile<SheetRecord> moved(std::move(first));
  moved.Write(2, Numbered(2));
  EXPECT_EQ(moved.Count(), 2);
  RecordFile<SheetRecord> other(dir / "OTHER.TMP");
  other = std::move(moved);
  EXPECT_EQ(other.Read(2).SheetNo, 2);
  other.Flush();
  other.Close();
  EXPECT_EQ(fs::file_size(dir / "SHEETS.TMP"), 392u);
}

// A journal that remembers each report and whether the file existed at that moment.
class RecordingJournal : public FileJournal {
 public:
  struct Report {
    fs::path File;
    bool Existed;
    std::string Bytes;
  };
  void BeforeModify(const fs::path& file) override {
    const bool existed = fs::exists(file);
    Reports.push_back({file, existed, existed ? ReadAllBytes(file) : std::string()});
  }
  std::vector<Report> Reports;
};

TEST(RecordFileJournal, ReportsOnceBeforeTheFirstWrite) {
  TempFolder dir;
  const fs::path path = dir / "SHEETS.TMP";
  WriteAllBytes(path, std::string(196, '\x11'));
  RecordingJournal journal;
  RecordFile<SheetRecord> sheets(path, RecordFileMode::ReadWrite, &journal);
  EXPECT_TRUE(journal.Reports.empty()) << "opening an existing file changes nothing";
  sheets.Read(1);
  sheets.Count();
  EXPECT_TRUE(journal.Reports.empty()) << "reading changes nothing";
  sheets.Write(1, Numbered(1));
  ASSERT_EQ(journal.Reports.size(), 1u);
  EXPECT_EQ(journal.Reports[0].File, path);
  EXPECT_TRUE(journal.Reports[0].Existed);
  EXPECT_EQ(journal.Reports[0].Bytes, std::string(196, '\x11')) << "reported before the write";
  sheets.Write(2, Numbered(2));
  sheets.Write(1, Numbered(3));
  EXPECT_EQ(journal.Reports.size(), 1u);
}

TEST(RecordFileJournal, LearnsThatAFileWasAbsentBeforeItIsCreated) {
  TempFolder dir;
  const fs::path path = dir / "LOOPS.TMP";
  RecordingJournal journal;
  RecordFile<LoopRecord> loops(path, RecordFileMode::ReadWrite, &journal);
  ASSERT_EQ(journal.Reports.size(), 1u);
  EXPECT_EQ(journal.Reports[0].File, path);
  EXPECT_FALSE(journal.Reports[0].Existed);
  EXPECT_TRUE(fs::exists(path));
  loops.Write(1, LoopRecord{});
  ASSERT_GE(journal.Reports.size(), 1u);
  for (const auto& r : journal.Reports) EXPECT_EQ(r.File, path);
}

TEST(RecordFileJournal, ReadOnlyNeverReports) {
  TempFolder dir;
  RecordingJournal journal;
  WriteAllBytes(dir / "SHEETS.TMP", std::string(196, '\0'));
  RecordFile<SheetRecord> present(dir / "SHEETS.TMP", RecordFileMode::ReadOnly, &journal);
  RecordFile<LoopRecord> missing(dir / "LOOPS.TMP", RecordFileMode::ReadOnly, &journal);
  present.Read(1);
  missing.Read(1);
  EXPECT_TRUE(journal.Reports.empty());
}

}  // namespace
