#include "RavoMessages.h"

#include <string>
#include <vector>

namespace {

constexpr const char* kTitle = "!! ΠΡΟΣΟΧΗ !!";

Message Notice(std::vector<std::string> lines, std::string title = kTitle) {
  Message m;
  m.Title = std::move(title);
  m.Lines = std::move(lines);
  m.Buttons = MessageButtons::Ok;
  m.Icon = MessageIcon::Exclamation;
  m.Default = Answer::Ok;
  m.Beeps = 2;
  return m;
}

Message Question(std::vector<std::string> lines) {
  Message m = Notice(std::move(lines));
  m.Buttons = MessageButtons::YesNo;
  m.Icon = MessageIcon::Question;
  m.Default = Answer::Yes;
  return m;
}

}  // namespace

Message RavoMessage(int16_t code) {
  switch (code) {
    case -1:
      return Notice({"... ΕΛΙΠΕΙΣ ΚΑΤΑΧΩΡΗΣΕΙΣ ..."});
    case -2:
      return Notice({"... ΔΕΝ ΕΧΕΤΕ ΚΑΤΑΧΩΡΗΣΕΙ ΤΗΝ ΙΔΙΟΚΤΗΣΙΑ ..."});
    case -3:
      return Notice({"... ΔΕΝ ΕΧΕΤΕ ΤΟΝ ΑΡΙΘΜΟ ΚΥΚΛΩΜΑΤΟΣ ..."});
    case -4:
      return Notice({"... ΔΕΝ ΕΧΕΤΕ ΤΟ ΜΗΚΟΣ ΤΟΥ ΒΡΟΧΟΥ ..."});
    case -5:
      return Question({"!! ΘΑ ΔΙΑΓΡΑΦΟΥΝ ΟΛΑ ΤΑ ΑΠΟΤΕΛΕΣΜΑΤΑ ΤΟΥ ΤΡΕΧΟΝΤΟΣ ΦΎΛΛΟΥ  !!",
                       "... Φυσικά, μπορείτε να πάρετε τα Νέα Αποτελέματα, πατώντας το πλήκτρο "
                       "< Υπολογισμοί > ...",
                       "Θέλετε να συνεχίσω με την Διαγραφή ??"});
    case -6:
      return Notice({"... ΕΛΛΙΠΗ ΔΕΔΟΜΕΝΑ, ΙΣΩΣ ΔΕΝ ΕΧΕΤΕ ΚΑΝΕΙ ΥΠΟΛΟΓΙΣΜΟΥΣ ..."});
    case -7:
      return Notice({"... ΕΧΕΤΕ, ΗΔΗ, ΚΑΤΑΧΩΡΗΣΕΙ ΟΚΤΩ ΣΩΜΑΤΑ ...",
                     "... ΠΡΕΠΕΙ ΝΑ ΔΙΑΓΡΑΨΕΤΕ ΚΑΠΟΙΟ, ΓΙΑ ΝΑ ΚΑΤΑΧΩΡΗΣΕΤΕ ΚΑΠΟΙΟ ΑΛΛΟ ..."});
    case -8:
      return Notice({"... Το Πρόγραμμα < Microsoft Excel >, ΔΕΝ είναι εγκατεστημένο στο Σύστημα "
                     "αυτό ...",
                     "... ΔΕΝ Μπορείτε να κάνετε Προεπισκόπηση (Preview) ..."},
                    "  ! !   ΠΡΟΣΟΧΗ   ! ! ");
    case -9:
      return Question({"!! ΘΑ ΔΙΑΓΡΑΦΕΙ Η ΤΡΕΧΟΥΣΑ (< ΦΩΤΙΣΜΕΝΗ >) ΚΑΤΑΧΩΡΗΣΗ !!",
                       "... Να συνεχίσω με τη Διαγραφή ? ..."});
    case -10:
      return Question({"!! Η ΤΡΕΧΟΥΣΑ ΜΕΛΕΤΗ, ΔΕΝ ΕΧΕΙ < ΣΩΘΕΙ > ΣΕ ΑΡΧΕΙΟ !!",
                       "... θέλετε να < σωθεί > η Μελέτη σε Αρχείο ? ..."});
    case -11:
      return Question({"!! ΘΑ ΔΙΑΓΡΑΦΕΙ ΟΛΟΚΛΗΡΟ ΤΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ !!",
                       "... Να συνεχίσω με τη Διαγραφή ? ..."});
    case -12:
      return Question({"!! ΔΕΝ ΥΠΑΡΧΟΥΝ ΔΕΔΟΜΕΝΑ ΓΙΑ ΤΟ ΤΡΕΧΟΝ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ !!",
                       "... Να διαγραφεί το Φύλλο Υπολογισμών ? ..."});
    case -13:
      return Notice(
          {"...!! Η ΘΕΡΜΟΚΡΑΣΙΑΚΗ ΠΤΩΣΗ ΤΟΥ ΝΕΡΟΥ ΣΤΟ ΚΥΚΛΩΜΑ, ΠΡΕΠΕΙ ΝΑ ΕΙΝΑΙ ΜΕΤΑΞΥ "
           "8°C ΚΑΙ 30°C !!..."});
    case -14:
      return Notice(
          {"...!! Η ΘΕΡΜΟΚΡΑΣΙΑ ΕΙΣΟΔΟΥ ΤΟΥ ΝΕΡΟΥ ΣΤΟΝ ΒΡΟΧΟ, ΠΡΕΠΕΙ ΝΑ ΕΙΝΑΙ ΜΕΤΑΞΥ "
           "30°C ΚΑΙ 90°C !!..."});
    default:
      return Notice({});
  }
}

void RavoMessages(int16_t code, Prompter& prompter, StudyState& state) {
  const Message box = RavoMessage(code);
  const Answer answer = prompter.Show(box);
  if (box.IsQuestion()) state.LastAnswer = AnswerText(answer);
}
