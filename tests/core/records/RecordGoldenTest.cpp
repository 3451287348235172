// The two study records byte by byte, as they land on disk through RecordFile.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "RecordFile.h"
#include "SheetRecords.h"
#include "SomaRecord.h"
#include "TempFolder.h"

namespace {

// One field of the expected image: where it starts and the bytes it must hold.
struct Span {
  const char* Field;
  std::size_t Offset;
  std::string Bytes;
};

std::string FromHex(const std::string& hex) {
  std::string out;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
    out += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  }
  return out;
}

std::string Blanked(const std::string& bytes, std::size_t width) {
  return bytes + std::string(width - bytes.size(), ' ');
}

std::string Pattern(std::size_t width, int step, int start) {
  std::string out;
  for (std::size_t i = 0; i < width; ++i) out += static_cast<char>((start + step * i) & 0xFF);
  return out;
}

// Every byte of the record is claimed by exactly one span.
void ExpectSpansTile(std::vector<Span> spans, std::size_t length) {
  std::sort(spans.begin(), spans.end(),
            [](const Span& a, const Span& b) { return a.Offset < b.Offset; });
  std::size_t at = 0;
  for (const auto& s : spans) {
    EXPECT_EQ(s.Offset, at) << s.Field;
    at = s.Offset + s.Bytes.size();
  }
  EXPECT_EQ(at, length);
}

void ExpectImage(const std::string& disk, const std::vector<Span>& spans) {
  for (const auto& s : spans) {
    ASSERT_LE(s.Offset + s.Bytes.size(), disk.size()) << s.Field;
    EXPECT_EQ(disk.substr(s.Offset, s.Bytes.size()), s.Bytes) << s.Field << " at " << s.Offset;
  }
}

const std::string kThemaBytes = FromHex("cce5ebddf4e720d9ecdde3e1");  // Μελέτη Ωμέγα
const std::string kOwnerBytes = FromHex("cfe9eadfe120c12ec52e");      // Οικία Α.Ε.
const std::string kLoopNoBytes = FromHex("c22d3132");                 // Β-12

SheetRecord KnownSheet() {
  SheetRecord s;
  s.SheetNo = 258;
  s.Thema = "Μελέτη Ωμέγα";
  s.Ownership = "Οικία Α.Ε.";
  s.LoopNo = "Β-12";
  s.TempDrop = 20.0f;
  s.PipeName = "Φ16x1";
  s.Flow = 1234.5f;
  s.Velocity = 0.15f;
  s.SpecificResistance = 12.5f;
  s.LoopLength = 10.0f;
  s.OrigTemp = 80.0f;
  s.OtherRes = 0.5f;
  s.ResultsValid = -1.0f;
  s.SomaCategoryNo = 3.0f;
  s.TotalLoad = 1000.0f;
  s.RealOutput = 100.0f;
  s.WaterContent = 0.25f;
  return s;
}

const std::vector<Span> kSheetImage = {
    {"SheetNo", 0, FromHex("0201")},
    {"Thema", 2, Blanked(kThemaBytes, 78)},
    {"Ownership", 80, Blanked(kOwnerBytes, 30)},
    {"LoopNo", 110, Blanked(kLoopNoBytes, 30)},
    {"TempDrop", 140, FromHex("0000a041")},
    {"PipeName", 144, FromHex("d631367831202020")},
    {"Flow", 152, FromHex("00509a44")},
    {"Velocity", 156, FromHex("9a99193e")},
    {"SpecificResistance", 160, FromHex("00004841")},
    {"LoopLength", 164, FromHex("00002041")},
    {"OrigTemp", 168, FromHex("0000a042")},
    {"OtherRes", 172, FromHex("0000003f")},
    {"ResultsValid", 176, FromHex("000080bf")},
    {"SomaCategoryNo", 180, FromHex("00004040")},
    {"TotalLoad", 184, FromHex("00007a44")},
    {"RealOutput", 188, FromHex("0000c842")},
    {"WaterContent", 192, FromHex("0000803e")},
};

