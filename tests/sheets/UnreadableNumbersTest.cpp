// Numbers a single cannot hold: typed, they are the run-time's overflow at the command that
// computes with them, and nothing is written; found in a study's records, they are named by
// sheet and the study still opens.
#include <cmath>
#include <limits>

#include "SheetsFixture.h"
#include "StudyMaker.h"

namespace {

class UnreadableNumbersTest : public SheetsTest {};

TEST_F(UnreadableNumbersTest, ALoadBeyondASingleStopsTheCommandAndWritesNothing) {
  WriteSectionFamily();
  Load();
  TypeHeader();
  Radiator(1, "1", "1000");
  Key(KeyCode::F10);
  MainScreen::Run([&] { form->SaveTemporarData(); });
  const std::string sheets = ReadAllBytes(folder / "SHEETS.TMP");
  const std::string loops = ReadAllBytes(folder / "LOOPS.TMP");
  for (const char* load : {"3.4e39", "1e38"}) {
    prompter.Clear();
    Cell(1, 2, "1000");
    Cell(2, 1, "2");
    Cell(2, 2, load);
    Cell(2, 3, "20");
    Cell(2, 10, "II/905");
    Cell(3, 1, "3");  // with "1e38", the sum of the loads overflows, not the load itself
    Cell(3, 2, load);
    Cell(3, 3, "20");
    Cell(3, 10, "II/905");
    EXPECT_FALSE(MainScreen::Run([&] { form->SaveTemporarData(); })) << load;
    ASSERT_FALSE(prompter.History().empty()) << load;
    EXPECT_EQ(LastBox().Title, "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...") << load;
    EXPECT_EQ(ReadAllBytes(folder / "SHEETS.TMP"), sheets) << load;
    EXPECT_EQ(ReadAllBytes(folder / "LOOPS.TMP"), loops) << load;
  }
}

TEST_F(UnreadableNumbersTest, AnInfinityOrANaNOnDiskIsNamedBySheetAndTheStudyStillOpens) {
  WriteStartFiles(folder);
  const auto study = MakeStudyOfCopies(ws, "Σ", 2, {"1000", "800"}, "II/905");
  {
    RecordFile<SheetRecord> sheets(study);
    SheetRecord first = sheets.Read(1);
    first.TotalLoad = std::numeric_limits<float>::infinity();
    sheets.Write(1, first);
    RecordFile<LoopRecord> loops(folder / "RVLFiles" / "Σ.lps");
    LoopRecord row = loops.Read(LoopRecordNumber(2, 2));
    row.Load = std::numeric_limits<float>::quiet_NaN();
    loops.Write(LoopRecordNumber(2, 2), row);
  }
  Load();
  prompter.Clear();
  EXPECT_TRUE(MainScreen::Run([&] { form->OpenFile(study.string()); }));
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(LastBox().Lines.front(),
            "... Το Φύλλο Υπολογισμών Νο : < 1 > έχει στο αρχείο αριθμούς που δεν διαβάζονται ...");
  EXPECT_EQ(form->Grid.Text(1, 2), "1000");
  Key(KeyCode::PageDown);
  ASSERT_EQ(prompter.History().size(), 2u);
  EXPECT_EQ(LastBox().Lines.front(),
            "... Το Φύλλο Υπολογισμών Νο : < 2 > έχει στο αρχείο αριθμούς που δεν διαβάζονται ...");
  EXPECT_EQ(state.CurrentSheet, 2);
  EXPECT_EQ(form->Grid.Text(1, 2), "1000");
}

}  // namespace
