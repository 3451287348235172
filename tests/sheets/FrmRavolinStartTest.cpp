// The start and the end of the program on the main screen.
#include "RuntimeFault.h"
#include "SheetsFixture.h"
#include "WorkingFiles.h"

namespace {

TEST_F(SheetsTest, StartShowsTheDefaultsOfANewStudy) {
  WritePipes({"Φ16x1", "Φ18x1", "Φ22x1"});
  FrmRavolin& f = Load();
  EXPECT_EQ(f.Caption.Text, "ΥΠΟΛΟΓΙΣΜΟΙ ΜΟΝΟΣΩΛΗΝΙΟΥ ΣΥΣΤΗΜΑΤΟΣ ΚΕΝΤΡΙΚΗΣ ΘΕΡΜΑΝΣΗΣ");
  EXPECT_EQ(f.Txta_a.Text, "1");
  EXPECT_EQ(f.TxtOrigTemp.Text, "85");
  EXPECT_EQ(f.TxtTempDrop.Text, "20");
  EXPECT_EQ(f.TxtThema.Text, "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ");
  EXPECT_EQ(state.CurrentSheet, 1);
  EXPECT_EQ(state.ColumnsEditable, -1);
  EXPECT_EQ(f.CboPipes.Items, (std::vector<std::string>{"Φ16x1", "Φ18x1", "Φ22x1"}));
  EXPECT_EQ(f.CboPipes.Text(), "Φ16x1");
  EXPECT_FLOAT_EQ(f.PipeInnerDiameter, 0.014f);
  EXPECT_NEAR(state.PipeArea, 0.000153938, 1e-9);
  EXPECT_EQ(f.Grid.Head(1), "α/α ΣΩ-  ΜΑ-  ΤΟΣ");
  EXPECT_EQ(f.Grid.Head(13), "ΕΠΙΦΑ- ΝΕΙΑ ΣΩΜΑ- ΤΟΣ [m²]");
  EXPECT_EQ(f.Grid.Head(14), "ΜΗΚΟΣ ΣΩΜΑ- ΤΟΣ [m]");
  EXPECT_TRUE(prompter.History().empty());
}

TEST_F(SheetsTest, TheSeparatorsComeFromTheLocaleAtStart) {
  WritePipes({"Φ16x1"});
  platform.Seps = kGreek;
  Load();
  EXPECT_EQ(state.DecimalSep, ',');
  EXPECT_EQ(state.ThousandsSep, '.');
  EXPECT_DOUBLE_EQ(state.Parse("1.234,5"), 1234.5);
}

struct PipeCase {
  const char* Name;
  float Inner;  // m
  double Area;  // m²
};

TEST_F(SheetsTest, FindPipeAreaReadsOuterDiameterAndASingleDigitWall) {
  WritePipes({"Φ16x1"});
  FrmRavolin& f = Load();
  const PipeCase cases[] = {
      {"Φ16x1", 0.014f, 0.000153938},
      {"Φ18x1", 0.016f, 0.000201062},
      {"Φ22x1", 0.020f, 0.000314159},
      {"Φ10x1", 0.008f, 0.0000502654},
      // Only the last character is the wall: a two-digit wall of 10 reads as 0.
      {"Φ16x10", 0.016f, 0.000201062},
      // The first character is dropped whatever it is.
      {"D28x2", 0.024f, 0.000452389},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    f.FindPipeArea(c.Name);
    EXPECT_FLOAT_EQ(f.PipeInnerDiameter, c.Inner);
    EXPECT_NEAR(state.PipeArea, c.Area, c.Area * 1e-5);
  }
}

TEST_F(SheetsTest, APipeNameWithoutItsXIsARuntimeFault) {
  WritePipes({"Φ16x1"});
  FrmRavolin& f = Load();
  for (const char* bad : {"Φ16X1", "16", "", "x16"}) {
    SCOPED_TRACE(bad);
    EXPECT_THROW(f.FindPipeArea(bad), RuntimeFault);
  }
}

TEST_F(SheetsTest, AFirstPipeWithoutXIsReportedAndTheStartGoesOn) {
  WritePipes({"Φ16", "Φ18x1"});
  FrmRavolin& f = Load();
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(LastBox().Title, "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...");
  EXPECT_EQ(f.CboPipes.Items.size(), 2u);
  EXPECT_EQ(f.TxtThema.Text, "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ");
  EXPECT_EQ(state.PipeArea, 0.0f);
}

TEST_F(SheetsTest, AMissingPipeListIsReportedByNameAndTheStartGoesOn) {
  FrmRavolin& f = Load();
  ASSERT_EQ(prompter.History().size(), 1u);
  const Message& box = LastBox();
  EXPECT_EQ(box.Title, "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...");
  const std::string all = box.OneLine();
  EXPECT_NE(all.find(std::string(FaultText(FaultCode::FileNotFound))), std::string::npos) << all;
  EXPECT_NE(all.find("RavoPipes.txt"), std::string::npos) << all;
  EXPECT_TRUE(f.CboPipes.Items.empty());
  EXPECT_EQ(f.TxtThema.Text, "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ");
  EXPECT_EQ(f.TxtOrigTemp.Text, "85");
}

TEST_F(SheetsTest, AnEmptyPipeListIsReportedAndLeavesTheListEmpty) {
  WriteAllBytes(folder / "RavoPipes.txt", "");
  FrmRavolin& f = Load();
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_NE(LastBox().OneLine().find("RavoPipes.txt"), std::string::npos);
  EXPECT_TRUE(f.CboPipes.Items.empty());
  EXPECT_EQ(f.CboPipes.Index, -1);
}

TEST_F(SheetsTest, ThePipeListReadsLinesWithOrWithoutCarriageReturns) {
  WriteAllBytes(folder / "RavoPipes.txt", Utf8ToCp1253("Φ16x1\nΦ18x1\r\nΦ22x1"));
  FrmRavolin& f = Load();
  EXPECT_EQ(f.CboPipes.Items, (std::vector<std::string>{"Φ16x1", "Φ18x1", "Φ22x1"}));
}

struct DisplayCase {
  int Width, Height;
  bool Warns;
};

TEST_F(SheetsTest, OnlyADisplayShortInBothDirectionsIsWarnedAbout) {
  WritePipes({"Φ16x1"});
  const DisplayCase cases[] = {{800, 600, true},  {1023, 767, true},  {1024, 600, false},
                               {800, 768, false}, {1024, 768, false}, {1920, 1080, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.Width) + "x" + std::to_string(c.Height));
    prompter.Clear();
    platform.Size = {c.Width, c.Height};
    Load();
    ASSERT_EQ(prompter.History().size(), c.Warns ? 1u : 0u);
    if (c.Warns) {
      EXPECT_EQ(LastBox().Title, "... ΠΡΟΣΟΧΗ ...");
      EXPECT_EQ(LastBox().Lines,
                (std::vector<std::string>{
                    "... Η Ανάλυση της Οθόνης, πρέπει να είναι τουλάχιστον 1024 x 768 ...",
                    "... για σωστή απεικόνιση των Οθονών τού Προγράμματος ..."}));
    }
  }
}

