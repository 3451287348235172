#pragma once
// The two records in which the sheets of a study live, on disk and in study files alike:
// SheetsFile (one SheetRecord per sheet) and LoopsFile (eight LoopRecords per sheet, the
// record of row r of sheet s at (s - 1) * 8 + r); and the study browser's list of studies.
#include <cstdint>
#include <string>

#include "RecordLayout.h"
#include "WorkingFile.h"

struct SheetRecord {
  int16_t SheetNo = 0;           // equal to the record number
  std::string Thema;             // subject of the study, the same in all sheets
  std::string Ownership;         // owner of the building
  std::string LoopNo;            // the engineer's label of the loop
  float TempDrop = 0;            // °C over the loop
  std::string PipeName;          // an entry of RavoPipes.txt
  float Flow = 0;                // l/h, as it stands in TxtFlow
  float Velocity = 0;            // m/s
  float SpecificResistance = 0;  // mm water column per m
  float LoopLength = 0;          // m
  float OrigTemp = 0;            // °C at the loop inlet
  float OtherRes = 0;            // m, equivalent length of the special local resistances
  float ResultsValid = 0;        // -1.0 saved calculated, 0.0 not
  float SomaCategoryNo = 0;      // radiator family of the sheet
  float TotalLoad = 0;           // Kcal/h, column 4 of the last data row
  float RealOutput = 0;          // Kcal/h, the sum of column 12
  float WaterContent = 0;        // l
};

inline constexpr auto SheetRecordLayout = MakeLayout<SheetRecord, 196>(
    I16(&SheetRecord::SheetNo, 0), Text(&SheetRecord::Thema, 2, 78),
    Text(&SheetRecord::Ownership, 80, 30), Text(&SheetRecord::LoopNo, 110, 30),
    F32(&SheetRecord::TempDrop, 140), Text(&SheetRecord::PipeName, 144, 8),
    F32(&SheetRecord::Flow, 152), F32(&SheetRecord::Velocity, 156),
    F32(&SheetRecord::SpecificResistance, 160), F32(&SheetRecord::LoopLength, 164),
    F32(&SheetRecord::OrigTemp, 168), F32(&SheetRecord::OtherRes, 172),
    F32(&SheetRecord::ResultsValid, 176), F32(&SheetRecord::SomaCategoryNo, 180),
    F32(&SheetRecord::TotalLoad, 184), F32(&SheetRecord::RealOutput, 188),
    F32(&SheetRecord::WaterContent, 192));
static_assert(SheetRecordLayout.Tiles(), "SheetRecord fields must tile 196 bytes");

template <>
struct RecordLayoutOf<SheetRecord> {
  static constexpr const auto& Value = SheetRecordLayout;
};

inline constexpr WorkingFile<SheetRecord> SheetsFile{"SHEETS.TMP"};

struct LoopRecord {
  int16_t SheetNo = 0;         // the sheet that owns the row
  std::string Thema;           // copy of SheetRecord.Thema
  std::string Ownership;       // copy of SheetRecord.Ownership
  std::string Reserved1;       // 53 bytes written back unchanged, read by nobody
  std::string LoopNo;          // copy of SheetRecord.LoopNo
  std::string PipeName;        // copy of SheetRecord.PipeName
  int16_t RowNo = 0;           // 1 to 8
  std::string SomaNo;          // the engineer's number of the radiator; empty: row unused
  float RoomTemp = 0;          // °C, grid column 3
  float Load = 0;              // Kcal/h, column 2
  float InletTemp = 0;         // °C, column 5
  float OutletTemp = 0;        // °C, column 6
  float MeanTemp = 0;          // °C, column 7
  float CorrectionFactor = 0;  // column 8
  float EquivalentLoad = 0;    // Kcal/h at 80/20, column 9
  std::string SomaType;        // radiator model, column 10
  std::string SomaText;        // chosen radiator, e.g. 12/II/905, column 11
  float SomaOutput = 0;        // Kcal/h, column 12
  float SomaArea = 0;          // m², column 13
  float SomaLength = 0;        // m, column 14
  float SomaWater = 0;         // l, water content of the model
  std::string Reserved2;       // four f32 never set: 16 bytes kept as they are
};

inline constexpr auto LoopRecordLayout = MakeLayout<LoopRecord, 298>(
    I16(&LoopRecord::SheetNo, 0), Text(&LoopRecord::Thema, 2, 78),
    Text(&LoopRecord::Ownership, 80, 30), Raw(&LoopRecord::Reserved1, 110, 53),
    Text(&LoopRecord::LoopNo, 163, 30), Text(&LoopRecord::PipeName, 193, 8),
    I16(&LoopRecord::RowNo, 201), Text(&LoopRecord::SomaNo, 203, 5),
    F32(&LoopRecord::RoomTemp, 208), F32(&LoopRecord::Load, 212), F32(&LoopRecord::InletTemp, 216),
    F32(&LoopRecord::OutletTemp, 220), F32(&LoopRecord::MeanTemp, 224),
    F32(&LoopRecord::CorrectionFactor, 228), F32(&LoopRecord::EquivalentLoad, 232),
    Text(&LoopRecord::SomaType, 236, 15), Text(&LoopRecord::SomaText, 251, 15),
    F32(&LoopRecord::SomaOutput, 266), F32(&LoopRecord::SomaArea, 270),
    F32(&LoopRecord::SomaLength, 274), F32(&LoopRecord::SomaWater, 278),
    Raw(&LoopRecord::Reserved2, 282, 16));
static_assert(LoopRecordLayout.Tiles(), "LoopRecord fields must tile 298 bytes");

template <>
struct RecordLayoutOf<LoopRecord> {
  static constexpr const auto& Value = LoopRecordLayout;
};

inline constexpr WorkingFile<LoopRecord> LoopsFile{"LOOPS.TMP"};

// StudiesFile: one record per study file of the studies' folder, a cache the study browser
// rebuilds from the folder each time it opens.
struct StudyRecord {
  int16_t StudyNo = 0;     // from 1, the record number
  std::string StudyTitle;  // Thema of the study's first sheet
  std::string FolderPath;  // folder of the file, with its trailing separator
  std::string FileName;    // name of the .sht file
  std::string FileDate;    // last-write date, for display
  std::string FileTime;    // last-write time, for display
  std::string Reserved;    // 18 bytes never set
};

inline constexpr auto StudyRecordLayout = MakeLayout<StudyRecord, 526>(
    I16(&StudyRecord::StudyNo, 0), Text(&StudyRecord::StudyTitle, 2, 120),
    Text(&StudyRecord::FolderPath, 122, 264), Text(&StudyRecord::FileName, 386, 100),
    Text(&StudyRecord::FileDate, 486, 12), Text(&StudyRecord::FileTime, 498, 10),
    Raw(&StudyRecord::Reserved, 508, 18));
static_assert(StudyRecordLayout.Tiles(), "StudyRecord fields must tile 526 bytes");

template <>
struct RecordLayoutOf<StudyRecord> {
  static constexpr const auto& Value = StudyRecordLayout;
};

inline constexpr WorkingFile<StudyRecord> StudiesFile{"Studies.std"};

inline constexpr int kRowsPerSheet = 8;
// The number of the LoopRecord of row `row` of sheet `sheet`, both from 1.
inline constexpr int32_t LoopRecordNumber(int32_t sheet, int32_t row) {
  return (sheet - 1) * kRowsPerSheet + row;
}
