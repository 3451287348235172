// Saving a study as byte copies of the working files, the file the save dialog proposes,
// starting a new study, and the question that keeps unsaved work from being lost at both.

#include "FrmOpenSave_M.h"
#include "KillAtRewriteStep.h"
#include "SheetsFixture.h"

namespace {

class StudyFileTest : public SheetsTest {
 protected:
  StudyFileTest() {
    WriteSectionFamily();
    Load();
    TypeHeader("20", "80");
  }
  void CalculatedSheet() {
    Radiator(1, "1", "900");
    Key(KeyCode::F10);
    ASSERT_EQ(state.Calculated, -1);
    prompter.Clear();
  }
  // A study of the screen's sheet saved as `name`, then a new study on the screen.
  void SavedThenNew(const std::string& name) {
    platform.FileAnswers.push_back(Study(name));
    CtrlS();
    ASSERT_TRUE(std::filesystem::exists(Study(name + ".lps")));
    prompter.Clear();
    prompter.QueueAnswer(Answer::Yes);
    Do(&FrmRavolin::CmdNew_Click);
    ASSERT_FALSE(std::filesystem::exists(folder / "SHEETS.TMP"));
    prompter.Clear();
  }
  // Ctrl-S, answered with `answer` (nullopt: cancelled); returns the file the dialog proposed.
  std::filesystem::path SaveProposing(std::optional<std::filesystem::path> answer) {
    platform.FileAnswers.push_back(std::move(answer));
    const std::size_t asked = platform.SaveAsks.size();
    CtrlS();
    EXPECT_EQ(platform.SaveAsks.size(), asked + 1) << "no save dialog was opened";
    if (platform.SaveAsks.size() == asked) return "(none)";
    EXPECT_EQ(platform.SaveAsks.back().Folder, folder / "RVLFiles");
    return platform.SaveAsks.back().Proposed;
  }
  // Ctrl-O, then `use` on the browser.
  void Open(std::function<void(FrmOpenSave_M&)> use) {
    screens.Queue([use](ScriptScreen& s) { use(dynamic_cast<FrmOpenSave_M&>(s)); });
    Chord(KeyCode::Char, U'O');
  }
  std::set<std::string> Pair(const std::string& stem) { return {stem + ".lps", stem + ".sht"}; }
};

TEST_F(StudyFileTest, LevelsGoWithTheStudyAndAnOldLevelsFileStaysWhenThereAreNone) {
  CalculatedSheet();
  WriteAllBytes(folder / "RAVOFLOORS.TMP", "levels");
  platform.FileAnswers.push_back(Study("Β.sht"));
  Chord(KeyCode::F12, 0, true);
  EXPECT_EQ(Bytes(Study("Β.rvf")), "levels");
  // Kept on purpose: a second save without levels leaves the older .rvf beside the study.
  std::filesystem::remove(folder / "RAVOFLOORS.TMP");
  platform.FileAnswers.push_back(Study("Β.sht"));
  CtrlS();
  EXPECT_EQ(Bytes(Study("Β.rvf")), "levels");
}

// The save dialog starts on the study's own file: nothing for a new study, the file it was
// last saved to or opened from otherwise.
TEST_F(StudyFileTest, TheSaveDialogProposesTheFileTheStudyWasLastSavedToOrOpenedFrom) {
  CalculatedSheet();
  EXPECT_EQ(SaveProposing(Study("Μελέτη Α")), std::filesystem::path());
  // The name as written, with the extension the save added to the engineer's answer.
  EXPECT_EQ(SaveProposing(std::nullopt), Study("Μελέτη Α.sht"));
  EXPECT_EQ(SaveProposing(Study("Μελέτη Β.sht")), Study("Μελέτη Α.sht"));
  EXPECT_EQ(SaveProposing(std::nullopt), Study("Μελέτη Β.sht"));
  prompter.QueueAnswer(Answer::Yes);  // a new study loses the sheet on the screen
  Do(&FrmRavolin::CmdNew_Click);
  TypeHeader("20", "80");
  CalculatedSheet();
  EXPECT_EQ(SaveProposing(std::nullopt), std::filesystem::path());  // the old file forgotten
  Run([&] { form->OpenFile(Study("Μελέτη Α.sht").string()); });
  ASSERT_EQ(state.StudyFileName, Study("Μελέτη Α.sht").string());
  Key(KeyCode::F10);
  ASSERT_EQ(state.Calculated, -1);
  EXPECT_EQ(SaveProposing(std::nullopt), Study("Μελέτη Α.sht"));
}

TEST_F(StudyFileTest, ASheetWithoutResultsOrACancelledDialogSavesNothing) {
  Radiator(1, "1", "900", "", "");
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

TEST_F(StudyFileTest, ANewStudyOrTheProgramClosedOffersToSaveThenEmptiesTheWorkingFiles) {
  CalculatedSheet();
  state.StudyChanged = -1;
  prompter.QueueAnswer(Answer::Yes);  // a new study
  prompter.QueueAnswer(Answer::No);   // do not save
  Run([&] { form->Controls().at("CmdNew").Press(); });
  ASSERT_EQ(prompter.History().size(), 2u);
  EXPECT_EQ(LastBox().Lines.front(), "!! Η ΤΡΕΧΟΥΣΑ ΜΕΛΕΤΗ, ΔΕΝ ΕΧΕΙ < ΣΩΘΕΙ > ΣΕ ΑΡΧΕΙΟ !!");
  for (const char* name : {"SHEETS.TMP", "LOOPS.TMP"})
    EXPECT_FALSE(std::filesystem::exists(folder / name)) << name;
  EXPECT_EQ(form->TxtLoopLength.Text, "");
  EXPECT_EQ(form->TxtOrigTemp.Text, "80");  // kept, as Txta_a
  // The first family of the combo is taken again.
  EXPECT_EQ(std::tuple(state.StudyChanged, state.ColumnsEditable, state.SomaCategory),
            std::tuple(0, 0, 1));

  // The new study calculates: the pipe's area outlives the emptied state.
  prompter.Clear();
  TypeHeader("20", "80");
  CalculatedSheet();
  EXPECT_EQ(form->TxtVelocity.Text, "0.08");
  // Closing the program offers the same for an unsaved calculated study.
  state.StudyChanged = -1;
  prompter.QueueAnswer(Answer::No);
  Do(&FrmRavolin::CloseBox);
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(LastBox().Lines.back(), "... θέλετε να < σωθεί > η Μελέτη σε Αρχείο ? ...");
  EXPECT_FALSE(std::filesystem::exists(folder / "SHEETS.TMP"));
  EXPECT_TRUE(form->Closed());
}

TEST_F(StudyFileTest, ASaveIntoAFolderThatIsNotThereFailsCleanly) {
  CalculatedSheet();
  platform.FileAnswers.push_back(Study("Χαμένος φάκελος/Ζ.sht"));
  const std::string sheets = Bytes(folder / "SHEETS.TMP");
  CtrlS();
  ExpectRunFault();
  EXPECT_FALSE(std::filesystem::exists(Study("Χαμένος φάκελος")));
  EXPECT_EQ(Bytes(folder / "SHEETS.TMP"), sheets);
  EXPECT_EQ(form->Grid.Text(1, 11), "12/II/905");
}

// The disk fills while the second file of the .lps is written: the study on disk stays the
// older one, whole, and the engineer is told.
TEST_F(StudyFileTest, ADiskFullDuringASaveLeavesTheStudyOnDiskWhole) {
  CalculatedSheet();
  platform.FileAnswers.push_back(Study("Θ"));
  CtrlS();
  const std::string oldStudy = Bytes(Study("Θ.sht")) + Bytes(Study("Θ.lps"));
  Cell(1, 2, "650");
  Key(KeyCode::F10);
  prompter.Clear();
  int copies = 0;  // the disk fills up as the loops' file is copied
  Workspace::SetRewriteStepHook([&](int step) {
    if (step == Workspace::kSetFileWritten && ++copies == 2)
      throw RuntimeFault(FaultCode::DiskFull, "Θ.lps");
  });
  platform.FileAnswers.push_back(Study("Θ"));
  CtrlS();
  Workspace::SetRewriteStepHook(nullptr);
  ExpectRunFault();
  EXPECT_EQ(Bytes(Study("Θ.sht")) + Bytes(Study("Θ.lps")), oldStudy);
  EXPECT_EQ(StudyFiles(), Pair("Θ"));
  EXPECT_EQ(state.StudyChanged, -1);
}

// ---- Opening --------------------------------------------------------------------------------

// A write-protected study opens into working files the engineer can write, and is not saved
// over without a message.
TEST_F(StudyFileTest, AWriteProtectedStudyOpensWritableAndIsNotSavedOver) {
  namespace fs = std::filesystem;
  CalculatedSheet();
  SavedThenNew("Α");
  for (const char* name : {"Α.sht", "Α.lps"})
    fs::permissions(Study(name), fs::perms::owner_read | fs::perms::group_read);
  const std::string sheets = Bytes(Study("Α.sht"));
  platform.FileAnswers.push_back(Study("Α.sht"));
  Open([](FrmOpenSave_M& browser) { browser.CmdClassic_Click(); });
  for (const char* name : {"SHEETS.TMP", "LOOPS.TMP"})
    EXPECT_NE(fs::status(folder / name).permissions() & fs::perms::owner_write, fs::perms::none)
        << name;
  Cell(1, 2, "650");
  Key(KeyCode::F10);
  prompter.Clear();
  platform.FileAnswers.push_back(Study("Α.sht"));
  CtrlS();
  ExpectRunFault();
  EXPECT_EQ(Bytes(Study("Α.sht")), sheets);
  EXPECT_EQ(StudyFiles(), Pair("Α"));
}

// A study that lacks its sister file is named with it; a file that is no study is refused. The
// workspace stays as it was.
TEST_F(StudyFileTest, AStudyWithoutItsSisterFileOrAFileThatIsNoStudyTouchesNothing) {
  CalculatedSheet();
  SavedThenNew("Α");
  TypeHeader("20", "80");
  CalculatedSheet();  // a sheet of the new study on the screen
  Do(&FrmRavolin::SaveTemporarData);
  const std::string sheets = Bytes("SHEETS.TMP");
  std::filesystem::remove(Study("Α.lps"));
  Open([](FrmOpenSave_M& browser) {
    browser.Controls().at("LstStudies").Select({"(0001.) ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ"});
    browser.CmdOpenSave_Click();
  });
  ExpectRunFault();
  EXPECT_NE(LastBox().Lines[1].find("Α.lps"), std::string::npos);
  EXPECT_EQ(Bytes("SHEETS.TMP"), sheets);
  EXPECT_EQ(form->Grid.Text(1, 2), "900");
  const std::string text = "Μελέτη; όχι, ένα σημείωμα.\n";
  for (const std::string& bytes :
       {std::string(), std::string(195, 'x'), std::string(196, '\x07'), text + text + text}) {
    WriteAllBytes(Study("Ψ.sht"), bytes);
    WriteAllBytes(Study("Ψ.lps"), std::string(8 * 298, '\0'));
    prompter.Clear();
    platform.FileAnswers.push_back(Study("Ψ.sht"));
    Open([](FrmOpenSave_M& browser) { browser.CmdClassic_Click(); });
    ExpectBox("... Το αρχείο < Ψ.sht > ΔΕΝ είναι αρχείο Μελέτης ...");
    EXPECT_EQ(Bytes("SHEETS.TMP"), sheets) << bytes.size();
    EXPECT_EQ(form->Grid.Text(1, 2), "900") << bytes.size();
  }
}

// A save killed at every step that changes the disk (each copy written, flushed, renamed): once
// the study is opened again it is the old set of files or the new one, byte for byte, and
// nothing of the save is left beside it.
TEST_F(StudyFileTest, ASaveKilledAtAnyStepLeavesTheOldStudyOrTheNewOneWhole) {
  using Set = std::pair<std::string, std::string>;
  const auto onDisk = [&] { return Set{Bytes(Study("Ω.sht")), Bytes(Study("Ω.lps"))}; };
  const auto putBack = [&](const Set& set) {
    WriteAllBytes(Study("Ω.sht"), set.first);
    WriteAllBytes(Study("Ω.lps"), set.second);
  };
  CalculatedSheet();
  platform.FileAnswers.push_back(Study("Ω"));
  CtrlS();
  const Set old = onDisk();
  Cell(1, 2, "650");
  Key(KeyCode::F10);
  Do(&FrmRavolin::SaveTemporarData);
  const Set fresh{Bytes("SHEETS.TMP"), Bytes("LOOPS.TMP")};
  ASSERT_NE(fresh.first, old.first);
  ASSERT_NE(fresh.second, old.second);
  const auto save = [&] { form->SaveAsFile(Study("Ω.sht").string()); };
  int steps = 0;
  Workspace::SetRewriteStepHook([&](int) { ++steps; });
  save();
  Workspace::SetRewriteStepHook(nullptr);
  ASSERT_GT(steps, 0);
  bool committed = false;  // once a kill leaves the new study, every later one does
  for (int stop = 1; stop <= steps + 1; ++stop) {
    SCOPED_TRACE("stop " + std::to_string(stop));
    putBack(old);
    WriteAllBytes(folder / "SHEETS.TMP", fresh.first);  // the last open put the study there
    WriteAllBytes(folder / "LOOPS.TMP", fresh.second);
    KillAtRewriteStep(stop, save);
    prompter.Clear();
    MainScreen::Run([&] { form->OpenFile(Study("Ω.sht").string()); });
    const Set found = onDisk();
    EXPECT_TRUE(found == old || found == fresh);
    EXPECT_FALSE(committed && found == old);
    committed = committed || found == fresh;
    EXPECT_EQ(StudyFiles(), Pair("Ω"));
    EXPECT_TRUE(prompter.History().empty());
    EXPECT_EQ(Bytes("SHEETS.TMP"), found.first);
  }
  EXPECT_TRUE(committed);  // the run without a kill saved the new study
  // The next start of the program finishes, or undoes, a save as the open does.
  for (const int stop : {2, steps - 1}) {
    SCOPED_TRACE("stop " + std::to_string(stop));
    putBack(old);
    KillAtRewriteStep(stop, save);
    ASSERT_GT(StudyFiles().size(), 2u);
    Load();
    EXPECT_EQ(onDisk(), stop == 2 ? old : fresh);
    EXPECT_EQ(StudyFiles(), Pair("Ω"));
  }
}

}  // namespace
