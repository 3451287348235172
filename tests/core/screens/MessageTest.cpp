// The scripted prompter beyond what the driver's tests show through it: an OK box leaves the
// queued answers alone, a question without a default presses its first button, a box of a title
// alone prints as the title.
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

TEST(ScriptedPrompter, AnOkBoxTakesNoQueuedAnswerAndAQuestionWithoutADefaultSaysYes) {
  ScriptedPrompter p;
  p.QueueAnswer(Answer::No);
  Message ok;
  ok.Title = "... ΠΡΟΣΟΧΗ ...";
  EXPECT_EQ(p.Show(ok), Answer::Ok);
  EXPECT_EQ(ok.OneLine(), "... ΠΡΟΣΟΧΗ ...");
  EXPECT_EQ(AnswerText(Answer::Ok), "");
  EXPECT_EQ(p.Show(Question(Answer::Yes)), Answer::No);
  EXPECT_FALSE(p.HasQueuedAnswers());
  EXPECT_EQ(p.Show(Question(Answer::Ok)), Answer::Yes);
  EXPECT_EQ(p.Show(Question(Answer::No)), Answer::No);
  const std::vector<Answer> given = {Answer::Ok, Answer::No, Answer::Yes, Answer::No};
  ASSERT_EQ(p.History().size(), given.size());
  for (std::size_t i = 0; i < given.size(); ++i) EXPECT_EQ(p.History()[i].Given, given[i]);
  p.Clear();
  EXPECT_TRUE(p.History().empty());
}

}  // namespace
