// A level's sheets as the level record sums them: lists, radiator counts, loop drops, sums.
#include <gtest/gtest.h>

#include "Faults.h"
#include "LevelRecord.h"
#include "LevelSheets.h"
#include "ProgramFolder.h"

namespace {

TEST(LevelSheets, ASheetListReadsAsTheRunTimeReadsItsNumbers) {
  const struct {
    const char* list;
    std::vector<int16_t> numbers;
  } cases[] = {{"", {}}, {"2,7,10", {2, 7, 10}}, {"2,7,10,", {2, 7, 10}},
               {"1,,2", {1, 0, 2}}, {" 3, 4", {3, 4}}, {"12a,x", {12, 0}}};
  for (const auto& c : cases) EXPECT_EQ(ParseSheetList(c.list), c.numbers) << c.list;
  EXPECT_EQ(FaultOf([] { ParseSheetList("1,40000"); }), FaultCode::Overflow);
}

// Three sheets: 1 and 3 have the same loop drop (315 mm), 2 has no radiator rows.
struct LevelSheetsSums : ::testing::Test {
  ProgramFolder program;
  void SetUp() override {
    auto sheets = program.ws.Open(SheetsFile);
    const struct {
      float r, l, e, load, output, flow;
    } rows[] = {{10, 12, 2, 16777216, 1000.5f, 50}, {5, 20, 0, 1, 800.25f, 40},
                {10, 12, 2, 1, 700, 30}};
    for (int16_t s = 1; s <= 3; ++s) {
      const auto& row = rows[s - 1];
      SheetRecord sheet;
      sheet.SheetNo = s, sheet.Thema = "Θέμα " + std::to_string(s);
      sheet.SpecificResistance = row.r, sheet.LoopLength = row.l, sheet.OtherRes = row.e;
      sheet.TotalLoad = row.load, sheet.RealOutput = row.output, sheet.Flow = row.flow;
      sheets.Write(s, sheet);
    }
    auto loops = program.ws.Open(LoopsFile);
    const struct {
      int16_t sheet, row;
      const char* soma;
    } radiators[] = {{1, 1, "1"}, {1, 2, "2"}, {1, 3, ""}, {2, 8, ""}, {3, 1, "1"}, {3, 5, "5"}};
    const auto row = [](int16_t sheet, int16_t n, const char* soma) {
      LoopRecord record;
      record.SheetNo = sheet, record.RowNo = n, record.SomaNo = soma;
      return record;
    };
    for (const auto& r : radiators)
      loops.Write(LoopRecordNumber(r.sheet, r.row), row(r.sheet, r.row, r.soma));
    // A row of sheet 1 after the rows of sheet 2: the count of sheet 1 stops before it.
    loops.Write(LoopRecordNumber(3, 8) + 1, row(1, 1, "9"));
  }
};

TEST_F(LevelSheetsSums, RadiatorsAreCountedUpToTheFirstRowOfAHigherSheet) {
  EXPECT_EQ(CountLoopRadiators(program.ws, 1), 2);
  EXPECT_EQ(CountLoopRadiators(program.ws, 2), 0);
  EXPECT_EQ(CountLoopRadiators(program.ws, 3), 2);
}

TEST_F(LevelSheetsSums, EachLoopAddsTwoMetresARadiatorAndThirteenAndAHalfOnce) {
  SheetRecord loop;
  loop.SpecificResistance = 5, loop.LoopLength = 20;
  EXPECT_FLOAT_EQ(LoopDrop(loop, 0), 167.5f);
  loop.SpecificResistance = 10, loop.LoopLength = 12, loop.OtherRes = 2;
  EXPECT_FLOAT_EQ(LoopDrop(loop, 2), 315.0f);
}

TEST_F(LevelSheetsSums, SumsRoundEachAdditionAndAnEqualLaterDropDoesNotReplaceTheWorst) {
  const LevelSums all = SumSheetsOfLevel(program.ws, "1,2,3");
  EXPECT_EQ(all.Load, 16777216.0f);  // 16777216 + 1 + 1, each sum kept in single precision
  EXPECT_FLOAT_EQ(all.Output, 2500.75f);
  EXPECT_FLOAT_EQ(all.Flow, 120.0f);
  EXPECT_FLOAT_EQ(all.WorstDrop, 315.0f);
  EXPECT_EQ(all.WorstSheet, 1);
  EXPECT_EQ(all.Title, "Θέμα 3");
  EXPECT_EQ(SumSheetsOfLevel(program.ws, "3,1").WorstSheet, 3);
  const LevelSums twice = SumSheetsOfLevel(program.ws, "2,2");
  EXPECT_FLOAT_EQ(twice.Output, 1600.5f);
  EXPECT_FLOAT_EQ(twice.WorstDrop, 167.5f);
  EXPECT_EQ(twice.Title, "Θέμα 3");  // the last record of the file, not the last summed
  const LevelSums none = SumSheetsOfLevel(program.ws, "");
  EXPECT_EQ(none.Title, "");
  EXPECT_EQ(none.Load, 0.0f);
}

TEST(LevelCount, TheNumberOfLevelsIsTheFileLengthInRecordsAndAnEmptyFileGoes) {
  ProgramFolder program;
  EXPECT_EQ(LevelCount(program.ws), 0);
  for (const auto& [bytes, levels] : {std::pair{558 * 2, 2}, {557, 1}, {837, 2}, {1, 0}}) {
    WriteAllBytes(program.folder / FloorsFile.Name, std::string(bytes, '\0'));
    EXPECT_EQ(LevelCount(program.ws), levels) << bytes;
    EXPECT_FALSE(DeleteEmptyFloorsFile(program.ws));
  }
  WriteAllBytes(program.folder / FloorsFile.Name, "");
  EXPECT_TRUE(DeleteEmptyFloorsFile(program.ws));
  EXPECT_FALSE(std::filesystem::exists(program.folder / FloorsFile.Name));
}

}  // namespace
