#pragma once
// Radiator type files for tests: the family values in every record, the records numbered in
// order, as the catalogue maker writes them.
#include <filesystem>
#include <string>
#include <vector>

#include "RadiatorSizing.h"
#include "RecordFile.h"
#include "SomaRecord.h"

inline void WriteTypeFile(const std::filesystem::path& file, int16_t categoryNo,
                          const std::string& category, std::vector<SomaRecord> models) {
  RecordFile<SomaRecord> out(file);
  for (std::size_t i = 0; i < models.size(); ++i) {
    SomaRecord& m = models[i];
    m.CategoryNo = categoryNo;
    m.RecordNo = static_cast<int16_t>(i + 1);
    m.Category = category;
    if (m.MeanActiveTemp == 0) m.MeanActiveTemp = 60;
    out.Write(static_cast<int32_t>(i + 1), m);
  }
}

// The family with sections, one record per model of the rating table.
inline std::vector<SomaRecord> SectionModels(float unitWater) {
  std::vector<SomaRecord> models;
  for (const SectionRating& r : SectionRatings()) {
    SomaRecord m;
    m.SomaType = r.Model;
    m.Step = 40;
    m.StepUnits = "Στοιχεία";
    m.FirstSoma = "40";
    m.MinSteps = 1;
    m.MaxSteps = 40;
    m.UnitOutput = r.Output;
    m.UnitArea = r.Area;
    m.UnitWater = unitWater;
    models.push_back(m);
  }
  return models;
}

// A stepped model: output per step at 80/20, sizes in steps, the discontinuities.
inline SomaRecord Stepped(const std::string& type, float unitOutput, float unitArea, float step,
                          const std::string& firstSoma, int16_t minSteps, int16_t maxSteps,
                          const std::string& discon) {
  SomaRecord m;
  m.SomaType = type;
  m.UnitOutput = unitOutput;
  m.UnitArea = unitArea;
  m.Step = step;
  m.StepUnits = "mm";
  m.FirstSoma = firstSoma;
  m.MinSteps = minSteps;
  m.MaxSteps = maxSteps;
  m.Discon = discon;
  return m;
}
