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

#include "RecordImage.h"
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

// The two records of the sound source: the family values in each ("Δοκιμαστικά Πάνελ (τύπος 22)"
// in code page 1253), then the model's own.
void ExpectSoundImage(const std::string& bytes) {
  ASSERT_EQ(bytes.size(), 2 * kLength);
  const std::string family =
      "CategoryNo@0=0700 Category@4=c4efeae9ece1f3f4e9eadc20d0dcede5eb2028f4fdf0eff220323229+120 "
      "MeanActiveTemp@149=00007042 Step@153=0000c842 StepUnits@157=6d6d+16 FirstSoma@173=313030+10 "
      "Reserved@311=~20/0/0 ";
  ExpectFields(Record(bytes, 1),
               family +
                   "RecordNo@2=0100 SomaType@124=32322f363030+25 UnitOutput@187=9a192d43 "
                   "UnitArea@191=8fc2753e SomaHeight@195=00001644 SomaWidth@199=0000c842 "
                   "UnitWater@203=9a99193f MinSteps@183=0400 MaxSteps@185=1e00 "
                   "SomaWeight@207=3333df41 Discon@211=32312c32332c+100");
  ExpectFields(Record(bytes, 2), family +
                                     "RecordNo@2=0200 SomaType@124=32322f393030+25 "
                                     "UnitArea@191=00000000 MaxSteps@185=1400 Discon@211=+100");
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

// Row 11 of the sound source with one cell given another text.
std::string Row(const std::string& column, const std::string& text) {
  const std::pair<const char*, const char*> cells[] = {
      {"SomaType", "22/600"}, {"UnitOutput", "173.1"}, {"UnitArea", "0.24"}, {"SomaHeight", "600"},
      {"SomaWidth", "100"},   {"UnitWater", "0.6"},    {"MinSteps", "4"},    {"MaxSteps", "30"},
      {"SomaWeight", "27.9"}, {"Discon", "21,23,"}};
  std::string row = "|";
  for (const auto& [name, value] : cells) row += " " + (name == column ? text : value) + " |";
  return row;
}

TEST(SomataSource, ARefusalNamesTheLineAndTheReason) {
  const std::string long121(121, 'A');
  // The lines of kSound changed (its line, its new text), and the line and the reason refused;
  // line 0 is the source as a whole.
  const std::pair<std::vector<std::pair<std::size_t, std::string>>, std::string> cases[] = {
      {{{4, "MeanTemp: 60"}}, "4: unknown key \"MeanTemp\""},
      {{{6, "Step: 100"}}, "6: Step given twice (first on line 5)"},
      {{{5, ""}}, "0: missing Step"},
      {{{2, "CategoryNo: 2.5"}}, "2: CategoryNo: \"2.5\" is not a whole number"},
      {{{2, "CategoryNo: 0"}}, "2: CategoryNo: 0 lies outside 1 to 32767"},
      {{{3, "Category: Πάνελ ☃"}}, "3: Category: \"Πάνελ ☃\" is not in code page 1253"},
      {{{3, "Category: " + long121}},
       "3: Category: \"" + long121 + "\" takes 121 bytes, the field holds 120"},
      {{{4, "MeanActiveTemp: 4.5"}}, "4: MeanActiveTemp: 4.5 is below 5"},
      {{{4, "MeanActiveTemp: 70"}}, "4: MeanActiveTemp: 70 is above 65"},
      {{{5, "Step: 0"}}, "5: Step: 0 makes every size 0"},
      {{{9, "| SomaType | UnitOutput | Height |"}}, "9: unknown column \"Height\""},
      {{{9,
         "| SomaType | UnitOutput | UnitArea | SomaHeight | SomaWidth | UnitWater | MinSteps "
         "| MaxSteps | SomaWeight |"}},
       "9: missing column Discon"},
      {{{11, Row("", "").substr(0, Row("", "").size() - 2)}},
       "11: a table row must end with \"|\""},
      {{{11, "| 22/600 | 173.1 | 0.24 | 600 | 100 | 0.6 | 4 | 30 | 27.9 |"}},
       "11: the row has 9 cells, the header 10"},
      {{{11, Row("UnitArea", "")}}, "11: missing UnitArea"},
      {{{11, Row("UnitOutput", "173,1")}}, "11: UnitOutput: \"173,1\" is not a number"},
      {{{11, Row("UnitOutput", "0.4")}}, "11: UnitOutput: 0.4 is below 0.5"},
      {{{11, Row("MinSteps", "31")}}, "11: MinSteps 31 is above MaxSteps 30"},
      {{{11, Row("Discon", "21,23")}}, "11: Discon: \"21,23\" must end with a comma"},
      {{{11, Row("Discon", "21, 23,")}},
       "11: Discon: \"21, 23,\" holds other characters than digits and commas"},
      {{{13, Row("", "")}}, "13: SomaType \"22/600\" stands twice"},
      {{{9, ""}, {10, ""}, {11, ""}, {13, ""}}, "0: no models: the table of models has no rows"},
  };
  for (const auto& [edits, refusal] : cases) {
    std::vector<std::string> lines = kSound;
    for (const auto& [line, text] : edits) lines.at(line - 1) = text;
    try {
      ReadSomataSource(Joined(lines));
      ADD_FAILURE() << "accepted: " << refusal;
    } catch (const SomataSourceError& error) {
      EXPECT_EQ(std::to_string(error.Line()) + ": " + error.Message(), refusal);
    }
  }
}

// The generator as the build runs it: a refused source fails the build step with the file and
// line, and leaves no stale target. (What a sound source makes under every name is the shipped
// data's test.)
int RunGenerator(const std::vector<std::filesystem::path>& args, const std::filesystem::path& err) {
  std::string command = std::string("'") + MAKE_DATA_FILES + "' somata";
  for (const auto& arg : args) command += " '" + arg.string() + "'";
  command += " 2>'" + err.string() + "'";
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(MakeDataFilesSomata, RefusedSourceFailsWithFileAndLineAndLeavesNoTarget) {
  TempFolder folder;
  std::vector<std::string> lines = kSound;
  lines[10] = Row("UnitOutput", "0");
  const auto source = folder / "bad.txt";
  WriteAllBytes(source, Joined(lines));
  const auto target = folder / "old.ths";
  WriteAllBytes(target, "a target of an earlier build");
  EXPECT_EQ(RunGenerator({source, target}, folder / "err.txt"), 1);
  EXPECT_EQ(ReadAllBytes(folder / "err.txt"),
            "make-data-files: " + source.string() + ":11: UnitOutput: 0 is below 0.5\n");
  EXPECT_FALSE(std::filesystem::exists(target));
}

}  // namespace