// What the start does with working files that a previous run left behind.
struct LeftBehind {
  const char* Case;
  int SheetsBytes;  // -1: absent
  int LoopsBytes;   // -1: absent
  bool Cleared;
};

TEST_F(SheetsTest, AStudyLeftBehindIsClearedOnlyWhenItCannotBeRevived) {
  WritePipes({"Φ16x1"});
  const LeftBehind cases[] = {
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

TEST_F(SheetsTest, PicturesAreRenamedAtStartAndBackAtTheEnd) {
  WritePipes({"Φ16x1"});
  WriteAllBytes(folder / "GMI/Δίκτυο 1.rvo", "jpeg");
  WriteAllBytes(folder / "GMI/edge.RVO", "jpeg");
  FrmRavolin& f = Load();
  EXPECT_TRUE(std::filesystem::exists(folder / "GMI/Δίκτυο 1.jpg"));
  EXPECT_TRUE(std::filesystem::exists(folder / "GMI/edge.jpg"));
  boundary.Run(*form, [&] { f.Form_Unload(); });
  EXPECT_TRUE(std::filesystem::exists(folder / "GMI/Δίκτυο 1.rvo"));
  EXPECT_TRUE(std::filesystem::exists(folder / "GMI/edge.rvo"));
  EXPECT_TRUE(f.Closed());
}

TEST_F(SheetsTest, TheEndDeletesEveryWorkingFileAndNothingElse) {
  WritePipes({"Φ16x1"});
  FrmRavolin& f = Load();
  for (const auto& name : WorkingFileNames()) WriteAllBytes(folder / name, "x");
  WriteAllBytes(folder / "Κλασσικά Σώματα, με Φέτες.ths", "family");
  WriteAllBytes(folder / "RVLFiles/study.sht", "study");
  boundary.Run(*form, [&] { f.Form_Unload(); });
  for (const auto& name : WorkingFileNames())
    EXPECT_FALSE(std::filesystem::exists(folder / name)) << name;
  EXPECT_TRUE(std::filesystem::exists(folder / "RavoPipes.txt"));
  EXPECT_TRUE(std::filesystem::exists(folder / "Κλασσικά Σώματα, με Φέτες.ths"));
  EXPECT_TRUE(std::filesystem::exists(folder / "RVLFiles/study.sht"));
}

TEST_F(SheetsTest, F1OpensTheManualWhenThereIsOneAndIsSilentOtherwise) {
  WritePipes({"Φ16x1"});
  FrmRavolin& f = Load();
  KeyStroke f1{KeyCode::F1};
  EXPECT_TRUE(f.Form_KeyDown(f1));
  EXPECT_TRUE(platform.Opened.empty());
  EXPECT_TRUE(prompter.History().empty());
  WriteAllBytes(folder / "RM.pdf", "%PDF-1.4");
  f.Form_KeyDown(f1);
  EXPECT_EQ(platform.Opened, (std::vector<std::string>{"RM.pdf"}));
  EXPECT_FALSE(f.Form_KeyDown(KeyStroke{KeyCode::Char, false, false, false, U'a'}));
}

}  // namespace
