#include <gtest/gtest.h>

#include <map>

#include "RavoMessages.h"

namespace {

// What a box does rather than what it says: which codes ask, what Enter answers, the icon and
// the beeps. The texts are checked where they are shown, by the acceptance scripts.
struct Rule {
  MessageButtons Buttons;
  Answer Default;
  MessageIcon Icon;
  int Beeps;
};

constexpr Rule kNotice{MessageButtons::Ok, Answer::Ok, MessageIcon::Exclamation, 2};
constexpr Rule kAsk{MessageButtons::YesNo, Answer::Yes, MessageIcon::Question, 2};

TEST(RavoMessages, EveryCodeAsksOrTellsAsTheSystemDoes) {
  using enum RavoMessage;
  const std::map<RavoMessage, Rule> rules = {
      {MissingEntries, kNotice},
      {NoOwnership, kNotice},
      {NoLoopNumber, kNotice},
      {NoLoopLength, kNotice},
      {DiscardResults, kAsk},
      {IncompleteData, kNotice},
      {EightRadiatorsAlready, kNotice},
      {NoExcel, kNotice},
      {DeleteEntry, kAsk},
      {StudyNotSaved, kAsk},
      {DeleteWholeSheet, kAsk},
      {NoDataOnSheet, kAsk},
      {TempDropOutOfRange, kNotice},
      {InletTempOutOfRange, kNotice},
      {ScreenTooSmall, kNotice},
      {OtherRowsOnSheet, {MessageButtons::YesNo, Answer::Yes, MessageIcon::Question, 0}},
      {NewStudyLosesData, {MessageButtons::YesNo, Answer::No, MessageIcon::Question, 0}},
      {RadiatorTooSmall, {MessageButtons::Ok, Answer::Ok, MessageIcon::Exclamation, 0}},
      {ExcessiveLoopLoad, {MessageButtons::Ok, Answer::Ok, MessageIcon::Exclamation, 0}},
      {ManualNotOpened, {MessageButtons::Ok, Answer::Ok, MessageIcon::Exclamation, 0}},
  };
  ASSERT_EQ(RavoMessageTable().size(), rules.size());
  for (const auto& [code, box] : RavoMessageTable()) {
    SCOPED_TRACE(box.OneLine());
    const Rule& rule = rules.at(code);
    EXPECT_EQ(box.Buttons, rule.Buttons);
    EXPECT_EQ(box.Default, rule.Default);
    EXPECT_EQ(box.Icon, rule.Icon);
    EXPECT_EQ(box.Beeps, rule.Beeps);
    EXPECT_FALSE(box.Title.empty());
    EXPECT_FALSE(box.Lines.empty());
    EXPECT_EQ(RavoMessageBox(code).OneLine(), box.OneLine());
  }
}

TEST(RavoMessages, AQuestionLeavesItsAnswerAndANoticeLeavesNothing) {
  StudyState state;
  ScriptedPrompter prompter;
  prompter.QueueAnswer(Answer::No);
  RavoMessages(RavoMessage::DeleteWholeSheet, prompter, state);
  EXPECT_EQ(state.LastAnswer, "NO");
  RavoMessages(RavoMessage::DiscardResults, prompter, state);  // nothing queued: the default
  EXPECT_EQ(state.LastAnswer, "YES");
  RavoMessages(RavoMessage::NoLoopLength, prompter, state);
  EXPECT_EQ(state.LastAnswer, "YES");  // a notice leaves the last answer as it was
  ASSERT_EQ(prompter.History().size(), 3u);
  EXPECT_EQ(prompter.History()[0].Given, Answer::No);
}

}  // namespace
