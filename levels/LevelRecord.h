#pragma once
// The one record of the levels and risers: in FloorsFile record k is heated level k with the
// riser piece that reaches it; in the derived network files a record is one network section.
#include <cstdint>
#include <string>
#include <utility>

#include "RecordLayout.h"
#include "WorkingFile.h"
#include "WorkingFiles.h"

struct LevelRecord {
  int16_t RecNo = 0;           // ordinal in its file; the level number in FloorsFile
  int16_t Level = 0;           // the heated level it belongs to; 0 for none
  std::string SheetList;       // the level's sheets, comma separated, ascending ("1,2,7")
  float LevelLoad = 0;         // Kcal/h, sum of the sheets' TotalLoad
  float LevelOutput = 0;       // Kcal/h, sum of the sheets' RealOutput
  float WorstLoopDrop = 0;     // mm w.g., the largest loop pressure drop of the sheets
  int16_t WorstSheet = 0;      // the sheet of that drop
  std::string StudyTitle;      // the study's Thema
  std::string Reserved1;       // 30 bytes of text, blanked by ClearFloorRecord only
  int16_t SectionNo = 0;       // first column of the final network grid
  std::string SectionName;     // "ANT/1  ", "  1/2  ": start node right justified, "/", end
  float Elbows = 0;            // pieces
  float Bends90 = 0;           // pieces
  int16_t Valves = 0;          // shut-off valves
  int16_t StraightControlValves = 0;
  int16_t AngleControlValves = 0;
  int16_t TeesBranch = 0;
  int16_t TeesPass = 0;
  int16_t TeesCounterflow = 0;
  int16_t TeesJunction = 0;
  int16_t CheckValves = 0;
  float OtherLossMm = 0;       // mm w.g.
  float OtherLossEqM = 0;      // equivalent metres of pipe
  int16_t PipeNo = 0;          // result: the pipe library used
  std::string PipeLibrary;     // result: class text of the pipe system
  std::string PipeName;        // result: the size chosen
  float InnerDiameter = 0;     // result: mm
  std::string Reserved2;       // 4 bytes of a number this subsystem never uses
  float SectionFlow = 0;       // Lit/h: the sheets' flow until the solver's replaces it
  float Length = 0;            // m
  float Velocity = 0;          // result: m/sec
  float Reynolds = 0;          // result
  float Friction = 0;          // result: friction factor
  float Gradient = 0;          // result: mm w.g. per m
  float SectionDrop = 0;       // result: mm w.g.
  float BranchHead = 0;        // result: head left at the section's end, mm w.g.
  float MeanTemp = 0;          // result: °C
  float ResultMark = 0;        // -1.0 once results were written back
  float TotalFlow = 0;         // result: network flow
  float PumpHead = 0;          // result: circulator head, mm w.g.
  int16_t HasLoops = 0;        // 1: sheets take their flow across the section ("ΝΑΙ")
  std::string Reserved3;       // three i16 and four f32, zeroed by ClearFloorRecord only
  std::string Reserved4;       // two f64 nobody reads, zeroed by ClearFloorRecord only
};

inline constexpr auto LevelRecordLayout = MakeLayout<LevelRecord, 558>(
    I16(&LevelRecord::RecNo, 0), I16(&LevelRecord::Level, 2),
    Text(&LevelRecord::SheetList, 4, 200), F32(&LevelRecord::LevelLoad, 204),
    F32(&LevelRecord::LevelOutput, 208), F32(&LevelRecord::WorstLoopDrop, 212),
    I16(&LevelRecord::WorstSheet, 216), Text(&LevelRecord::StudyTitle, 218, 78),
    Raw(&LevelRecord::Reserved1, 296, 30), I16(&LevelRecord::SectionNo, 326),
    Text(&LevelRecord::SectionName, 328, 7), F32(&LevelRecord::Elbows, 335),
    F32(&LevelRecord::Bends90, 339), I16(&LevelRecord::Valves, 343),
    I16(&LevelRecord::StraightControlValves, 345), I16(&LevelRecord::AngleControlValves, 347),
    I16(&LevelRecord::TeesBranch, 349), I16(&LevelRecord::TeesPass, 351),
    I16(&LevelRecord::TeesCounterflow, 353), I16(&LevelRecord::TeesJunction, 355),
    I16(&LevelRecord::CheckValves, 357), F32(&LevelRecord::OtherLossMm, 359),
    F32(&LevelRecord::OtherLossEqM, 363), I16(&LevelRecord::PipeNo, 367),
    Text(&LevelRecord::PipeLibrary, 369, 78), Text(&LevelRecord::PipeName, 447, 15),
    F32(&LevelRecord::InnerDiameter, 462), Raw(&LevelRecord::Reserved2, 466, 4),
    F32(&LevelRecord::SectionFlow, 470), F32(&LevelRecord::Length, 474),
    F32(&LevelRecord::Velocity, 478), F32(&LevelRecord::Reynolds, 482),
    F32(&LevelRecord::Friction, 486), F32(&LevelRecord::Gradient, 490),
    F32(&LevelRecord::SectionDrop, 494), F32(&LevelRecord::BranchHead, 498),
    F32(&LevelRecord::MeanTemp, 502), F32(&LevelRecord::ResultMark, 506),
    F32(&LevelRecord::TotalFlow, 510), F32(&LevelRecord::PumpHead, 514),
    I16(&LevelRecord::HasLoops, 518), Raw(&LevelRecord::Reserved3, 520, 22),
    Raw(&LevelRecord::Reserved4, 542, 16));
static_assert(LevelRecordLayout.Tiles(), "LevelRecord fields must tile 558 bytes");

template <>
struct RecordLayoutOf<LevelRecord> {
  static constexpr const auto& Value = LevelRecordLayout;
};

// The heated levels of the study, one record each.
inline constexpr WorkingFile<LevelRecord> FloorsFile{kFloorsFile};

// The start and end node of a section name, as its left and right three characters trimmed.
// The name reads back without its blanks ("  1/2  " as "1/2"); the "/" puts it back in place.
std::pair<std::string, std::string> SectionNodes(const std::string& sectionName);

// Zeroes every number and blanks every text of the record, the reserved bytes included.
void ClearFloorRecord(LevelRecord& record);
