#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "CommandBoundary.h"
#include "FakeScreens.h"
#include "ScriptDriver.h"
#include "TempFolder.h"
#include "Workspace.h"

namespace {

using fake::FakeChild;
using fake::FakeMain;

// The fake screens over a driver, with the main screen set.
struct Rig {
  Rig() { driver_.SetMainScreen(&main_); }
  int RunScript(const std::string& text) { return driver_.RunText(text, "t.rvs", err_); }
  // Runs a script that must pass, showing the error when it does not.
  void Pass(const std::string& text) { ASSERT_EQ(RunScript(text), 0) << err_.str(); }

  TempFolder folder_;
  ScriptedPrompter prompter_;
  std::ostringstream out_, err_;
  ScriptDriver driver_{prompter_, folder_.Path(), out_};
  std::vector<std::string> log_;
  FakeChild grand_{"FrmGrand", driver_, log_};
  FakeChild child_{"FrmChild", driver_, log_, &grand_};
  FakeMain main_{prompter_, driver_, child_, log_};
};

class ScriptDriverTest : public ::testing::Test, protected Rig {};

// The lines of a script as "number: word|word": a word written in quotes stands in «». A script
// refused shows the line of the refusal.
std::string Parsed(const std::string& text) {
  std::vector<ScriptLine> lines;
  try {
    lines = ParseScript(text);
  } catch (const ScriptError& e) {
    return "refused at " + std::to_string(e.Line);
  }
  std::string out;
  for (const ScriptLine& line : lines) {
    out += (out.empty() ? "" : " / ") + std::to_string(line.Number) + ":";
    for (std::size_t i = 0; i < line.Words.size(); ++i)
      out += (i ? "|" : " ") + (line.Quoted.at(i) ? "«" + line.Words[i] + "»" : line.Words[i]);
  }
  return out;
}

// A quote left open or closed before the end of a word is refused.
TEST(ParseScript, SplitsWordsKeepsQuotesDropsCommentsAndRefusesBrokenQuotes) {
  const std::pair<const char*, const char*> cases[] = {
      {"set FrmA.Txt \"Οικία Παπαδόπουλου\"     # focus, type, leave",
       "1: set|FrmA.Txt|«Οικία Παπαδόπουλου»"},
      {"expect FrmA.Txt \"say \\\"hi\\\" # no comment\"",
       "1: expect|FrmA.Txt|«say \"hi\" # no comment»"},
      {"choose FrmA.Cbo #2   # the third", "1: choose|FrmA.Cbo|#2"},
      {"key FrmA F10#a comment", "1: key|FrmA|F10"},
      {"\texpect  FrmA.Txt\t\"\"", "1: expect|FrmA.Txt|«»"},
      {"answer file \"RVLFiles\\\\x.sht\"", "1: answer|file|«RVLFiles\\x.sht»"},
      {"answer file \"a\\b\"", "1: answer|file|«a\\b»"},
      {"expect FrmA.Txt \"#1\"", "1: expect|FrmA.Txt|«#1»"},
      {"\xEF\xBB\xBF# a script\n\nset a \"b\"\r\n   \n#2 press\nkey F F1",
       "3: set|a|«b» / 6: key|F|F1"},
      {"key a b\nset a \"b", "refused at 2"},
      {"\nset a \"b\\\"", "refused at 2"},
      {"\nset a \"b\"c", "refused at 2"}};
  for (const auto& [text, shown] : cases) EXPECT_EQ(Parsed(text), shown) << text;
}

// Every form of action, each through the command runner: grid edits, named choices and single
// selections are what the acceptance scripts do all along; these are the forms they do not use.
TEST_F(ScriptDriverTest, EveryActionRunsThroughTheCommandRunner) {
  int commands = 0;
  driver_.SetCommandRunner([&](ScriptScreen&, const std::function<void()>& action) {
    ++commands;
    action();
  });
  Pass(R"(set FrmFake.TxtValue "1"
expect FrmFake.TxtValue "1"
press FrmFake.CmdOpen
set FrmChild.TxtName "x"
press FrmChild.CmdOK
key FrmFake F1
cell FrmFake.Grid 1 1 "2"
click FrmFake.Grid 3 4
mark FrmFake.Grid 1 2 3 4
choose FrmFake.CboPipes #0
expect FrmFake.CboPipes "Φ14x1"
expect FrmFake.CboPipes "Φ14x1" "Φ16x1" "Φ18x1"
expect FrmFake.LstEmpty
select FrmFake.LstFiles "a.sht" "c.sht"
close FrmFake
answer YES
)");
  EXPECT_EQ(commands, 11);
  EXPECT_EQ(log_, (std::vector<std::string>{"FrmChild returned", "key F1", "edit 1 1",
                                            "pipes clicked", "FrmFake close box"}));
  EXPECT_EQ(main_.Grid.ActiveRow(), 3);
  EXPECT_EQ(main_.Grid.ActiveCol(), 4);
  const CellBlock b = main_.Grid.Block();
  EXPECT_EQ((std::vector<int>{b.Row1, b.Col1, b.Row2, b.Col2}), (std::vector<int>{1, 2, 3, 4}));
  EXPECT_EQ(main_.LstFiles.Selected, (std::vector<bool>{true, false, true}));
  Pass("select FrmFake.LstFiles\n");
  EXPECT_EQ(main_.LstFiles.Selected, (std::vector<bool>{false, false, false}));
}

TEST_F(ScriptDriverTest, QuestionsAndFileDialogsTakeTheQueuedAnswersThenTheirDefault) {
  Pass(R"(answer NO
answer YES
answer NO
press FrmFake.CmdGo
expect message "... ΠΡΟΣΟΧΗ ..."
press FrmFake.CmdAsk
expect FrmFake.LblResult "NO"
press FrmFake.CmdAsk
press FrmFake.CmdAsk
press FrmFake.CmdAsk
expect FrmFake.LblResult "YES"
expect message "!! ΠΡΟΣΟΧΗ !!"
expect message "... ΣΥΝΕΧΕΙΑ ; ..."
answer file "RVLFiles/Μελέτη 1.sht"
answer cancel
press FrmFake.CmdFile
expect FrmFake.LblResult "RVLFiles/Μελέτη 1.sht"
press FrmFake.CmdFile
expect FrmFake.LblResult "cancel"
)");
  const std::string asked = "[message] !! ΠΡΟΣΟΧΗ !! | ... ΣΥΝΕΧΕΙΑ ; ... -> ";
  // The warning box of CmdGo takes no queued answer.
  EXPECT_EQ(out_.str(), "[message] ... ΠΡΟΣΟΧΗ ... | ... ΓΡΑΜΜΗ 1 ... | ... ΓΡΑΜΜΗ 2 ...\n" +
                            asked + "NO\n" + asked + "YES\n" + asked + "NO\n" + asked + "YES\n");
  EXPECT_FALSE(driver_.TakeFileAnswer().has_value());
}

// OK in the child takes its name box, which the script never typed into. Screens still open
// when the script ends are closed innermost first, and each command that opened one goes on.
TEST_F(ScriptDriverTest, NestedScreensReturnToTheCommandThatOpenedThemOrAreClosedAtTheEnd) {
  Pass(R"(press FrmFake.CmdOpen
press FrmChild.CmdOpen
set FrmGrand.TxtName "Γιώργος"
press FrmGrand.CmdOK
expect screen FrmChild
press FrmChild.CmdOK
expect FrmFake.LblResult "after child: "
press FrmFake.CmdOpen
press FrmChild.CmdOpen
expect screen FrmGrand
set FrmGrand.TxtName "Γ"
)");
  EXPECT_EQ(log_, (std::vector<std::string>{"FrmGrand returned", "FrmChild returned",
                                            "FrmGrand close box", "FrmGrand returned",
                                            "FrmChild close box", "FrmChild returned"}));
  EXPECT_EQ(grand_.Result, "Γιώργος");
  EXPECT_EQ(child_.Result, "after Γιώργος");
  EXPECT_EQ(main_.LblResult.Text, "after child: after Γιώργος");
}

TEST_F(ScriptDriverTest, AFailureInsideAModalScreenPassesTheCommandBoundary) {
  Workspace ws(folder_.Path());
  ws.SetPauseMilliseconds(0);
  StudyState state;
  CommandBoundary boundary(ws, prompter_, state);
  driver_.SetCommandRunner([&](ScriptScreen& screen, const std::function<void()>& action) {
    boundary.Run(screen, action);
  });
  EXPECT_EQ(RunScript("press FrmFake.CmdOpen\nexpect screen FrmFake\n"), 1);
  EXPECT_EQ(err_.str(), "t.rvs:2: αναμενόταν η οθόνη FrmFake, βρέθηκε η οθόνη FrmChild\n");
  EXPECT_TRUE(prompter_.History().empty());  // no fault box: the script stopped
}

TEST_F(ScriptDriverTest, AScriptFileNamesItselfInItsErrors) {
  const auto missing = folder_ / "none.rvs";
  EXPECT_EQ(driver_.RunFile(missing, err_), 1);
  EXPECT_EQ(err_.str(), missing.string() + ": το σενάριο δεν μπορεί να διαβαστεί\n");
  const auto file = folder_ / "Σενάριο.rvs";
  WriteAllBytes(file, "expect no message\nexpect FrmFake.TxtValue \"1\"\n");
  err_.str({});
  EXPECT_EQ(driver_.RunFile(file, err_), 1);
  EXPECT_EQ(err_.str(), file.string() + ":2: αναμενόταν FrmFake.TxtValue \"1\", βρέθηκε \"85\"\n");
}

// Scripts that stop, each on fresh screens over a folder holding KEEP.DAT (4 bytes): the error,
// and what the screens did before the stop. The command that opened a screen never goes on,
// and the driver is back at the main screen for the next run.
TEST(ScriptDriverFailure, SaysWhatWasExpectedAndWhatWasFoundOrWhyTheLineCannotRun) {
  const std::string warning = "\"... ΠΡΟΣΟΧΗ ... | ... ΓΡΑΜΜΗ 1 ... | ... ΓΡΑΜΜΗ 2 ...\"";
  const std::string none = "κανένα (δεν εμφανίστηκε μήνυμα μετά το τελευταίο αναμενόμενο)";
  const struct {
    std::string Script, Error, Log = {};
  } cases[] = {
      {"# a comment\nexpect FrmFake.TxtValue \"86\"",
       "t.rvs:2: αναμενόταν FrmFake.TxtValue \"86\", βρέθηκε \"85\""},
      {"expect FrmFake.CmdGo disabled",
       "t.rvs:1: αναμενόταν FrmFake.CmdGo disabled, βρέθηκε enabled"},
      {"expect FrmFake.LstFiles \"a.sht\"",
       "t.rvs:1: αναμενόταν FrmFake.LstFiles \"a.sht\", βρέθηκε \"a.sht\" \"b.sht\" \"c.sht\""},
      {"expect file \"KEEP.DAT\" size 5",
       "t.rvs:1: αναμενόταν το αρχείο \"KEEP.DAT\" μεγέθους 5, βρέθηκε το αρχείο \"KEEP.DAT\" "
       "μεγέθους 4"},
      {"press FrmFake.CmdOpen\nexpect FrmChild.TxtName \"x\"\npress FrmFake.CmdGo",
       "t.rvs:2: αναμενόταν FrmChild.TxtName \"x\", βρέθηκε \"\""},
      // Messages out of step.
      {"expect message \"X\"", "t.rvs:1: αναμενόταν το μήνυμα \"X\", βρέθηκε " + none},
      {"press FrmFake.CmdGo\nexpect message \"X\"",
       "t.rvs:2: αναμενόταν το μήνυμα \"X\", βρέθηκε " + warning},
      {"key FrmFake F5\npress FrmFake.CmdGo\nexpect message \"... ΠΡΟΣΟΧΗ ...\"",
       "t.rvs:3: αναμενόταν το μήνυμα \"... ΠΡΟΣΟΧΗ ...\", βρέθηκε \"F5\"", "key F5"},
      // A failure escaping the command.
      {"\npress FrmFake.CmdBoom", "t.rvs:2: η γραμμή απέτυχε: boom"},
      {"press FrmFake.CmdOdd", "t.rvs:1: η γραμμή απέτυχε"},
      // Lines the driver cannot read.
      {"frobnicate FrmFake", "t.rvs:1: άγνωστη εντολή \"frobnicate\""},
      {"press FrmNone.CmdGo",
       "t.rvs:1: καμία ανοιχτή οθόνη δεν λέγεται FrmNone (από πάνω είναι η FrmFake)"},
      {"cell FrmFake.Grid 4 1 \"5\"",
       "t.rvs:1: το κελί 4 1 είναι έξω από FrmFake.Grid (3 γραμμές, 4 στήλες)"},
      // Controls that cannot take the action.
      {"set FrmFake.LblResult \"x\"", "t.rvs:1: FrmFake.LblResult δεν δέχεται πληκτρολόγηση"},
      {"press FrmFake.CmdOff", "t.rvs:1: FrmFake.CmdOff είναι ανενεργό"},
      {"choose FrmFake.CboPipes #3", "t.rvs:1: FrmFake.CboPipes δεν έχει εγγραφή #3"},
      // A screen under a modal one.
      {"press FrmFake.CmdOpen\npress FrmFake.CmdGo",
       "t.rvs:2: FrmFake είναι ανοιχτή αλλά δεν δέχεται γραμμές τώρα: από πάνω είναι η FrmChild"},
  };
  for (const auto& c : cases) {
    Rig rig;
    WriteAllBytes(rig.folder_ / "KEEP.DAT", "abcd");
    EXPECT_EQ(rig.RunScript(c.Script), 1) << c.Script;
    EXPECT_EQ(rig.err_.str(), c.Error + "\n");
    EXPECT_EQ(rig.log_, c.Log.empty() ? std::vector<std::string>{} : std::vector{c.Log});
    EXPECT_EQ(rig.main_.LblResult.Text, "") << c.Script;
    EXPECT_EQ(rig.RunScript("expect screen FrmFake\n"), 0) << rig.err_.str();
  }
}

// Beyond what the driver's tests show: a question with no answer queued takes its default.
TEST(ScriptedPrompter, AQuestionWithoutAQueuedAnswerTakesItsDefault) {
  ScriptedPrompter p;
  Message question = fake::Box("!! ΠΡΟΣΟΧΗ !!", {"... ΣΥΝΕΧΕΙΑ ; ..."}, true);
  question.Default = Answer::No;
  EXPECT_EQ(p.Show(question), Answer::No);
  question.Default = Answer::Yes;
  EXPECT_EQ(p.Show(question), Answer::Yes);
}

}  // namespace
