// The reader of the radiator family sources: what it makes of a sound source, byte for byte,
// and every source it refuses, with the line and the reason. Then the generator program on
// such sources, as the build runs it.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "SomaBytes.h"
#include "SomataSource.h"
#include "TempFolder.h"

using namespace soma_bytes;

namespace {

// A sound source; the refusals below each change a few of its lines (numbered from 1).
const std::vector<std::string> kSound = {
    "# A family for the tests",                // 1
    "CategoryNo: 7",                           // 2
    "Category: Δοκιμαστικά Πάνελ (τύπος 22)",  // 3
    "MeanActiveTemp: 60",                      // 4
    "Step: 100",                               // 5
    "StepUnits: mm",                           // 6
    "FirstSoma: 100",                          // 7
    "",                                        // 8
    "| SomaType | UnitOutput | UnitArea | SomaHeight | SomaWidth | UnitWater | MinSteps |"
    " MaxSteps | SomaWeight | Discon |",                                     // 9
    "|---|---|---|---|---|---|---|---|---|---|",                             // 10
    "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | 21,23, |",  // 11
    "  # a comment between the rows",                                        // 12
    "| 22/900 | 241.1 | 0 | 900 | 100 | 0.9 | 4 | 20 | 41.3 | |",            // 13
};

std::string Joined(const std::vector<std::string>& lines, const char* end = "\n") {
  std::string text;
  for (const std::string& line : lines) text += line + end;
  return text;
}

// "Δοκιμαστικά Πάνελ (τύπος 22)" in code page 1253.
const std::string kCategoryBytes =
    "\xc4\xef\xea\xe9\xec\xe1\xf3\xf4\xe9\xea\xdc\x20\xd0\xdc\xed\xe5\xeb\x20\x28\xf4\xfd\xf0"
    "\xef\xf2\x20\x32\x32\x29";

void ExpectSoundImage(const std::string& bytes) {
  ASSERT_EQ(bytes.size(), 2 * kLength);
  for (int n = 1; n <= 2; ++n) {
    const std::string r = Record(bytes, n);
    SCOPED_TRACE(n);
    EXPECT_EQ(I16At(r, kCategoryNo), 7);
    EXPECT_EQ(I16At(r, kRecordNo), n);
    EXPECT_EQ(r.substr(kCategory, 120), Blanked(kCategoryBytes, 120));
    EXPECT_EQ(F32At(r, kMeanActiveTemp), 60.0f);
    EXPECT_EQ(F32At(r, kStep), 100.0f);
    EXPECT_EQ(r.substr(kStepUnits, 16), Blanked("mm", 16));
    EXPECT_EQ(r.substr(kFirstSoma, 10), Blanked("100", 10));
    EXPECT_EQ(r.substr(kReserved, 20), std::string(20, '\0'));
  }
  const std::string first = Record(bytes, 1);
  EXPECT_EQ(first.substr(kSomaType, 25), Blanked("22/600", 25));
  EXPECT_EQ(U32At(first, kUnitOutput), 0x432D199Au);  // 173.1f
  EXPECT_EQ(F32At(first, kUnitArea), 0.24f);
  EXPECT_EQ(F32At(first, kSomaHeight), 600.0f);
  EXPECT_EQ(F32At(first, kSomaWidth), 100.0f);
  EXPECT_EQ(F32At(first, kUnitWater), 0.6f);
  EXPECT_EQ(I16At(first, kMinSteps), 4);
  EXPECT_EQ(I16At(first, kMaxSteps), 30);
  EXPECT_EQ(F32At(first, kSomaWeight), 27.9f);
  EXPECT_EQ(first.substr(kDiscon, 100), Blanked("21,23,", 100));
  const std::string second = Record(bytes, 2);
  EXPECT_EQ(second.substr(kSomaType, 25), Blanked("22/900", 25));
  EXPECT_EQ(F32At(second, kUnitArea), 0.0f);
  EXPECT_EQ(I16At(second, kMaxSteps), 20);
  EXPECT_EQ(second.substr(kDiscon, 100), std::string(100, ' '));
}

TEST(SomataSource, SoundSourceBecomesPackedRecords) {
  ExpectSoundImage(EncodeSomataFile(ReadSomataSource(Joined(kSound))));
}

// CRLF line ends, a byte order mark, keys after the table and the columns in another order
// read the same.
TEST(SomataSource, LayoutOfTheSourceDoesNotMatter) {
  std::vector<std::string> lines = {
      "| Discon | SomaType | MaxSteps | MinSteps | UnitOutput | UnitArea | SomaHeight |"
      " SomaWidth | UnitWater | SomaWeight |",
      "| 21,23, | 22/600 | 30 | 4 | 173.1 | 0.24 | 600 | 100 | 0.6 | 27.9 |",
      "|        | 22/900 | 20 | 4 | 241.1 | 0    | 900 | 100 | 0.9 | 41.3 |",
      "FirstSoma:100",
      "\tStepUnits :  mm  ",
      "Step: 100",
      "MeanActiveTemp: 60",
      "Category:   Δοκιμαστικά Πάνελ (τύπος 22)",
      "CategoryNo: 7",
  };
  ExpectSoundImage(EncodeSomataFile(ReadSomataSource("\xEF\xBB\xBF" + Joined(lines, "\r\n"))));
}

struct Refusal {
  const char* Name;
  std::vector<std::pair<std::size_t, std::string>> Edits;  // line of kSound, its new text
  std::size_t Line;                                        // 0: the source as a whole
  std::string Message;
};

const std::string kLong121(121, 'A');
const std::string kRow = "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | 21,23, |";

class SomataSourceRefusal : public testing::TestWithParam<Refusal> {};

TEST_P(SomataSourceRefusal, NamesTheLineAndTheReason) {
  std::vector<std::string> lines = kSound;
  for (const auto& [line, text] : GetParam().Edits) lines.at(line - 1) = text;
  try {
    ReadSomataSource(Joined(lines));
    FAIL() << "accepted";
  } catch (const SomataSourceError& error) {
    EXPECT_EQ(error.Line(), GetParam().Line);
    EXPECT_EQ(error.Message(), GetParam().Message);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SomataSourceRefusal,
    testing::Values(
        Refusal{"UnknownKey", {{4, "MeanTemp: 60"}}, 4, "unknown key \"MeanTemp\""},
        Refusal{"KeyTwice", {{6, "Step: 100"}}, 6, "Step given twice (first on line 5)"},
        Refusal{"MissingKey", {{5, ""}}, 0, "missing Step"},
        Refusal{"NeitherKeyNorRow",
                {{6, "StepUnits mm"}},
                6,
                "neither a \"Name: value\" line nor a table row: StepUnits mm"},
        Refusal{"CategoryNoNotWhole",
                {{2, "CategoryNo: 2.5"}},
                2,
                "CategoryNo: \"2.5\" is not a whole number"},
        Refusal{
            "CategoryNoZero", {{2, "CategoryNo: 0"}}, 2, "CategoryNo: 0 lies outside 1 to 32767"},
        Refusal{"CategoryEmpty", {{3, "Category:"}}, 3, "Category is empty"},
        Refusal{"CategoryNotCp1253",
                {{3, "Category: Πάνελ ☃"}},
                3,
                "Category: \"Πάνελ ☃\" is not in code page 1253"},
        Refusal{"CategoryTooLong",
                {{3, "Category: " + kLong121}},
                3,
                "Category: \"" + kLong121 + "\" takes 121 bytes, the field holds 120"},
        Refusal{
            "MeanTempTooLow", {{4, "MeanActiveTemp: 4.5"}}, 4, "MeanActiveTemp: 4.5 is below 5"},
        Refusal{
            "MeanTempTooHigh", {{4, "MeanActiveTemp: 70"}}, 4, "MeanActiveTemp: 70 is above 65"},
        Refusal{"StepNotANumber", {{5, "Step: 1OO"}}, 5, "Step: \"1OO\" is not a number"},
        Refusal{"StepZero", {{5, "Step: 0"}}, 5, "Step: 0 makes every size 0"},
        Refusal{"StepUnitsTooLong",
                {{6, "StepUnits: χιλιοστά του μέτρου"}},
                6,
                "StepUnits: \"χιλιοστά του μέτρου\" takes 19 bytes, the field holds 16"},
        Refusal{"FirstSomaNotANumber",
                {{7, "FirstSoma: εκατό"}},
                7,
                "FirstSoma: \"εκατό\" is not a number"},
        Refusal{"FirstSomaTooLong",
                {{7, "FirstSoma: 100.0000000"}},
                7,
                "FirstSoma: \"100.0000000\" takes 11 bytes, the field holds 10"},
        Refusal{"UnknownColumn",
                {{9, "| SomaType | UnitOutput | UnitArea | Height | SomaWidth |"}},
                9,
                "unknown column \"Height\""},
        Refusal{"ColumnTwice", {{9, "| SomaType | SomaType |"}}, 9, "column SomaType stands twice"},
        Refusal{"MissingColumn",
                {{9,
                  "| SomaType | UnitOutput | UnitArea | SomaHeight | SomaWidth | UnitWater |"
                  " MinSteps | MaxSteps | SomaWeight |"}},
                9,
                "missing column Discon"},
        Refusal{"RowWithoutClosingBar",
                {{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | 21,23,"}},
                11,
                "a table row must end with \"|\""},
        Refusal{"RowShortOfACell",
                {{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 |"}},
                11,
                "the row has 9 cells, the header 10"},
        Refusal{"MissingCell",
                {{11, "| 22/600 | 173.1 |  | 600 | 100 | 0.6 | 4 | 30 | 27.9 | |"}},
                11,
                "missing UnitArea"},
        Refusal{"MissingModel",
                {{11, "|  | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | |"}},
                11,
                "missing SomaType"},
        Refusal{"DecimalComma",
                {{11, "| 22/600 | 173,1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | |"}},
                11,
                "UnitOutput: \"173,1\" is not a number"},
        Refusal{"UnitAfterNumber",
                {{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9kg | |"}},
                11,
                "SomaWeight: \"27.9kg\" is not a number"},
        Refusal{"NotANumberAtAll",
                {{11, "| 22/600 | nan | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | |"}},
                11,
                "UnitOutput: \"nan\" is not a number"},
        Refusal{"UnitOutputZero",
                {{11, "| 22/600 | 0 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | |"}},
                11,
                "UnitOutput: 0 is below 0.5"},
        Refusal{"UnitOutputRoundingToZero",
                {{11, "| 22/600 | 0.4 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | |"}},
                11,
                "UnitOutput: 0.4 is below 0.5"},
        Refusal{"NegativeWater",
                {{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | -0.6 | 4 | 30 | 27.9 | |"}},
                11,
                "UnitWater: -0.6 is below 0"},
        Refusal{"ModelTooLong",
                {{11,
                  "| Πάνελ 22/600 Δεξιάς Σύνδεσης | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 |"
                  " 27.9 | |"}},
                11,
                "SomaType: \"Πάνελ 22/600 Δεξιάς Σύνδεσης\" takes 28 bytes, the field holds 25"},
        Refusal{"ModelNotCp1253",
                {{11, "| 22/600 ≈ | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | |"}},
                11,
                "SomaType: \"22/600 ≈\" is not in code page 1253"},
        Refusal{"StepsNotWhole",
                {{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 4.5 | 30 | 27.9 | |"}},
                11,
                "MinSteps: \"4.5\" is not a whole number"},
        Refusal{"MinStepsZero",
                {{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 0 | 30 | 27.9 | |"}},
                11,
                "MinSteps: 0 lies outside 1 to 32767"},
        Refusal{"MaxStepsPastI16",
                {{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 40000 | 27.9 | |"}},
                11,
                "MaxSteps: 40000 lies outside 1 to 32767"},
        Refusal{"MinAboveMax",
                {{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 31 | 30 | 27.9 | |"}},
                11,
                "MinSteps 31 is above MaxSteps 30"},
        Refusal{"DisconWithoutClosingComma",
                {{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | 21,23 |"}},
                11,
                "Discon: \"21,23\" must end with a comma"},
        Refusal{"DisconWithABlank",
                {{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | 21, 23, |"}},
                11,
                "Discon: \"21, 23,\" holds other characters than digits and commas"},
        Refusal{"DisconEmptyNumber",
                {{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | 21,,23, |"}},
                11,
                "Discon: \"21,,23,\" has an empty number"},
        Refusal{"ModelTwice", {{13, kRow}}, 13, "SomaType \"22/600\" stands twice"},
        Refusal{"RuleAmongTheRows",
                {{12, "|---|---|---|---|---|---|---|---|---|---|"}},
                12,
                "UnitOutput: \"---\" is not a number"},
        Refusal{"NoModels", {{11, ""}, {13, ""}}, 0, "no models: the table of models has no rows"},
        Refusal{"NoTable",
                {{9, ""}, {10, ""}, {11, ""}, {13, ""}},
                0,
                "no models: the table of models has no rows"}),
    [](const testing::TestParamInfo<Refusal>& info) { return std::string(info.param.Name); });

// The generator as the build runs it: a refused source fails the build step with the file and
// line, and leaves no stale target; a sound one writes the same bytes under every name.
int RunGenerator(const std::vector<std::filesystem::path>& args, const std::filesystem::path& err) {
  std::string command = std::string("'") + MAKE_DATA_FILES + "' somata";
  for (const auto& arg : args) command += " '" + arg.string() + "'";
  command += " 2>'" + err.string() + "'";
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(MakeDataFilesSomata, WritesTheSameBytesUnderEveryName) {
  TempFolder folder;
  WriteAllBytes(folder / "family.txt", Joined(kSound));
  const auto one = folder / "~Basic.dl";
  const auto two = folder / "Κλασσικά Σώματα, με Φέτες.ths";
  ASSERT_EQ(RunGenerator({folder / "family.txt", one, two}, folder / "err.txt"), 0);
  EXPECT_EQ(ReadAllBytes(folder / "err.txt"), "");
  ExpectSoundImage(ReadAllBytes(one));
  EXPECT_EQ(ReadAllBytes(one), ReadAllBytes(two));
}

TEST(MakeDataFilesSomata, RefusedSourceFailsWithFileAndLineAndLeavesNoTarget) {
  TempFolder folder;
  std::vector<std::string> lines = kSound;
  lines[10] = "| 22/600 | 0 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 | |";
  const auto source = folder / "bad.txt";
  WriteAllBytes(source, Joined(lines));
  const auto target = folder / "old.ths";
  WriteAllBytes(target, "a target of an earlier build");
  EXPECT_EQ(RunGenerator({source, target}, folder / "err.txt"), 1);
  EXPECT_EQ(ReadAllBytes(folder / "err.txt"),
            "make-data-files: " + source.string() + ":11: UnitOutput: 0 is below 0.5\n");
  EXPECT_FALSE(std::filesystem::exists(target));
}

TEST(MakeDataFilesSomata, MissingKeyIsReportedForTheWholeFile) {
  TempFolder folder;
  std::vector<std::string> lines = kSound;
  lines[1] = "";
  const auto source = folder / "bad.txt";
  WriteAllBytes(source, Joined(lines));
  EXPECT_EQ(RunGenerator({source, folder / "out.ths"}, folder / "err.txt"), 1);
  EXPECT_EQ(ReadAllBytes(folder / "err.txt"),
            "make-data-files: " + source.string() + ": missing CategoryNo\n");
}

}  // namespace
