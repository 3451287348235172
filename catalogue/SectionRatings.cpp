#include "SectionRatings.h"

const std::vector<SectionRating>& SectionRatings() {
  static const std::vector<SectionRating> table = {
      {"II/905", "ΙΙ/905", nullptr, 90, 0.2f},    {"II/655", "ΙΙ/655", nullptr, 70, 0.15f},
      {"II/505", "ΙΙ/505", nullptr, 50, 0.12f},   {"II/355", "ΙΙ/355", nullptr, 40, 0.09f},
      {"III/905", "ΙΙΙ/905", nullptr, 130, 0.3f}, {"III/655", "ΙΙΙ/655", nullptr, 100, 0.23f},
      {"III/505", "ΙΙΙ/505", nullptr, 80, 0.18f}, {"III/355", "ΙΙΙ/355", nullptr, 65, 0.14f},
      {"IV/905", "ΙΩ/905", "ΙV/905", 170, 0.42f}, {"IV/655", "ΙΩ/655", "ΙV/655", 130, 0.32f},
      {"IV/505", "ΙΩ/505", "ΙV/505", 110, 0.25f}, {"IV/355", "ΙΩ/355", "ΙV/355", 80, 0.19f},
  };
  return table;
}

const SectionRating* FindSectionRating(const std::string& somaType) {
  for (const SectionRating& row : SectionRatings()) {
    if (somaType == row.Model || somaType == row.Greek ||
        (row.GreekAlt != nullptr && somaType == row.GreekAlt))
      return &row;
  }
  return nullptr;
}