LoopRecord KnownLoop() {
  LoopRecord r;
  r.SheetNo = 2;
  r.Thema = "Μελέτη Ωμέγα";
  r.Ownership = "Οικία Α.Ε.";
  r.Reserved1 = Pattern(53, 7, 3);
  r.LoopNo = "Β-12";
  r.PipeName = "Φ18x1";
  r.RowNo = 7;
  r.SomaNo = "Σ12";
  r.RoomTemp = 22.0f;
  r.Load = 1234.5f;
  r.InletTemp = 80.0f;
  r.OutletTemp = 70.0f;
  r.MeanTemp = 75.0f;
  r.CorrectionFactor = 0.75f;
  r.EquivalentLoad = 1000.0f;
  r.SomaType = "ΠΑΝΕΛ 600";
  r.SomaText = "12/II/905";
  r.SomaOutput = 100.0f;
  r.SomaArea = 1.5f;
  r.SomaLength = 2.0f;
  r.SomaWater = 4.0f;
  r.Reserved2 = Pattern(16, 37, 0xF0);
  return r;
}

const std::vector<Span> kLoopImage = {
    {"SheetNo", 0, FromHex("0200")},
    {"Thema", 2, Blanked(kThemaBytes, 78)},
    {"Ownership", 80, Blanked(kOwnerBytes, 30)},
    {"Reserved1", 110, Pattern(53, 7, 3)},
    {"LoopNo", 163, Blanked(kLoopNoBytes, 30)},
    {"PipeName", 193, FromHex("d631387831202020")},
    {"RowNo", 201, FromHex("0700")},
    {"SomaNo", 203, Blanked(FromHex("d33132"), 5)},
    {"RoomTemp", 208, FromHex("0000b041")},
    {"Load", 212, FromHex("00509a44")},
    {"InletTemp", 216, FromHex("0000a042")},
    {"OutletTemp", 220, FromHex("00008c42")},
    {"MeanTemp", 224, FromHex("00009642")},
    {"CorrectionFactor", 228, FromHex("0000403f")},
    {"EquivalentLoad", 232, FromHex("00007a44")},
    {"SomaType", 236, Blanked(FromHex("d0c1cdc5cb20363030"), 15)},
    {"SomaText", 251, Blanked("12/II/905", 15)},
    {"SomaOutput", 266, FromHex("0000c842")},
    {"SomaArea", 270, FromHex("0000c03f")},
    {"SomaLength", 274, FromHex("00000040")},
    {"SomaWater", 278, FromHex("00008040")},
    {"Reserved2", 282, Pattern(16, 37, 0xF0)},
};

void ExpectSameSheet(const SheetRecord& a, const SheetRecord& b) {
  EXPECT_EQ(a.SheetNo, b.SheetNo);
  EXPECT_EQ(a.Thema, b.Thema);
  EXPECT_EQ(a.Ownership, b.Ownership);
  EXPECT_EQ(a.LoopNo, b.LoopNo);
  EXPECT_EQ(a.TempDrop, b.TempDrop);
  EXPECT_EQ(a.PipeName, b.PipeName);
  EXPECT_EQ(a.Flow, b.Flow);
  EXPECT_EQ(a.Velocity, b.Velocity);
  EXPECT_EQ(a.SpecificResistance, b.SpecificResistance);
  EXPECT_EQ(a.LoopLength, b.LoopLength);
  EXPECT_EQ(a.OrigTemp, b.OrigTemp);
  EXPECT_EQ(a.OtherRes, b.OtherRes);
  EXPECT_EQ(a.ResultsValid, b.ResultsValid);
  EXPECT_EQ(a.SomaCategoryNo, b.SomaCategoryNo);
  EXPECT_EQ(a.TotalLoad, b.TotalLoad);
  EXPECT_EQ(a.RealOutput, b.RealOutput);
  EXPECT_EQ(a.WaterContent, b.WaterContent);
}

