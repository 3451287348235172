// The radiator type files the build ships, read byte for byte from share/ravolinette of the
// build tree: what the start-up test, the sizing and the catalogue screens will meet.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "RecordImage.h"
#include "SectionRatings.h"
#include "SomaBytes.h"
#include "TempFolder.h"

using namespace soma_bytes;

namespace {

const std::filesystem::path kDataOut = std::filesystem::path(RAVO_DATA_OUT);

const char* const kMaster = "~Basic.dl";
const char* const kSectionFile = "Κλασσικά Σώματα, με Φέτες.ths";
const char* const kPanelFile = "Χαλύβδινα Πάνελ.ths";
const char* const kAluminiumFile = "Σώματα Αλουμινίου.ths";

// "Στοιχεία" in code page 1253.
const std::string kStoixeia = "\xd3\xf4\xef\xe9\xf7\xe5\xdf\xe1";

std::string Shipped(const std::string& name) {
  const std::filesystem::path file = kDataOut / name;
  EXPECT_TRUE(std::filesystem::exists(file)) << name;
  return ReadAllBytes(file);
}

std::vector<std::string> ShippedFamilies() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kDataOut))
    if (entry.path().extension() == ".ths") names.push_back(entry.path().filename().string());
  return names;
}

int RecordCount(const std::string& file) {
  return static_cast<int>(file.size() / kLength);
}

// The records of a model in a file, in file order.
std::vector<std::string> RecordsOf(const std::string& file, const std::string& model) {
  std::vector<std::string> found;
  for (int n = 1; n <= RecordCount(file); ++n)
    if (RightTrimmed(Record(file, n), kSomaType, 25) == model) found.push_back(Record(file, n));
  return found;
}

// The type file of the sections holds the sizing's own rating table, one record per model in
// its order, with the family values ("Κλασσικά Θερμαντικά Σώματα, με Φέτες" in code page 1253);
// the height is the model's number.
TEST(ShippedSections, OneRecordPerModelOfTheRatingTableWithTheFamilyValues) {
  const std::string file = Shipped(kMaster);
  EXPECT_EQ(file, Shipped(kSectionFile));
  ASSERT_EQ(file.size(), SectionRatings().size() * kLength);
  for (int n = 1; n <= RecordCount(file); ++n) {
    const SectionRating& s = SectionRatings()[n - 1];
    const std::string r = Record(file, n);
    SCOPED_TRACE(s.Model);
    EXPECT_EQ(r.substr(kSomaType, 25), Blanked(s.Model, 25));
    EXPECT_EQ(F32At(r, kUnitOutput), s.Output);
    EXPECT_EQ(F32At(r, kUnitArea), s.Area);
    EXPECT_EQ(F32At(r, kSomaHeight),
              std::stof(std::string(s.Model).substr(std::string(s.Model).find('/') + 1)));
    ExpectFields(
        r,
        "CategoryNo@0=0100 "
        "Category@4=caebe1f3f3e9eadc20c8e5f1ece1edf4e9eadc20d3feece1f4e12c20ece520d6ddf4e5f2+120 "
        "MeanActiveTemp@149=00007042 Step@153=00002042 FirstSoma@173=3430+10 Discon@211=+100");
    // Counted per section: a metre's worth would show as tens of litres or kilograms.
    EXPECT_GT(F32At(r, kUnitWater), 0.2f);
    EXPECT_LT(F32At(r, kUnitWater), 2.0f);
    EXPECT_GT(F32At(r, kSomaWeight), 2.0f);
    EXPECT_LT(F32At(r, kSomaWeight), 15.0f);
  }
}

// What the start-up test, the renumbering, the sizing and the catalogue screens need of every
// file beside what the generator guarantees (whole records numbered in order, the family values
// in each, valid fields): FirstSoma the length of one step, only the sections protected by
// their unit and numbered 1, every family under a name of its own, and Discon lists whose first
// gap steps onto a size that is made.
TEST(ShippedFamilies, EveryFileIsSound) {
  const std::vector<std::string> names = ShippedFamilies();
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()),
            (std::set<std::string>{kSectionFile, kPanelFile, kAluminiumFile}));
  std::set<std::string> shown;
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    const std::string file = Shipped(name);
    ASSERT_GT(file.size(), 0u);
    ASSERT_EQ(file.size() % kLength, 0u);
    const std::string first = Record(file, 1);
    EXPECT_EQ(std::stod(RightTrimmed(first, kFirstSoma, 10)), F32At(first, kStep));
    const bool protectedUnit = first.substr(kStepUnits, 16).find(kStoixeia) != std::string::npos;
    EXPECT_EQ(protectedUnit, name == kSectionFile);
    EXPECT_EQ(I16At(first, kCategoryNo) == 1, name == kSectionFile);
    std::string category = RightTrimmed(first, kCategory, 120);
    category = category.substr(0, category.find('('));
    category.erase(category.find_last_not_of(' ') + 1);
    EXPECT_TRUE(shown.insert(category).second) << "display category shown twice";
    for (int n = 1; n <= RecordCount(file); ++n) {
      const std::string r = Record(file, n);
      const std::string list = RightTrimmed(r, kDiscon, 100);
      if (list.empty()) continue;
      SCOPED_TRACE(list);
      std::set<int> gaps;
      for (std::size_t at = 0; at < list.size(); at = list.find(',', at) + 1)
        gaps.insert(std::stoi(list.substr(at)));
      const int gap = std::stoi(list);
      EXPECT_EQ(gaps.count(gap + 1), 0u);
      EXPECT_GT(gap, I16At(r, kMinSteps));
      EXPECT_LT(gap, I16At(r, kMaxSteps));
    }
  }
}

// The stepped ratings are EN 442 figures at 75/65/20 (50 K) brought to 80/20 (60 K):
// Q60 = Q50 × 1.2^n, in Kcal/h at 0.8598 a watt, to 0.1 Kcal/h. Q50 is per step here.
// The model, its Q50 in W per step and its exponent n; the "Al-" models are the aluminium
// family's, the others the panels'.
const std::tuple<const char*, double, double> kRatings[] = {
    {"11/300", 46, 1.30},  {"11/450", 65, 1.30},  {"11/600", 82, 1.30},  {"11/900", 114, 1.30},
    {"22/300", 87, 1.33},  {"22/450", 123, 1.33}, {"22/600", 158, 1.33}, {"22/900", 220, 1.33},
    {"33/300", 126, 1.34}, {"33/450", 175, 1.34}, {"33/600", 225, 1.34}, {"33/900", 310, 1.34},
    {"Al-350", 99, 1.31},  {"Al-500", 134, 1.33}, {"Al-600", 153, 1.33}, {"Al-700", 172, 1.34},
    {"Al-800", 191, 1.35}};

TEST(ShippedFamilies, SteppedRatingsAreTheEn442FiguresAt80Over20) {
  std::map<std::string, int> rated;
  for (const auto& [model, q50, n] : kRatings) {
    const char* file = std::string(model).starts_with("Al-") ? kAluminiumFile : kPanelFile;
    SCOPED_TRACE(std::string(file) + " " + model);
    const std::vector<std::string> found = RecordsOf(Shipped(file), model);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_NEAR(F32At(found[0], kUnitOutput), q50 * std::pow(1.2, n) * 0.8598, 0.05 + 1e-4);
    ++rated[file];
  }
  // Every model of the two families has its rating checked above.
  EXPECT_EQ(rated[kPanelFile], RecordCount(Shipped(kPanelFile)));
  EXPECT_EQ(rated[kAluminiumFile], RecordCount(Shipped(kAluminiumFile)));
}

}  // namespace
