#include <gtest/gtest.h>

#include "RavoMessages.h"

namespace {

struct Expected {
  int16_t Code;
  const char* Title;
  std::vector<std::string> Lines;
  MessageButtons Buttons;
};

const std::vector<Expected> kTable = {
    {-1, "!! ΠΡΟΣΟΧΗ !!", {"... ΕΛΙΠΕΙΣ ΚΑΤΑΧΩΡΗΣΕΙΣ ..."}, MessageButtons::Ok},
    {-2, "!! ΠΡΟΣΟΧΗ !!", {"... ΔΕΝ ΕΧΕΤΕ ΚΑΤΑΧΩΡΗΣΕΙ ΤΗΝ ΙΔΙΟΚΤΗΣΙΑ ..."}, MessageButtons::Ok},
    {-3, "!! ΠΡΟΣΟΧΗ !!", {"... ΔΕΝ ΕΧΕΤΕ ΤΟΝ ΑΡΙΘΜΟ ΚΥΚΛΩΜΑΤΟΣ ..."}, MessageButtons::Ok},
    {-4, "!! ΠΡΟΣΟΧΗ !!", {"... ΔΕΝ ΕΧΕΤΕ ΤΟ ΜΗΚΟΣ ΤΟΥ ΒΡΟΧΟΥ ..."}, MessageButtons::Ok},
    {-5,
     "!! ΠΡΟΣΟΧΗ !!",
     {"!! ΘΑ ΔΙΑΓΡΑΦΟΥΝ ΟΛΑ ΤΑ ΑΠΟΤΕΛΕΣΜΑΤΑ ΤΟΥ ΤΡΕΧΟΝΤΟΣ ΦΎΛΛΟΥ  !!",
      "... Φυσικά, μπορείτε να πάρετε τα Νέα Αποτελέματα, πατώντας το πλήκτρο < Υπολογισμοί > ...",
      "Θέλετε να συνεχίσω με την Διαγραφή ??"},
     MessageButtons::YesNo},
    {-6,
     "!! ΠΡΟΣΟΧΗ !!",
     {"... ΕΛΛΙΠΗ ΔΕΔΟΜΕΝΑ, ΙΣΩΣ ΔΕΝ ΕΧΕΤΕ ΚΑΝΕΙ ΥΠΟΛΟΓΙΣΜΟΥΣ ..."},
     MessageButtons::Ok},
    {-7,
     "!! ΠΡΟΣΟΧΗ !!",
     {"... ΕΧΕΤΕ, ΗΔΗ, ΚΑΤΑΧΩΡΗΣΕΙ ΟΚΤΩ ΣΩΜΑΤΑ ...",
      "... ΠΡΕΠΕΙ ΝΑ ΔΙΑΓΡΑΨΕΤΕ ΚΑΠΟΙΟ, ΓΙΑ ΝΑ ΚΑΤΑΧΩΡΗΣΕΤΕ ΚΑΠΟΙΟ ΑΛΛΟ ..."},
     MessageButtons::Ok},
    {-8,
     "  ! !   ΠΡΟΣΟΧΗ   ! ! ",
     {"... Το Πρόγραμμα < Microsoft Excel >, ΔΕΝ είναι εγκατεστημένο στο Σύστημα αυτό ...",
      "... ΔΕΝ Μπορείτε να κάνετε Προεπισκόπηση (Preview) ..."},
     MessageButtons::Ok},
    {-9,
     "!! ΠΡΟΣΟΧΗ !!",
     {"!! ΘΑ ΔΙΑΓΡΑΦΕΙ Η ΤΡΕΧΟΥΣΑ (< ΦΩΤΙΣΜΕΝΗ >) ΚΑΤΑΧΩΡΗΣΗ !!",
      "... Να συνεχίσω με τη Διαγραφή ? ..."},
     MessageButtons::YesNo},
    {-10,
     "!! ΠΡΟΣΟΧΗ !!",
     {"!! Η ΤΡΕΧΟΥΣΑ ΜΕΛΕΤΗ, ΔΕΝ ΕΧΕΙ < ΣΩΘΕΙ > ΣΕ ΑΡΧΕΙΟ !!",
      "... θέλετε να < σωθεί > η Μελέτη σε Αρχείο ? ..."},
     MessageButtons::YesNo},
    {-11,
     "!! ΠΡΟΣΟΧΗ !!",
     {"!! ΘΑ ΔΙΑΓΡΑΦΕΙ ΟΛΟΚΛΗΡΟ ΤΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ !!", "... Να συνεχίσω με τη Διαγραφή ? ..."},
     MessageButtons::YesNo},
    {-12,
     "!! ΠΡΟΣΟΧΗ !!",
     {"!! ΔΕΝ ΥΠΑΡΧΟΥΝ ΔΕΔΟΜΕΝΑ ΓΙΑ ΤΟ ΤΡΕΧΟΝ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ !!",
      "... Να διαγραφεί το Φύλλο Υπολογισμών ? ..."},
     MessageButtons::YesNo},
    {-13,
     "!! ΠΡΟΣΟΧΗ !!",
     {"...!! Η ΘΕΡΜΟΚΡΑΣΙΑΚΗ ΠΤΩΣΗ ΤΟΥ ΝΕΡΟΥ ΣΤΟ ΚΥΚΛΩΜΑ, ΠΡΕΠΕΙ ΝΑ ΕΙΝΑΙ ΜΕΤΑΞΥ 8°C ΚΑΙ 30°C "
      "!!..."},
     MessageButtons::Ok},
    {-14,
     "!! ΠΡΟΣΟΧΗ !!",
     {"...!! Η ΘΕΡΜΟΚΡΑΣΙΑ ΕΙΣΟΔΟΥ ΤΟΥ ΝΕΡΟΥ ΣΤΟΝ ΒΡΟΧΟ, ΠΡΕΠΕΙ ΝΑ ΕΙΝΑΙ ΜΕΤΑΞΥ 30°C ΚΑΙ 90°C "
      "!!..."},
     MessageButtons::Ok},
};

TEST(RavoMessages, EveryCodeHasItsTitleLinesAndButtons) {
  for (const auto& e : kTable) {
    SCOPED_TRACE(e.Code);
    const Message m = RavoMessage(e.Code);
    EXPECT_EQ(m.Title, e.Title);
    EXPECT_EQ(m.Lines, e.Lines);
    EXPECT_EQ(m.Buttons, e.Buttons);
    EXPECT_EQ(m.Beeps, 2);
    if (m.IsQuestion()) {
      EXPECT_EQ(m.Default, Answer::Yes);
    }
  }
}

TEST(RavoMessages, AQuestionLeavesItsAnswerAndANoticeLeavesNothing) {
  StudyState state;
  ScriptedPrompter prompter;
  prompter.QueueAnswer(Answer::No);
  RavoMessages(-11, prompter, state);
  EXPECT_EQ(state.LastAnswer, "NO");
  RavoMessages(-5, prompter, state);  // nothing queued: the default button
  EXPECT_EQ(state.LastAnswer, "YES");
  state.LastAnswer.clear();
  RavoMessages(-4, prompter, state);
  EXPECT_EQ(state.LastAnswer, "");
  ASSERT_EQ(prompter.History().size(), 3u);
  EXPECT_EQ(prompter.History()[0].Given, Answer::No);
}

}  // namespace
