// RecordFile on real files: counts, reads and writes past the end, failures, the journal.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "Faults.h"
#include "RecordFile.h"
#include "SheetRecords.h"
#include "TempFolder.h"

namespace fs = std::filesystem;

namespace {

SheetRecord Numbered(int16_t n) {
  SheetRecord s;
  s.SheetNo = n;
  s.Thema = "Μελέτη";
  s.Flow = 100.0f * n;
  return s;
}

TEST(RecordFile, CountIsTheLengthOverTheRecordLengthRoundedHalfToEven) {
  const std::pair<std::size_t, int32_t> cases[] = {{0, 0},   {97, 0},  {98, 0},  {99, 1},
                                                   {195, 1}, {293, 1}, {294, 2}, {490, 2},
                                                   {491, 3}, {686, 4}, {882, 4}, {980, 5}};
  TempFolder dir;
  for (const auto& [bytes, count] : cases) {
    WriteAllBytes(dir / "SHEETS.TMP", std::string(bytes, '\x5A'));
    EXPECT_EQ(RecordFile<SheetRecord>(dir / "SHEETS.TMP", RecordFileMode::ReadOnly).Count(), count)
        << bytes << " bytes";
    EXPECT_EQ(RecordFile<SheetRecord>(dir / "SHEETS.TMP").Count(), count) << bytes << " bytes";
  }
}

TEST(RecordFile, WritesPastTheEndFillWithZerosAndReadsPastItGiveAnEmptyRecord) {
  TempFolder dir;
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP");
  sheets.Write(3, Numbered(3));
  sheets.Write(1, Numbered(1));
  EXPECT_EQ(sheets.Count(), 3);
  const std::string disk = ReadAllBytes(dir / "SHEETS.TMP");
  ASSERT_EQ(disk.size(), 3u * 196u);
  EXPECT_EQ(disk.substr(196, 196), std::string(196, '\0'));
  EXPECT_EQ(disk.substr(2 * 196, 2), std::string("\x03\x00", 2));
  // The gap reads as zeros, texts of zero bytes; past the end all is empty.
  EXPECT_EQ(sheets.Read(2).Thema, std::string(78, '\0'));
  for (int32_t n : {4, 2147483647}) {
    EXPECT_EQ(sheets.Read(n).SheetNo, 0);
    EXPECT_EQ(sheets.Read(n).Thema, "");
  }
  sheets.Write(1, Numbered(7));
  EXPECT_EQ(ReadAllBytes(dir / "SHEETS.TMP").substr(196), disk.substr(196));
  const std::vector<SheetRecord> all = sheets.ReadAll();
  ASSERT_EQ(all.size(), 3u);
  EXPECT_EQ(all[0].Flow, 700.0f);
  EXPECT_EQ(all[2].Flow, 300.0f);
}

TEST(RecordFile, ATruncatedFileReadsWhatIsThere) {
  TempFolder dir;
  {
    RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP");
    sheets.Write(1, Numbered(1));
    sheets.Write(2, Numbered(2));
  }
  // A crash left 200 bytes: one whole record and four bytes of the second.
  fs::resize_file(dir / "SHEETS.TMP", 200);
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP", RecordFileMode::ReadOnly);
  EXPECT_EQ(sheets.Count(), 1);
  EXPECT_EQ(sheets.Read(1).Flow, 100.0f);
  EXPECT_EQ(sheets.Read(2).SheetNo, 2);
  EXPECT_EQ(sheets.Read(2).Thema, "\xCE\x9C\xCE\xB5" + std::string(76, '\0'));  // "Με", zeros
  EXPECT_EQ(sheets.Read(2).Flow, 0.0f);
  EXPECT_EQ(sheets.ReadAll().size(), 1u);
}

TEST(RecordFile, AMissingFileIsMadeOnlyForWriting) {
  TempFolder dir;
  {
    RecordFile<LoopRecord> loops(dir / "LOOPS.TMP", RecordFileMode::ReadOnly);
    EXPECT_EQ(loops.Count(), 0);
    EXPECT_EQ(loops.Read(1).SomaNo, "");
  }
  EXPECT_FALSE(fs::exists(dir / "LOOPS.TMP"));
  { RecordFile<LoopRecord> loops(dir / "LOOPS.TMP"); }
  EXPECT_EQ(fs::file_size(dir / "LOOPS.TMP"), 0u);
  RecordFile<LoopRecord> readOnly(dir / "LOOPS.TMP", RecordFileMode::ReadOnly);
  EXPECT_THROW(readOnly.Write(1, LoopRecord{}), RuntimeFault);
  EXPECT_EQ(fs::file_size(dir / "LOOPS.TMP"), 0u);
}

TEST(RecordFile, FailuresOfTheFileSystemThrowTheirFault) {
  TempFolder dir;
  fs::create_directory(dir / "AFOLDER");
  WriteAllBytes(dir / "AFILE", "x");
  using enum RecordFileMode;
  const std::tuple<std::string, RecordFileMode, FaultCode> cases[] = {
      {"AFOLDER", ReadWrite, FaultCode::PathFileAccess},
      {"AFOLDER", ReadOnly, FaultCode::PathFileAccess},
      {"NOFOLDER/SHEETS.TMP", ReadWrite, FaultCode::PathNotFound},
      {"AFILE/SHEETS.TMP", ReadWrite, FaultCode::PathFileAccess}};
  for (const auto& [name, mode, code] : cases)
    EXPECT_EQ(FaultOf([&] { RecordFile<SheetRecord>(dir / name, mode); },
                      fs::path(name).filename().string()),
              code)
        << name;
  EXPECT_FALSE(fs::exists(dir / "NOFOLDER"));
  // The kernel's own folders refuse a new file even to the superuser.
  if (fs::is_directory("/sys/kernel")) {
    EXPECT_EQ(FaultOf([] { RecordFile<SheetRecord>("/sys/kernel/SHEETS.TMP"); }, "SHEETS.TMP"),
              FaultCode::PermissionDenied);
  }
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP");
  for (int32_t n : {0, -1, -2147483647 - 1}) {
    EXPECT_EQ(FaultOf([&] { sheets.Read(n); }, ""), FaultCode::BadRecordNumber);
    EXPECT_EQ(FaultOf([&] { sheets.Write(n, Numbered(1)); }, ""), FaultCode::BadRecordNumber);
  }
  EXPECT_EQ(fs::file_size(dir / "SHEETS.TMP"), 0u);
}

// A journal that remembers each report and what the file held at that moment.
class RecordingJournal : public FileJournal {
 public:
  void BeforeModify(const fs::path& file) override {
    Reports.emplace_back(file, fs::exists(file) ? ReadAllBytes(file) : "absent");
  }
  std::vector<std::pair<fs::path, std::string>> Reports;
};

TEST(RecordFile, TheJournalHearsOnceBeforeTheFirstChange) {
  TempFolder dir;
  WriteAllBytes(dir / "SHEETS.TMP", std::string(196, '\x11'));
  RecordingJournal journal;
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP", RecordFileMode::ReadWrite, &journal);
  RecordFile<LoopRecord> missing(dir / "NONE.TMP", RecordFileMode::ReadOnly, &journal);
  sheets.Read(1);
  missing.Read(1);
  EXPECT_TRUE(journal.Reports.empty()) << "opening and reading change nothing";
  sheets.Write(1, Numbered(1));
  sheets.Write(2, Numbered(2));
  RecordFile<LoopRecord> loops(dir / "LOOPS.TMP", RecordFileMode::ReadWrite, &journal);
  loops.Write(1, LoopRecord{});
  ASSERT_GE(journal.Reports.size(), 2u);
  EXPECT_EQ(journal.Reports[0], std::make_pair(dir / "SHEETS.TMP", std::string(196, '\x11')));
  EXPECT_EQ(journal.Reports[1], std::make_pair(dir / "LOOPS.TMP", std::string("absent")));
  for (std::size_t i = 2; i < journal.Reports.size(); ++i)
    EXPECT_EQ(journal.Reports[i].first, dir / "LOOPS.TMP");
}

}  // namespace
