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

// The family with sections, one record per model of the rating table. The fields stand in the
// order of the record.
inline std::vector<SomaRecord> SectionModels(float unitWater) {
  std::vector<SomaRecord> models;
  for (const SectionRating& r : SectionRatings())
    models.push_back({0, 0, "", r.Model, 0, 40, "Στοιχεία", "40", 1, 40, float(r.Output), r.Area, 0,
                      0, unitWater, 0, "", ""});
  return models;
}

// A stepped model: output per step at 80/20, sizes in steps, the discontinuities (in the order
// of the record's fields).
inline SomaRecord Stepped(const std::string& type, float unitOutput, float unitArea, float step,
                          const std::string& firstSoma, int16_t minSteps, int16_t maxSteps,
                          const std::string& discon) {
  return {0,        0,          "",       type, 0, step, "mm", firstSoma, minSteps,
          maxSteps, unitOutput, unitArea, 0,    0, 0,    0,    discon,    ""};
}
