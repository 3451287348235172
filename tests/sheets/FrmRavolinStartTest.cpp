// The start of the program on the main screen: the pipe list, the display, the working files a
// previous run left behind, and the manual.
#include <optional>

#include "RuntimeFault.h"
#include "SheetsFixture.h"
#include "WorkingFiles.h"

namespace {

TEST_F(SheetsTest, FindPipeAreaReadsOuterDiameterAndASingleDigitWall) {
  FrmRavolin& f = Load();
  const struct {
    const char* Name;
    float Inner;  // m
    double Area;  // m²
  } cases[] = {
      {"Φ16x1", 0.014f, 0.000153938},
      {"Φ22x1", 0.020f, 0.000314159},
      // Only the last character is the wall: a two-digit wall of 10 reads as 0.
      {"Φ16x10", 0.016f, 0.000201062},
      // The first character is dropped whatever it is.
      {"D28x2", 0.024f, 0.000452389},
  };
  for (const auto& c : cases) {
    f.FindPipeArea(c.Name);
    EXPECT_FLOAT_EQ(f.PipeInnerDiameter, c.Inner) << c.Name;
    EXPECT_NEAR(state.PipeArea, c.Area, c.Area * 1e-5) << c.Name;
  }
  for (const char* bad : {"Φ16X1", "16", "", "x16"})
    EXPECT_THROW(f.FindPipeArea(bad), RuntimeFault) << bad;
}

// A pipe list that is missing, empty or whose first pipe has no "x" is reported by name, and
// the start goes on; lines end with or without a carriage return.
TEST_F(SheetsTest, ThePipeListAtStart) {
  const struct {
    std::optional<std::string> Bytes;
    std::vector<std::string> Pipes;
    const char* Reported;
  } cases[] = {
      {Utf8ToCp1253("Φ16x1\nΦ18x1\r\nΦ22x1"), {"Φ16x1", "Φ18x1", "Φ22x1"}, nullptr},
      {std::nullopt, {}, "RavoPipes.txt"},
      {"", {}, "RavoPipes.txt"},
      {Utf8ToCp1253("Φ16\r\nΦ18x1\r\n"), {"Φ16", "Φ18x1"}, "Φ16"},
  };
  withPipes = false;
  for (const auto& c : cases) {
    std::filesystem::remove(folder / "RavoPipes.txt");
    if (c.Bytes) WriteAllBytes(folder / "RavoPipes.txt", *c.Bytes);
    prompter.Clear();
    state = StudyState{};
    FrmRavolin& f = Load();
    EXPECT_EQ(f.CboPipes.Items, c.Pipes);
    EXPECT_EQ(f.TxtThema.Text, "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ");
    if (!c.Reported) {
      EXPECT_TRUE(prompter.History().empty());
      EXPECT_NEAR(state.PipeArea, 0.000153938, 1e-9);
      continue;
    }
    ASSERT_EQ(prompter.History().size(), 1u) << c.Reported;
    EXPECT_EQ(LastBox().Title, "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...");
    EXPECT_NE(LastBox().OneLine().find(c.Reported), std::string::npos) << LastBox().OneLine();
    EXPECT_EQ(state.PipeArea, 0.0f);
  }
}

TEST_F(SheetsTest, OnlyADisplayShortInBothDirectionsIsWarnedAbout) {
  const struct {
    int Width, Height;
    bool Warns;
  } cases[] = {{1024, 600, false}, {800, 768, false}, {1023, 767, true}};
  for (const auto& c : cases) {
    prompter.Clear();
    platform.Size = {c.Width, c.Height};
    Load();
    EXPECT_EQ(prompter.History().size(), c.Warns ? 1u : 0u) << c.Width << "x" << c.Height;
  }
  EXPECT_EQ(LastBox().Lines.front(),
            "... Η Ανάλυση της Οθόνης, πρέπει να είναι τουλάχιστον 1024 x 768 ...");
}

// What the start does with working files that a previous run left behind.
TEST_F(SheetsTest, AStudyLeftBehindIsClearedOnlyWhenItCannotBeRevived) {
  const struct {
    const char* Case;
    int SheetsBytes;  // -1: absent
    int LoopsBytes;   // -1: absent
    bool Cleared;
  } cases[] = {
      {"sheets and rows", 196, 298 * 8, false},  // kept for its recovery
      {"sheets, empty rows", 196, 0, true},
      {"empty sheets, rows", 0, 298 * 8, true},
      {"empty sheets, no rows", 0, -1, true},
      {"sheets, no rows file", 196, -1, false},  // kept on purpose: nothing is touched
      {"rows only", -1, 298 * 8, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Case);
    for (const char* name : {"SHEETS.TMP", "LOOPS.TMP", "DATARES.TMP"})
      std::filesystem::remove(folder / name);
    if (c.SheetsBytes >= 0) WriteAllBytes(folder / "SHEETS.TMP", std::string(c.SheetsBytes, 'S'));
    if (c.LoopsBytes >= 0) WriteAllBytes(folder / "LOOPS.TMP", std::string(c.LoopsBytes, 'L'));
    WriteAllBytes(folder / "DATARES.TMP", "network");
    Load();
    EXPECT_EQ(std::filesystem::exists(folder / "DATARES.TMP"), !c.Cleared);
    EXPECT_EQ(std::filesystem::exists(folder / "SHEETS.TMP"), !c.Cleared && c.SheetsBytes >= 0);
  }
}

TEST_F(SheetsTest, F1OpensTheManualWhenThereIsOne) {
  FrmRavolin& f = Load();
  WriteAllBytes(folder / "RM.pdf", "%PDF-1.4");
  EXPECT_TRUE(f.Form_KeyDown(KeyStroke{KeyCode::F1}));
  EXPECT_EQ(platform.Opened, (std::vector<std::string>{"RM.pdf"}));
  EXPECT_FALSE(f.Form_KeyDown(KeyStroke{KeyCode::Char, false, false, false, U'a'}));
}

}  // namespace
