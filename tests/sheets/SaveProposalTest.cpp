// The save dialog starts on the study's own file: nothing for a new study, the file it was
// last saved to or opened from otherwise.

#include "SheetsFixture.h"

namespace {

class SaveProposalTest : public SheetsTest {
 protected:
  SaveProposalTest() {
    WritePipes({"Φ16x1"});
    WriteSectionFamily();
    Load();
    TypeHeader("20", "80");
  }
  void CalculatedSheet() {
    Radiator(1, "1", "900");
    Key(KeyCode::F10);
    ASSERT_EQ(state.Calculated, -1);
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
};

TEST_F(SaveProposalTest, ANewStudyProposesNothingAndASavedOneTheFileItWasSavedTo) {
  CalculatedSheet();
  EXPECT_EQ(SaveProposing(Study("Μελέτη Α")), std::filesystem::path());
  // The name as written, with the extension the save added to the engineer's answer.
  EXPECT_EQ(SaveProposing(std::nullopt), Study("Μελέτη Α.sht"));
  EXPECT_EQ(SaveProposing(Study("Μελέτη Β.sht")), Study("Μελέτη Α.sht"));
  EXPECT_EQ(SaveProposing(std::nullopt), Study("Μελέτη Β.sht"));
}

TEST_F(SaveProposalTest, AStudyBegunAfreshForgetsTheOldFileAndAnOpenedOneProposesItsOwn) {
  CalculatedSheet();
  ASSERT_EQ(SaveProposing(Study("Γ.sht")), std::filesystem::path());
  prompter.QueueAnswer(Answer::Yes);  // a new study loses the sheet on the screen
  Do(&FrmRavolin::CmdNew_Click);
  TypeHeader("20", "80");
  CalculatedSheet();
  EXPECT_EQ(SaveProposing(std::nullopt), std::filesystem::path());

  Run([&] { form->OpenFile(Study("Γ.sht").string()); });
  ASSERT_EQ(state.StudyFileName, Study("Γ.sht").string());
  Key(KeyCode::F10);
  ASSERT_EQ(state.Calculated, -1);
  EXPECT_EQ(SaveProposing(std::nullopt), Study("Γ.sht"));
}

}  // namespace
