// The two study records byte by byte, as they land on disk through RecordFile.
#include <gtest/gtest.h>

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
  return {.SheetNo = 258,
          .Thema = "Μελέτη Ωμέγα",
          .Ownership = "Οικία Α.Ε.",
          .LoopNo = "Β-12",
          .TempDrop = 20.0f,
          .PipeName = "Φ16x1",
          .Flow = 1234.5f,
          .Velocity = 0.15f,
          .SpecificResistance = 12.5f,
          .LoopLength = 10.0f,
          .OrigTemp = 80.0f,
          .OtherRes = 0.5f,
          .ResultsValid = -1.0f,
          .SomaCategoryNo = 3.0f,
          .TotalLoad = 1000.0f,
          .RealOutput = 100.0f,
          .WaterContent = 0.25f};
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
  return {.SheetNo = 2,
          .Thema = "Μελέτη Ωμέγα",
          .Ownership = "Οικία Α.Ε.",
          .Reserved1 = Pattern(53, 7, 3),
          .LoopNo = "Β-12",
          .PipeName = "Φ18x1",
          .RowNo = 7,
          .SomaNo = "Σ12",
          .RoomTemp = 22.0f,
          .Load = 1234.5f,
          .InletTemp = 80.0f,
          .OutletTemp = 70.0f,
          .MeanTemp = 75.0f,
          .CorrectionFactor = 0.75f,
          .EquivalentLoad = 1000.0f,
          .SomaType = "ΠΑΝΕΛ 600",
          .SomaText = "12/II/905",
          .SomaOutput = 100.0f,
          .SomaArea = 1.5f,
          .SomaLength = 2.0f,
          .SomaWater = 4.0f,
          .Reserved2 = Pattern(16, 37, 0xF0)};
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

// The known record lands on disk as the image, and the image read and written back stays
// byte for byte the same.
template <class T>
void ExpectGolden(const T& known, const std::vector<Span>& image, std::size_t length) {
  EXPECT_EQ(RecordFile<T>::Length, length);
  TempFolder dir;
  RecordFile<T>(dir / "known").Write(1, known);
  const std::string disk = ReadAllBytes(dir / "known");
  ASSERT_EQ(disk.size(), length);
  ExpectImage(disk, image);
  std::string bytes(length, '\0');
  for (const auto& s : image) bytes.replace(s.Offset, s.Bytes.size(), s.Bytes);
  WriteAllBytes(dir / "image", bytes);
  RecordFile<T>(dir / "back").Write(1, RecordFile<T>(dir / "image").Read(1));
  EXPECT_EQ(ReadAllBytes(dir / "back"), bytes);
}

TEST(RecordGolden, SheetRecord) {
  ExpectGolden(KnownSheet(), kSheetImage, 196);
}

TEST(RecordGolden, LoopRecord) {
  ExpectGolden(KnownLoop(), kLoopImage, 298);
}

SomaRecord KnownSoma() {
  return {.CategoryNo = 2,
          .RecordNo = 3,
          .Category = "Πάνελ",
          .SomaType = "22/600",
          .MeanActiveTemp = 60.0f,
          .Step = 100.0f,
          .StepUnits = "mm",
          .FirstSoma = "100",
          .MinSteps = 4,
          .MaxSteps = 30,
          .UnitOutput = 150.5f,
          .UnitArea = 0.25f,
          .SomaHeight = 600.0f,
          .SomaWidth = 100.0f,
          .UnitWater = 0.5f,
          .SomaWeight = 27.5f,
          .Discon = "21,23,",
          .Reserved = Pattern(20, 11, 0x81)};
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

TEST(RecordGolden, SomaRecord) {
  ExpectGolden(KnownSoma(), kSomaImage, 331);
}

}  // namespace
