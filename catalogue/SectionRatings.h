#pragma once
// The rating table of the family with sections: the catalogue output and heating surface of
// one section of each model, at the 80/20 condition. The program sizes that family from this
// table, not from its type file.
#include <cstdint>
#include <string>
#include <vector>

// One row of the rating table of the family with sections.
struct SectionRating {
  const char* Model;     // "II/905"
  const char* Greek;     // the same typed on a Greek keyboard, "ΙΙ/905"
  const char* GreekAlt;  // a third spelling, or nullptr
  int16_t Output;        // Kcal/h per section
  float Area;            // m² per section
};

// The table, in the order of the catalogue.
const std::vector<SectionRating>& SectionRatings();
// The row of a model, compared exactly with each spelling; nullptr when none matches.
const SectionRating* FindSectionRating(const std::string& somaType);
