// A message of the sheets asked through the prompter: a question leaves its answer behind.
#include <gtest/gtest.h>

#include "RavoMessages.h"

namespace {

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
