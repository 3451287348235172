// The level record byte by byte, as it lands on disk, and what clearing it leaves.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "LevelRecord.h"
#include "RecordFile.h"
#include "TempFolder.h"

namespace {

template <class V>
std::string Le(V value) {
  std::string bytes(sizeof value, '\0');
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}

std::string OnDisk(const LevelRecord& record) {
  TempFolder folder;
  RecordFile<LevelRecord>(folder / "F.TMP").Write(1, record);
  return ReadAllBytes(folder / "F.TMP");
}

TEST(LevelRecord, EveryFieldLandsAtItsOffset) {
  LevelRecord r;
  r.RecNo = 3, r.Level = 3, r.SheetList = "2,7,10", r.LevelLoad = 4321.5f;
  r.LevelOutput = 4400.25f, r.WorstLoopDrop = 812.75f, r.WorstSheet = 7;
  r.StudyTitle = "Οικία", r.SectionNo = 3, r.SectionName = "  2/3", r.Elbows = 2.5f;
  r.Bends90 = 4, r.Valves = 2, r.StraightControlValves = 5, r.AngleControlValves = 6;
  r.TeesBranch = 7, r.TeesPass = 8, r.TeesCounterflow = 9, r.TeesJunction = 10;
  r.CheckValves = 11, r.OtherLossMm = 120.5f, r.OtherLossEqM = 3.25f, r.PipeNo = 12;
  r.PipeLibrary = "DIN 2440", r.PipeName = "3/4\"", r.InnerDiameter = 21.25f;
  r.SectionFlow = 512.5f, r.Length = 3.2f, r.Velocity = 0.45f, r.Reynolds = 9876.5f;
  r.Friction = 0.03125f, r.Gradient = 14.5f, r.SectionDrop = 60.25f, r.BranchHead = 900.5f;
  r.MeanTemp = 75.5f, r.ResultMark = -1.0f, r.TotalFlow = 2048.0f, r.PumpHead = 2500.5f;
  r.HasLoops = 1;
  const std::string disk = OnDisk(r);
  ASSERT_EQ(disk.size(), 558u);
  const struct {
    std::size_t offset;
    std::string bytes;
  } spans[] = {
      {0, Le<int16_t>(3)}, {2, Le<int16_t>(3)}, {4, "2,7,10" + std::string(194, ' ')},
      {204, Le(4321.5f)}, {208, Le(4400.25f)}, {212, Le(812.75f)}, {216, Le<int16_t>(7)},
      {218, "\xCF\xE9\xEA\xDF\xE1" + std::string(73, ' ')}, {296, std::string(30, '\0')},
      {326, Le<int16_t>(3)}, {328, "  2/3  "}, {335, Le(2.5f)}, {339, Le(4.0f)},
      {343, Le<int16_t>(2)}, {345, Le<int16_t>(5)}, {347, Le<int16_t>(6)},
      {349, Le<int16_t>(7)}, {351, Le<int16_t>(8)}, {353, Le<int16_t>(9)},
      {355, Le<int16_t>(10)}, {357, Le<int16_t>(11)}, {359, Le(120.5f)}, {363, Le(3.25f)},
      {367, Le<int16_t>(12)}, {369, "DIN 2440" + std::string(70, ' ')},
      {447, "3/4\"" + std::string(11, ' ')}, {462, Le(21.25f)}, {466, std::string(4, '\0')},
      {470, Le(512.5f)}, {474, Le(3.2f)}, {478, Le(0.45f)}, {482, Le(9876.5f)},
      {486, Le(0.03125f)}, {490, Le(14.5f)}, {494, Le(60.25f)}, {498, Le(900.5f)},
      {502, Le(75.5f)}, {506, Le(-1.0f)}, {510, Le(2048.0f)}, {514, Le(2500.5f)},
      {518, Le<int16_t>(1)}, {520, std::string(38, '\0')}};
  for (const auto& s : spans) EXPECT_EQ(disk.substr(s.offset, s.bytes.size()), s.bytes) << s.offset;
}

TEST(LevelRecord, ReservedBytesComeBackAsTheyWereAndClearingBlanksTheTextOnes) {
  std::string image(558, '\0');
  for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<char>('A' + i % 26);
  TempFolder folder;
  WriteAllBytes(folder / "F.TMP", image);
  RecordFile<LevelRecord> file(folder / "F.TMP");
  LevelRecord record = file.Read(1);
  file.Write(2, record);
  const std::string twice = ReadAllBytes(folder / "F.TMP");
  EXPECT_EQ(twice.substr(558), image);

  ClearFloorRecord(record);
  const std::string cleared = OnDisk(record);
  std::string expected(558, '\0');
  for (const auto& [offset, width] : {std::pair{4, 200}, {218, 78}, {296, 30}, {328, 7},
                                      {369, 78}, {447, 15}})
    expected.replace(offset, width, std::string(width, ' '));
  EXPECT_EQ(cleared, expected);
}

}  // namespace
