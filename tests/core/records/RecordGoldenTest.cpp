// The three records byte by byte, as they land on disk through RecordFile.
#include <gtest/gtest.h>

#include <string>

#include "RecordFile.h"
#include "RecordImage.h"
#include "SheetRecords.h"
#include "SomaRecord.h"
#include "TempFolder.h"

namespace {

// The known record lands on disk as the image, and the image read and written back stays
// byte for byte the same.
template <class T>
void ExpectGolden(const T& known, const std::string& fields, std::size_t length) {
  EXPECT_EQ(RecordFile<T>::Length, length);
  TempFolder dir;
  RecordFile<T>(dir / "known").Write(1, known);
  const std::string disk = ReadAllBytes(dir / "known");
  ASSERT_EQ(disk.size(), length);
  ExpectFields(disk, fields);
  std::string bytes(length, '\0');
  for (const auto& f : ImageFields(fields)) bytes.replace(f.Offset, f.Bytes.size(), f.Bytes);
  WriteAllBytes(dir / "image", bytes);
  RecordFile<T>(dir / "back").Write(1, RecordFile<T>(dir / "image").Read(1));
  EXPECT_EQ(ReadAllBytes(dir / "back"), bytes);
}

// Texts in code page 1253: "Μελέτη Ωμέγα" cce5ebddf4e720d9ecdde3e1, "Οικία Α.Ε."
// cfe9eadfe120c12ec52e, "Β-12" c22d3132. The values stand in the order of the record's fields.
TEST(RecordGolden, SheetRecord) {
  const SheetRecord known{258,     "Μελέτη Ωμέγα", "Οικία Α.Ε.", "Β-12", 20.0f, "Φ16x1",
                          1234.5f, 0.15f,          12.5f,        10.0f,  80.0f, 0.5f,
                          -1.0f,   3.0f,           1000.0f,      100.0f, 0.25f};
  ExpectGolden(known,
               "SheetNo@0=0201 Thema@2=cce5ebddf4e720d9ecdde3e1+78 "
               "Ownership@80=cfe9eadfe120c12ec52e+30 LoopNo@110=c22d3132+30 TempDrop@140=0000a041 "
               "PipeName@144=d631367831202020 Flow@152=00509a44 Velocity@156=9a99193e "
               "SpecificResistance@160=00004841 LoopLength@164=00002041 OrigTemp@168=0000a042 "
               "OtherRes@172=0000003f ResultsValid@176=000080bf SomaCategoryNo@180=00004040 "
               "TotalLoad@184=00007a44 RealOutput@188=0000c842 WaterContent@192=0000803e",
               196);
}

TEST(RecordGolden, LoopRecord) {
  const std::string first = Pattern(53, 7, 3), second = Pattern(16, 37, 0xF0);
  const LoopRecord known{2,     "Μελέτη Ωμέγα", "Οικία Α.Ε.", first,       "Β-12",      "Φ18x1",
                         7,     "Σ12",          22.0f,        1234.5f,     80.0f,       70.0f,
                         75.0f, 0.75f,          1000.0f,      "ΠΑΝΕΛ 600", "12/II/905", 100.0f,
                         1.5f,  2.0f,           4.0f,         second};
  ExpectGolden(known,
               "SheetNo@0=0200 Thema@2=cce5ebddf4e720d9ecdde3e1+78 "
               "Ownership@80=cfe9eadfe120c12ec52e+30 Reserved1@110=~53/7/3 "
               "LoopNo@163=c22d3132+30 PipeName@193=d631387831202020 RowNo@201=0700 "
               "SomaNo@203=d33132+5 RoomTemp@208=0000b041 Load@212=00509a44 "
               "InletTemp@216=0000a042 OutletTemp@220=00008c42 MeanTemp@224=00009642 "
               "CorrectionFactor@228=0000403f EquivalentLoad@232=00007a44 "
               "SomaType@236=d0c1cdc5cb20363030+15 SomaText@251=31322f49492f393035+15 "
               "SomaOutput@266=0000c842 SomaArea@270=0000c03f SomaLength@274=00000040 "
               "SomaWater@278=00008040 Reserved2@282=~16/37/240",
               298);
}

TEST(RecordGolden, SomaRecord) {
  const std::string reserved = Pattern(20, 11, 0x81);
  const SomaRecord known{2,  3,      "Πάνελ", "22/600", 60.0f,  100.0f, "mm",  "100",    4,
                         30, 150.5f, 0.25f,   600.0f,   100.0f, 0.5f,   27.5f, "21,23,", reserved};
  ExpectGolden(known,
               "CategoryNo@0=0200 RecordNo@2=0300 Category@4=d0dcede5eb+120 "
               "SomaType@124=32322f363030+25 MeanActiveTemp@149=00007042 Step@153=0000c842 "
               "StepUnits@157=6d6d+16 FirstSoma@173=313030+10 MinSteps@183=0400 "
               "MaxSteps@185=1e00 UnitOutput@187=00801643 UnitArea@191=0000803e "
               "SomaHeight@195=00001644 SomaWidth@199=0000c842 UnitWater@203=0000003f "
               "SomaWeight@207=0000dc41 Discon@211=32312c32332c+100 Reserved@311=~20/11/129",
               331);
}

}  // namespace