void ExpectSameLoop(const LoopRecord& a, const LoopRecord& b) {
  EXPECT_EQ(a.SheetNo, b.SheetNo);
  EXPECT_EQ(a.Thema, b.Thema);
  EXPECT_EQ(a.Ownership, b.Ownership);
  EXPECT_EQ(a.Reserved1, b.Reserved1);
  EXPECT_EQ(a.LoopNo, b.LoopNo);
  EXPECT_EQ(a.PipeName, b.PipeName);
  EXPECT_EQ(a.RowNo, b.RowNo);
  EXPECT_EQ(a.SomaNo, b.SomaNo);
  EXPECT_EQ(a.RoomTemp, b.RoomTemp);
  EXPECT_EQ(a.Load, b.Load);
  EXPECT_EQ(a.InletTemp, b.InletTemp);
  EXPECT_EQ(a.OutletTemp, b.OutletTemp);
  EXPECT_EQ(a.MeanTemp, b.MeanTemp);
  EXPECT_EQ(a.CorrectionFactor, b.CorrectionFactor);
  EXPECT_EQ(a.EquivalentLoad, b.EquivalentLoad);
  EXPECT_EQ(a.SomaType, b.SomaType);
  EXPECT_EQ(a.SomaText, b.SomaText);
  EXPECT_EQ(a.SomaOutput, b.SomaOutput);
  EXPECT_EQ(a.SomaArea, b.SomaArea);
  EXPECT_EQ(a.SomaLength, b.SomaLength);
  EXPECT_EQ(a.SomaWater, b.SomaWater);
  EXPECT_EQ(a.Reserved2, b.Reserved2);
}

TEST(RecordGolden, ImagesCoverWholeRecords) {
  ExpectSpansTile(kSheetImage, 196);
  ExpectSpansTile(kLoopImage, 298);
  EXPECT_EQ(RecordFile<SheetRecord>::Length, 196u);
  EXPECT_EQ(RecordFile<LoopRecord>::Length, 298u);
}

TEST(RecordGolden, SheetRecordOnDisk) {
  TempFolder dir;
  {
    RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP");
    sheets.Write(1, KnownSheet());
  }
  const std::string disk = ReadAllBytes(dir / "SHEETS.TMP");
  ASSERT_EQ(disk.size(), 196u);
  ExpectImage(disk, kSheetImage);
}

TEST(RecordGolden, SheetRecordReadFromTheImage) {
  TempFolder dir;
  std::string disk(196, '\0');
  for (const auto& s : kSheetImage) disk.replace(s.Offset, s.Bytes.size(), s.Bytes);
  WriteAllBytes(dir / "SHEETS.TMP", disk);
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP", RecordFileMode::ReadOnly);
  ASSERT_EQ(sheets.Count(), 1);
  ExpectSameSheet(sheets.Read(1), KnownSheet());
}

TEST(RecordGolden, LoopRecordOnDisk) {
  TempFolder dir;
  {
    RecordFile<LoopRecord> loops(dir / "LOOPS.TMP");
    loops.Write(1, KnownLoop());
  }
  const std::string disk = ReadAllBytes(dir / "LOOPS.TMP");
  ASSERT_EQ(disk.size(), 298u);
  ExpectImage(disk, kLoopImage);
}

TEST(RecordGolden, LoopRecordReadFromTheImage) {
  TempFolder dir;
  std::string disk(298, '\0');
  for (const auto& s : kLoopImage) disk.replace(s.Offset, s.Bytes.size(), s.Bytes);
  WriteAllBytes(dir / "LOOPS.TMP", disk);
  RecordFile<LoopRecord> loops(dir / "LOOPS.TMP", RecordFileMode::ReadOnly);
  ASSERT_EQ(loops.Count(), 1);
  ExpectSameLoop(loops.Read(1), KnownLoop());
}

