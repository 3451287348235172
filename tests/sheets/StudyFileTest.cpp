// Saving a study as byte copies of the working files, starting a new study, and the question
// that keeps unsaved work from being lost at both.
#include "SheetsFixture.h"

namespace {

class StudyFileTest : public SheetsTest {
 protected:
  StudyFileTest() {
    WritePipes({"Φ16x1"});
    WriteSectionFamily();
    Load();
    TypeHeader("20", "80");
  }
  void CalculatedSheet() {
    Cell(1, 1, "1");
    Cell(1, 2, "900");
    Cell(1, 3, "20");
    Cell(1, 10, "II/905");
    Key(KeyCode::F10);
    ASSERT_EQ(state.Calculated, -1);
    prompter.Clear();
  }
  void CtrlS() {
    KeyStroke key{KeyCode::Char, true};
    key.Char = U'S';
    boundary.Run([&] { form->Form_KeyDown(key); });
  }
  std::filesystem::path Study(const std::string& name) { return folder / "RVLFiles" / name; }
  std::string Bytes(const std::filesystem::path& file) { return ReadAllBytes(file); }
};

TEST_F(StudyFileTest, AStudyIsSavedAsByteCopiesOfItsWorkingFiles) {
  CalculatedSheet();
  state.StudyChanged = -1;
  platform.FileAnswers.push_back(Study("Μελέτη Α"));
  CtrlS();
  ASSERT_TRUE(std::filesystem::exists(Study("Μελέτη Α.sht")));
  EXPECT_EQ(Bytes(Study("Μελέτη Α.sht")), Bytes(folder / "SHEETS.TMP"));
  EXPECT_EQ(Bytes(Study("Μελέτη Α.lps")), Bytes(folder / "LOOPS.TMP"));
  EXPECT_EQ(std::filesystem::file_size(Study("Μελέτη Α.lps")), 8u * 298);
  EXPECT_FALSE(std::filesystem::exists(Study("Μελέτη Α.rvf")));  // no levels yet
  EXPECT_EQ(state.StudyChanged, 0);
  EXPECT_EQ(state.StudyFileName, Study("Μελέτη Α.sht").string());
  EXPECT_TRUE(prompter.History().empty());
}

TEST_F(StudyFileTest, LevelsGoWithTheStudyAndAnOldLevelsFileStaysWhenThereAreNone) {
  CalculatedSheet();
  WriteAllBytes(folder / "RAVOFLOORS.TMP", "levels");
  platform.FileAnswers.push_back(Study("Β.sht"));
  KeyStroke shiftF12{KeyCode::F12, false, true};
  boundary.Run([&] { form->Form_KeyDown(shiftF12); });
  EXPECT_EQ(Bytes(Study("Β.rvf")), "levels");
  // Kept on purpose: a second save without levels leaves the older .rvf beside the study.
  std::filesystem::remove(folder / "RAVOFLOORS.TMP");
  platform.FileAnswers.push_back(Study("Β.sht"));
  CtrlS();
  EXPECT_EQ(Bytes(Study("Β.rvf")), "levels");
}

TEST_F(StudyFileTest, ASheetWithoutResultsOrACancelledDialogSavesNothing) {
  Cell(1, 1, "1");
  Cell(1, 2, "900");
  platform.FileAnswers.push_back(Study("Γ"));
  CtrlS();
  EXPECT_EQ(platform.FileAnswers.size(), 1u);  // no dialog was opened
  platform.FileAnswers.clear();
  Cell(1, 3, "20");
  Cell(1, 10, "II/905");
  Key(KeyCode::F10);
  CtrlS();  // cancelled
  EXPECT_TRUE(std::filesystem::is_empty(folder / "RVLFiles"));
}

TEST_F(StudyFileTest, ANewStudyAsksFirstAndNoKeepsEverything) {
  CalculatedSheet();
  prompter.QueueAnswer(Answer::No);
  boundary.Run([&] { form->Controls().at("CmdNew").Press(); });
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(LastBox().Title, "...!! ΠΡΟΣΟΧΗ  !!...");
  EXPECT_EQ(form->Grid.Text(1, 2), "900");
  EXPECT_TRUE(std::filesystem::exists(folder / "SHEETS.TMP"));
}

TEST_F(StudyFileTest, ANewStudyOffersToSaveThenEmptiesTheSheetAndTheWorkingFiles) {
  CalculatedSheet();
  state.StudyChanged = -1;
  prompter.QueueAnswer(Answer::Yes);  // a new study
  prompter.QueueAnswer(Answer::No);   // do not save
  boundary.Run([&] { form->Controls().at("CmdNew").Press(); });
  ASSERT_EQ(prompter.History().size(), 2u);
  EXPECT_EQ(LastBox().Lines.front(), "!! Η ΤΡΕΧΟΥΣΑ ΜΕΛΕΤΗ, ΔΕΝ ΕΧΕΙ < ΣΩΘΕΙ > ΣΕ ΑΡΧΕΙΟ !!");
  EXPECT_FALSE(std::filesystem::exists(folder / "SHEETS.TMP"));
  EXPECT_FALSE(std::filesystem::exists(folder / "LOOPS.TMP"));
  EXPECT_EQ(form->TxtThema.Text, "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ");
  EXPECT_EQ(form->TxtOwnership.Text, "");
  EXPECT_EQ(form->TxtLoopLength.Text, "");
  EXPECT_EQ(form->TxtTempDrop.Text, "20");
  EXPECT_EQ(form->TxtOrigTemp.Text, "80");  // kept, as Txta_a
  EXPECT_EQ(form->Txta_a.Text, "1");
  EXPECT_EQ(form->Grid.DataRowCount(), 0);
  EXPECT_EQ(state.StudyChanged, 0);
  EXPECT_EQ(state.ColumnsEditable, 0);
  EXPECT_EQ(state.SomaCategory, 1);  // the first family of the combo is taken again

  // The new study calculates: the pipe's area outlives the emptied state.
  prompter.Clear();
  TypeHeader("20", "80");
  CalculatedSheet();
  EXPECT_EQ(form->TxtVelocity.Text, "0.08");
}

TEST_F(StudyFileTest, YesToSavingOpensTheSaveDialogFirst) {
  CalculatedSheet();
  state.StudyChanged = -1;
  prompter.QueueAnswer(Answer::Yes);
  prompter.QueueAnswer(Answer::Yes);
  platform.FileAnswers.push_back(Study("Δ.sht"));
  boundary.Run([&] { form->Controls().at("CmdNew").Press(); });
  EXPECT_TRUE(std::filesystem::exists(Study("Δ.sht")));
  EXPECT_EQ(std::filesystem::file_size(Study("Δ.lps")), 8u * 298);
  EXPECT_FALSE(std::filesystem::exists(folder / "LOOPS.TMP"));
}

TEST_F(StudyFileTest, ClosingTheProgramOffersToSaveAnUnsavedCalculatedStudy) {
  CalculatedSheet();
  state.StudyChanged = -1;
  prompter.QueueAnswer(Answer::No);
  boundary.Run([&] { form->CloseBox(); });
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(LastBox().Lines.back(), "... θέλετε να < σωθεί > η Μελέτη σε Αρχείο ? ...");
  EXPECT_FALSE(std::filesystem::exists(folder / "SHEETS.TMP"));
  EXPECT_TRUE(form->Closed());
}

TEST_F(StudyFileTest, ClosingAfterASaveAsksNothing) {
  CalculatedSheet();
  state.StudyChanged = -1;
  platform.FileAnswers.push_back(Study("Ε"));
  CtrlS();
  boundary.Run([&] { form->CloseBox(); });
  EXPECT_TRUE(prompter.History().empty());
}

}  // namespace
