#include <gtest/gtest.h>

#include <vector>

#include "Message.h"

namespace {

Message Question(Answer byDefault) {
  Message m;
  m.Title = "!! ΠΡΟΣΟΧΗ !!";
  m.Lines = {"... ΘΑ ΔΙΑΓΡΑΦΟΥΝ ...", "... ΣΥΝΕΧΕΙΑ ; ..."};
  m.Buttons = MessageButtons::YesNo;
  m.Default = byDefault;
  return m;
}

Message OkBox() {
  Message m;
  m.Title = "... ΠΡΟΣΟΧΗ ...";
  m.Lines = {"... ΔΕΝ ΕΧΕΤΕ ΤΟ ΜΗΚΟΣ ..."};
  return m;
}

TEST(Message, PrintsOnOneLine) {
  EXPECT_EQ(Question(Answer::No).OneLine(),
            "!! ΠΡΟΣΟΧΗ !! | ... ΘΑ ΔΙΑΓΡΑΦΟΥΝ ... | ... ΣΥΝΕΧΕΙΑ ; ...");
  Message bare;
  bare.Title = "T";
  EXPECT_EQ(bare.OneLine(), "T");
}

TEST(Message, AnswerText) {
  EXPECT_EQ(AnswerText(Answer::Yes), "YES");
  EXPECT_EQ(AnswerText(Answer::No), "NO");
  EXPECT_EQ(AnswerText(Answer::Ok), "");
}

TEST(ScriptedPrompter, QuestionsTakeQueuedAnswersInOrderThenTheirDefault) {
  ScriptedPrompter p;
  p.QueueAnswer(Answer::No);
  p.QueueAnswer(Answer::Yes);
  EXPECT_EQ(p.Show(OkBox()), Answer::Ok);  // an OK box leaves the queue alone
  EXPECT_TRUE(p.HasQueuedAnswers());
  EXPECT_EQ(p.Show(Question(Answer::Yes)), Answer::No);
  EXPECT_EQ(p.Show(Question(Answer::No)), Answer::Yes);
  EXPECT_FALSE(p.HasQueuedAnswers());
  EXPECT_EQ(p.Show(Question(Answer::No)), Answer::No);
  EXPECT_EQ(p.Show(Question(Answer::Yes)), Answer::Yes);
  const std::vector<Answer> given = {Answer::Ok, Answer::No, Answer::Yes, Answer::No, Answer::Yes};
  ASSERT_EQ(p.History().size(), given.size());
  for (std::size_t i = 0; i < given.size(); ++i) EXPECT_EQ(p.History()[i].Given, given[i]);
  EXPECT_EQ(p.History()[0].Box.Title, "... ΠΡΟΣΟΧΗ ...");
  p.Clear();
  EXPECT_TRUE(p.History().empty());
}

TEST(ScriptedPrompter, TellsEveryBoxWithItsAnswer) {
  ScriptedPrompter p;
  std::vector<std::string> seen;
  p.OnShown = [&](const ScriptedPrompter::Shown& s) {
    seen.push_back(s.Box.Title + " -> " + AnswerText(s.Given));
  };
  p.QueueAnswer(Answer::Yes);
  p.Show(Question(Answer::No));
  p.Show(OkBox());
  EXPECT_EQ(seen, (std::vector<std::string>{"!! ΠΡΟΣΟΧΗ !! -> YES", "... ΠΡΟΣΟΧΗ ... -> "}));
}

TEST(ScriptedPrompter, AQuestionWithoutADefaultPressesItsFirstButton) {
  ScriptedPrompter p;
  EXPECT_EQ(p.Show(Question(Answer::Ok)), Answer::Yes);
}

}  // namespace