TEST(RecordGolden, LoopRecordOfRowThreeOfSheetTwoIsNumberEleven) {
  EXPECT_EQ(LoopRecordNumber(1, 1), 1);
  EXPECT_EQ(LoopRecordNumber(2, 3), 11);
  EXPECT_EQ(LoopRecordNumber(3, 8), 24);
  TempFolder dir;
  RecordFile<LoopRecord> loops(dir / "LOOPS.TMP");
  loops.Write(LoopRecordNumber(2, 3), KnownLoop());
  const std::string disk = ReadAllBytes(dir / "LOOPS.TMP");
  ASSERT_EQ(disk.size(), 11u * 298u);
  ExpectImage(disk.substr(10 * 298), kLoopImage);
}

TEST(RecordGolden, NewRecordWritesZerosInTheReservedFields) {
  TempFolder dir;
  RecordFile<LoopRecord> loops(dir / "LOOPS.TMP");
  loops.Write(1, LoopRecord{});
  const std::string disk = ReadAllBytes(dir / "LOOPS.TMP");
  ASSERT_EQ(disk.size(), 298u);
  EXPECT_EQ(disk.substr(110, 53), std::string(53, '\0'));
  EXPECT_EQ(disk.substr(282, 16), std::string(16, '\0'));
  EXPECT_EQ(disk.substr(2, 78), std::string(78, ' '));
  EXPECT_EQ(disk.substr(203, 5), std::string(5, ' '));
}

TEST(RecordGolden, ReservedBytesAreKeptWhenARecordIsReadAndWrittenBack) {
  TempFolder dir;
  std::string disk(298, '\0');
  for (const auto& s : kLoopImage) disk.replace(s.Offset, s.Bytes.size(), s.Bytes);
  // Arbitrary bytes in both reserved areas, every value from 0 to 255 among them.
  std::string reserved;
  for (int b = 0; b < 256; ++b) reserved += static_cast<char>((b * 151 + 17) & 0xFF);
  disk.replace(110, 53, reserved.substr(0, 53));
  disk.replace(282, 16, reserved.substr(240, 16));
  WriteAllBytes(dir / "LOOPS.TMP", disk + disk);
  {
    RecordFile<LoopRecord> loops(dir / "LOOPS.TMP");
    LoopRecord r = loops.Read(2);
    r.Load = 1000.0f;  // one real change, as a save of the row would make
    loops.Write(2, r);
  }
  std::string expected = disk + disk;
  expected.replace(298 + 212, 4, FromHex("00007a44"));
  EXPECT_EQ(ReadAllBytes(dir / "LOOPS.TMP"), expected);
}

TEST(RecordGolden, TooLongTextIsCutAtTheWidthOfItsField) {
  TempFolder dir;
  SheetRecord s = KnownSheet();
  s.PipeName = "Φ16x1 χαλκός";
  s.LoopNo.clear();
  for (int i = 0; i < 40; ++i) s.LoopNo += "Λ";
  {
    RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP");
    sheets.Write(1, s);
  }
  const std::string disk = ReadAllBytes(dir / "SHEETS.TMP");
  ASSERT_EQ(disk.size(), 196u);
  EXPECT_EQ(disk.substr(144, 8), FromHex("d63136783120f7e1"));
  EXPECT_EQ(disk.substr(110, 30), std::string(30, '\xCB'));
  EXPECT_EQ(disk.substr(152, 4), FromHex("00509a44"));  // the next field is untouched
  RecordFile<SheetRecord> sheets(dir / "SHEETS.TMP", RecordFileMode::ReadOnly);
  EXPECT_EQ(sheets.Read(1).PipeName, "Φ16x1 χα");
}

// ---- The radiator type file ----------------------------------------------------------------

