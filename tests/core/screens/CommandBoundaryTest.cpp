#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

#include "CommandBoundary.h"
#include "ScreenKit.h"
#include "ScriptDriver.h"
#include "TempFolder.h"
#include "Workspace.h"

namespace {

class CommandBoundaryTest : public ::testing::Test {
 protected:
  void SetUp() override { ws_.SetPauseMilliseconds(0); }
  void TearDown() override { Workspace::SetEventPump(nullptr); }

  void Overwrite(const std::string& name, const std::string& bytes) {
    ws_.Rewrite(name, [&](const std::filesystem::path& file) { WriteAllBytes(file, bytes); });
  }
  std::string Bytes(const std::string& name) { return ReadAllBytes(folder_ / name); }
  std::string Line(FaultCode code) { return "... " + std::string(FaultText(code)) + " ..."; }

  TempFolder folder_;
  Workspace ws_{folder_.Path()};
  ScriptedPrompter prompter_;
  StudyState state_;
  CommandBoundary boundary_{ws_, prompter_, state_};
};

// Whatever escapes a command, the working files go back as they were (a changed one and a new
// one) and the box tells what failed; the program goes on. A script that stops is no failure.
TEST_F(CommandBoundaryTest, EveryFailurePutsTheWorkingFilesBackAndIsToldInGreek) {
  const std::string before("\x01\x00\xC1\xC2 record", 11);
  // What escapes, and the lines the box tells it in.
  const std::pair<std::function<void()>, std::vector<std::string>> cases[] = {
      {[] { throw RuntimeFault(FaultCode::DivisionByZero, "SHEETS.TMP"); },
       {Line(FaultCode::DivisionByZero), "... SHEETS.TMP ..."}},
      {[] { throw std::out_of_range("vector index 9"); },
       {Line(FaultCode::Internal), "... vector index 9 ..."}},
      {[] { throw 42; }, {Line(FaultCode::Internal)}},
      {[] { throw RuntimeFault(FaultCode::Overflow); }, {Line(FaultCode::Overflow)}},
  };
  for (const auto& [escape, told] : cases) {
    prompter_.Clear();
    WriteAllBytes(folder_ / "SHEETS.TMP", before);
    EXPECT_FALSE(boundary_.Run([&] {
      Overwrite("SHEETS.TMP", "half-written");
      Overwrite("LOOPS.TMP", "new file");
      escape();
    }));
    EXPECT_EQ(Bytes("SHEETS.TMP"), before);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "LOOPS.TMP"));
    ASSERT_EQ(prompter_.History().size(), 1u);
    const Message& m = prompter_.History()[0].Box;
    EXPECT_EQ(m.Title, "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...");
    auto lines = told;
    lines.push_back("... Η εντολή διακόπηκε. Τα αρχεία εργασίας έμειναν όπως ήταν ...");
    EXPECT_EQ(m.Lines, lines);
    EXPECT_EQ(m.Buttons, MessageButtons::Ok);
    EXPECT_EQ(m.Icon, MessageIcon::Critical);
    EXPECT_EQ(m.Beeps, 2);
  }
  EXPECT_TRUE(boundary_.Run([&] { Overwrite("SHEETS.TMP", "after"); }));
  EXPECT_EQ(Bytes("SHEETS.TMP"), "after");
  // A stopped script passes through and leaves the files for inspection.
  EXPECT_THROW(boundary_.Run([&] {
    Overwrite("SHEETS.TMP", "stopped");
    throw ScriptError{7, "expected x, found y"};
  }),
               ScriptError);
  EXPECT_EQ(Bytes("SHEETS.TMP"), "stopped");
  EXPECT_EQ(prompter_.History().size(), 1u);
}

