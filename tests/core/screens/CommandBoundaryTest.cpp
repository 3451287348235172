#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "CommandBoundary.h"
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
  CommandBoundary boundary_{ws_, prompter_};
};

TEST_F(CommandBoundaryTest, ACommandThatSucceedsKeepsItsFilesAndShowsNothing) {
  WriteAllBytes(folder_ / "SHEETS.TMP", "before");
  EXPECT_TRUE(boundary_.Run([&] { Overwrite("SHEETS.TMP", "after"); }));
  EXPECT_EQ(Bytes("SHEETS.TMP"), "after");
  EXPECT_TRUE(prompter_.History().empty());
}

TEST_F(CommandBoundaryTest, AFaultPutsTheWorkingFilesBackAndIsShownInGreek) {
  const std::string before("\x01\x00\xC1\xC2 record", 11);
  WriteAllBytes(folder_ / "SHEETS.TMP", before);
  const bool ok = boundary_.Run([&] {
    Overwrite("SHEETS.TMP", "half-written");
    Overwrite("LOOPS.TMP", "new file");
    throw RuntimeFault(FaultCode::DivisionByZero, "SHEETS.TMP");
  });
  EXPECT_FALSE(ok);
  EXPECT_EQ(Bytes("SHEETS.TMP"), before);
  EXPECT_FALSE(std::filesystem::exists(folder_ / "LOOPS.TMP"));
  ASSERT_EQ(prompter_.History().size(), 1u);
  const Message& m = prompter_.History()[0].Box;
  EXPECT_EQ(m.Title, "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...");
  EXPECT_EQ(m.Lines, (std::vector<std::string>{
                         Line(FaultCode::DivisionByZero), "... SHEETS.TMP ...",
                         "... Η εντολή διακόπηκε. Τα αρχεία εργασίας έμειναν όπως ήταν ..."}));
  EXPECT_EQ(m.Buttons, MessageButtons::Ok);
  EXPECT_EQ(m.Icon, MessageIcon::Critical);
  EXPECT_EQ(m.Beeps, 2);
}

TEST_F(CommandBoundaryTest, AnyOtherFailureIsReportedAsAFaultOfTheProgram) {
  WriteAllBytes(folder_ / "SHEETS.TMP", "before");
  EXPECT_FALSE(boundary_.Run([&] {
    Overwrite("SHEETS.TMP", "after");
    throw std::out_of_range("vector index 9");
  }));
  EXPECT_EQ(Bytes("SHEETS.TMP"), "before");
  ASSERT_EQ(prompter_.History().size(), 1u);
  const auto& lines = prompter_.History()[0].Box.Lines;
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0], Line(FaultCode::Internal));
  EXPECT_EQ(lines[1], "... vector index 9 ...");
}

TEST_F(CommandBoundaryTest, EvenAFailureThatIsNoExceptionIsCaught) {
  EXPECT_FALSE(boundary_.Run([] { throw 42; }));
  ASSERT_EQ(prompter_.History().size(), 1u);
  EXPECT_EQ(prompter_.History()[0].Box.Lines.size(), 2u);  // no detail to tell
  EXPECT_EQ(prompter_.History()[0].Box.Lines[0], Line(FaultCode::Internal));
}

TEST_F(CommandBoundaryTest, TheProgramGoesOnAfterAFault) {
  EXPECT_FALSE(boundary_.Run([] { throw RuntimeFault(FaultCode::Overflow); }));
  WriteAllBytes(folder_ / "SHEETS.TMP", "one");
  EXPECT_TRUE(boundary_.Run([&] { Overwrite("SHEETS.TMP", "two"); }));
  EXPECT_EQ(Bytes("SHEETS.TMP"), "two");
  EXPECT_EQ(prompter_.History().size(), 1u);
}

TEST_F(CommandBoundaryTest, ReportShowsAFaultCaughtElsewhere) {
  boundary_.Report(RuntimeFault(FaultCode::FileNotFound, "PIPES.DAT"));
  ASSERT_EQ(prompter_.History().size(), 1u);
  EXPECT_EQ(prompter_.History()[0].Box.Lines[0], Line(FaultCode::FileNotFound));
  EXPECT_EQ(prompter_.History()[0].Box.Lines[1], "... PIPES.DAT ...");
}

TEST_F(CommandBoundaryTest, AStoppedScriptPassesThroughAndLeavesTheFiles) {
  WriteAllBytes(folder_ / "SHEETS.TMP", "before");
  EXPECT_THROW(boundary_.Run([&] {
    Overwrite("SHEETS.TMP", "after");
    throw ScriptError{7, "expected x, found y"};
  }),
               ScriptError);
  EXPECT_EQ(Bytes("SHEETS.TMP"), "after");
  EXPECT_TRUE(prompter_.History().empty());
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