SomaRecord KnownSoma() {
  SomaRecord m;
  m.CategoryNo = 2;
  m.RecordNo = 3;
  m.Category = "Πάνελ";
  m.SomaType = "22/600";
  m.MeanActiveTemp = 60.0f;
  m.Step = 100.0f;
  m.StepUnits = "mm";
  m.FirstSoma = "100";
  m.MinSteps = 4;
  m.MaxSteps = 30;
  m.UnitOutput = 150.5f;
  m.UnitArea = 0.25f;
  m.SomaHeight = 600.0f;
  m.SomaWidth = 100.0f;
  m.UnitWater = 0.5f;
  m.SomaWeight = 27.5f;
  m.Discon = "21,23,";
  m.Reserved = Pattern(20, 11, 0x81);
  return m;
}

const std::vector<Span> kSomaImage = {
    {"CategoryNo", 0, FromHex("0200")},
    {"RecordNo", 2, FromHex("0300")},
    {"Category", 4, Blanked(FromHex("d0dcede5eb"), 120)},
    {"SomaType", 124, Blanked("22/600", 25)},
    {"MeanActiveTemp", 149, FromHex("00007042")},
    {"Step", 153, FromHex("0000c842")},
    {"StepUnits", 157, Blanked("mm", 16)},
    {"FirstSoma", 173, Blanked("100", 10)},
    {"MinSteps", 183, FromHex("0400")},
    {"MaxSteps", 185, FromHex("1e00")},
    {"UnitOutput", 187, FromHex("00801643")},
    {"UnitArea", 191, FromHex("0000803e")},
    {"SomaHeight", 195, FromHex("00001644")},
    {"SomaWidth", 199, FromHex("0000c842")},
    {"UnitWater", 203, FromHex("0000003f")},
    {"SomaWeight", 207, FromHex("0000dc41")},
    {"Discon", 211, Blanked("21,23,", 100)},
    {"Reserved", 311, Pattern(20, 11, 0x81)},
};

TEST(RecordGolden, SomaRecordOnDiskAndBack) {
  ExpectSpansTile(kSomaImage, 331);
  TempFolder dir;
  {
    RecordFile<SomaRecord> file(dir / "Πάνελ.ths");
    file.Write(1, KnownSoma());
  }
  const std::string disk = ReadAllBytes(dir / "Πάνελ.ths");
  ASSERT_EQ(disk.size(), 331u);
  ExpectImage(disk, kSomaImage);
  const SomaRecord back = RecordFile<SomaRecord>(dir / "Πάνελ.ths").Read(1);
  EXPECT_EQ(back.Category, "Πάνελ");
  EXPECT_EQ(back.Discon, "21,23,");
  EXPECT_EQ(back.UnitOutput, 150.5f);
  EXPECT_EQ(back.MaxSteps, 30);
  EXPECT_EQ(back.Reserved, Pattern(20, 11, 0x81));
}

TEST(RecordGolden, AFileOf330BytesHoldsOneRecordCutShort) {
  TempFolder dir;
  {
    RecordFile<SomaRecord> file(dir / "x.ths");
    file.Write(1, KnownSoma());
  }
  std::filesystem::resize_file(dir / "x.ths", 330);
  RecordFile<SomaRecord> file(dir / "x.ths");
  ASSERT_EQ(file.Count(), 1);
  const SomaRecord cut = file.Read(1);
  EXPECT_EQ(cut.UnitOutput, 150.5f);
  EXPECT_EQ(cut.Reserved, Pattern(19, 11, 0x81) + std::string(1, '\0'));
}

TEST(RecordGolden, DisplayCategoryDropsTheQualifierInBrackets) {
  EXPECT_EQ(DisplayCategory("Χαλύβδινα Πάνελ (EN 442, τύποι 11-22-33)"), "Χαλύβδινα Πάνελ");
  EXPECT_EQ(DisplayCategory("  Κλασσικά Θερμαντικά Σώματα, με Φέτες  "),
            "Κλασσικά Θερμαντικά Σώματα, με Φέτες");
  EXPECT_EQ(DisplayCategory("(μόνο)"), "");
}

}  // namespace
