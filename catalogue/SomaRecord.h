#pragma once
// The radiator type file: one family of radiators ("*.ths", "~Basic.dl", the working copy
// "ThisSomataFile.tmp"), one 331-byte record per model, numbered from 1, without header.
// The family-level values (CategoryNo, Category, MeanActiveTemp, Step, StepUnits, FirstSoma)
// stand in every record; readers take them from record 1.
#include <cstdint>
#include <string>

#include "RecordLayout.h"
#include "WorkingFile.h"

struct SomaRecord {
  int16_t CategoryNo = 0;    // number of the family, rewritten at every start
  int16_t RecordNo = 0;      // position of the record in the file, from 1
  std::string Category;      // the family's name, a qualifier may follow in brackets
  std::string SomaType;      // the model, the lookup key of the sizing
  float MeanActiveTemp = 0;  // °C, catalogue information only
  float Step = 0;            // length added by one step
  std::string StepUnits;     // unit of the step, free text
  std::string FirstSoma;     // the first body of the series, a number kept as text
  int16_t MinSteps = 0;      // smallest body, in steps
  int16_t MaxSteps = 0;      // largest body, in steps
  float UnitOutput = 0;      // Kcal/h of one step at 80/20
  float UnitArea = 0;        // m² of one step
  float SomaHeight = 0;      // mm
  float SomaWidth = 0;       // mm
  float UnitWater = 0;       // l, counted once per radiator of a loop
  float SomaWeight = 0;      // kg/m
  std::string Discon;        // steps in which the model is not made, "8,10,"
  std::string Reserved;      // five 4-byte values nobody reads: 20 bytes kept as they are
};

inline constexpr auto SomaRecordLayout = MakeLayout<SomaRecord, 331>(
    I16(&SomaRecord::CategoryNo, 0), I16(&SomaRecord::RecordNo, 2),
    Text(&SomaRecord::Category, 4, 120), Text(&SomaRecord::SomaType, 124, 25),
    F32(&SomaRecord::MeanActiveTemp, 149), F32(&SomaRecord::Step, 153),
    Text(&SomaRecord::StepUnits, 157, 16), Text(&SomaRecord::FirstSoma, 173, 10),
    I16(&SomaRecord::MinSteps, 183), I16(&SomaRecord::MaxSteps, 185),
    F32(&SomaRecord::UnitOutput, 187), F32(&SomaRecord::UnitArea, 191),
    F32(&SomaRecord::SomaHeight, 195), F32(&SomaRecord::SomaWidth, 199),
    F32(&SomaRecord::UnitWater, 203), F32(&SomaRecord::SomaWeight, 207),
    Text(&SomaRecord::Discon, 211, 100), Raw(&SomaRecord::Reserved, 311, 20));
static_assert(SomaRecordLayout.Tiles(), "SomaRecord fields must tile 331 bytes");

template <>
struct RecordLayoutOf<SomaRecord> {
  static constexpr const auto& Value = SomaRecordLayout;
};

// The copy of the family in use that every sizing and every model list reads.
inline constexpr WorkingFile<SomaRecord> SomataWorkingCopy{"ThisSomataFile.tmp"};

// The family with sections, whose sizing uses the program's own rating table; its type file is
// restored from the master copy when the engineer has lost it.
inline constexpr int16_t kSectionFamilyNo = 1;
inline constexpr const char* kSectionFamilyCategory = "Κλασσικά Θερμαντικά Σώματα, με Φέτες";
inline constexpr const char* kSectionFamilyFile = "Κλασσικά Σώματα, με Φέτες.ths";
inline constexpr const char* kSectionFamilyMaster = "~Basic.dl";

// The display form of a category: the text in front of the first "(", trimmed.
std::string DisplayCategory(const std::string& category);