// A file that cannot be put back is named, instead of the word that the files stayed as they
// were: a folder now stands where the file was, and nothing turns it back into a file. The
// files after it still go back.
TEST_F(CommandBoundaryTest, AFileThatCannotBePutBackIsNamedAndTheOthersGoBack) {
  WriteAllBytes(folder_ / "LOOPS.TMP", "before");
  WriteAllBytes(folder_ / "SHEETS.TMP", "before");
  EXPECT_FALSE(boundary_.Run([&] {
    Overwrite("LOOPS.TMP", "after");
    Overwrite("SHEETS.TMP", "after");
    std::filesystem::remove(folder_ / "LOOPS.TMP");
    std::filesystem::create_directories(folder_ / "LOOPS.TMP" / "inside");
    throw RuntimeFault(FaultCode::DeviceIo);
  }));
  ASSERT_EQ(prompter_.History().size(), 1u);
  EXPECT_EQ(prompter_.History()[0].Box.Lines.back(),
            "... Η εντολή διακόπηκε. ΔΕΝ επανήλθαν τα αρχεία εργασίας : LOOPS.TMP ...");
  EXPECT_EQ(Bytes("SHEETS.TMP"), "before");
}

// A screen of the kit with a control of each kind that keeps state, and a variable of its own.
class KeptScreen : public Screen<KeptScreen> {
 public:
  static const ControlTable<KeptScreen>& Table() {
    static const ControlTable<KeptScreen> table = {
        kit::TextBox("TxtName", &KeptScreen::TxtName), kit::Combo("CboKind", &KeptScreen::CboKind),
        kit::List("LstItems", &KeptScreen::LstItems), kit::Check("ChkOn", &KeptScreen::ChkOn),
        kit::Grid("Grid", &KeptScreen::Grid, {})};
    return table;
  }
  KeptScreen() : Screen("KeptScreen") {}
  Field TxtName{"old"};
  ComboBox CboKind{{"a", "b"}, 0};
  ListBox LstItems;
  CheckBox ChkOn;
  TextGrid Grid{2, 2};
  int Own = 1;
  void Ruin() {
    TxtName.Text = "new";
    CboKind.Index = 1;
    LstItems.SetItems({"x"});
    ChkOn.Value = true;
    Grid.SetText(1, 1, "typed");
    Own = 2;
    Close();
  }

 private:
  std::function<void()> KeepOwnState() override {
    return [this, own = Own] { Own = own; };
  }
};

TEST_F(CommandBoundaryTest, AFaultPutsTheScreenAndTheStudyStateBack) {
  KeptScreen screen;
  state_.Calculated = 0;
  EXPECT_FALSE(boundary_.Run(screen, [&] {
    screen.Ruin();
    state_.Calculated = -1;
    state_.LastAnswer = "YES";
    throw RuntimeFault(FaultCode::Overflow);
  }));
  EXPECT_EQ(screen.TxtName.Text, "old");
  EXPECT_EQ(screen.CboKind.Index, 0);
  EXPECT_TRUE(screen.LstItems.Items.empty());
  EXPECT_FALSE(screen.ChkOn.Value);
  EXPECT_EQ(screen.Grid.Text(1, 1), "");
  EXPECT_EQ(screen.Own, 1);
  EXPECT_FALSE(screen.Closed());
  EXPECT_EQ(state_.Calculated, 0);
  EXPECT_EQ(state_.LastAnswer, "");
  // A command that succeeds keeps what it did.
  EXPECT_TRUE(boundary_.Run(screen, [&] { screen.Ruin(); }));
  EXPECT_EQ(screen.TxtName.Text, "new");
  EXPECT_EQ(screen.Own, 2);
}

TEST_F(CommandBoundaryTest, ACommandIsRefusedDuringAPause) {
  int refused = 0, ran = 0;
  Workspace::SetEventPump([&] {
    if (!boundary_.Run([&] { ++ran; })) ++refused;
  });
  ws_.SetPauseMilliseconds(30);
  ws_.Pause();
  Workspace::SetEventPump(nullptr);
  EXPECT_GT(refused, 0);
  EXPECT_EQ(ran, 0);
  EXPECT_TRUE(prompter_.History().empty());
  EXPECT_TRUE(boundary_.Run([&] { ++ran; }));
  EXPECT_EQ(ran, 1);
}

}  // namespace
