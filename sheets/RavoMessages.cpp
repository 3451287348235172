#include "RavoMessages.h"

#include <string>

namespace {

constexpr const char* kTitle = "!! ΠΡΟΣΟΧΗ !!";

// The routine's shapes: every box beeps twice; a question answers Yes when Enter is pressed.
Message Notice(std::vector<std::string> lines, std::string title = kTitle) {
  return NoticeBox(std::move(title), std::move(lines), MessageIcon::Exclamation, kSystemBeeps);
}

Message Question(std::vector<std::string> lines) {
  return QuestionBox(kTitle, std::move(lines), Answer::Yes, MessageIcon::Question, kSystemBeeps);
}

}  // namespace

const std::vector<MessageEntry<RavoMessage>>& RavoMessageTable() {
  using enum RavoMessage;
  static const std::vector<MessageEntry<RavoMessage>> table = {
      {MissingEntries, Notice({"... ΕΛΙΠΕΙΣ ΚΑΤΑΧΩΡΗΣΕΙΣ ..."})},
      {NoOwnership, Notice({"... ΔΕΝ ΕΧΕΤΕ ΚΑΤΑΧΩΡΗΣΕΙ ΤΗΝ ΙΔΙΟΚΤΗΣΙΑ ..."})},
      {NoLoopNumber, Notice({"... ΔΕΝ ΕΧΕΤΕ ΤΟΝ ΑΡΙΘΜΟ ΚΥΚΛΩΜΑΤΟΣ ..."})},
      {NoLoopLength, Notice({"... ΔΕΝ ΕΧΕΤΕ ΤΟ ΜΗΚΟΣ ΤΟΥ ΒΡΟΧΟΥ ..."})},
      {DiscardResults,
       Question({"!! ΘΑ ΔΙΑΓΡΑΦΟΥΝ ΟΛΑ ΤΑ ΑΠΟΤΕΛΕΣΜΑΤΑ ΤΟΥ ΤΡΕΧΟΝΤΟΣ ΦΎΛΛΟΥ  !!",
                 "... Φυσικά, μπορείτε να πάρετε τα Νέα Αποτελέματα, πατώντας το πλήκτρο "
                 "< Υπολογισμοί > ...",
                 "Θέλετε να συνεχίσω με την Διαγραφή ??"})},
      {IncompleteData, Notice({"... ΕΛΛΙΠΗ ΔΕΔΟΜΕΝΑ, ΙΣΩΣ ΔΕΝ ΕΧΕΤΕ ΚΑΝΕΙ ΥΠΟΛΟΓΙΣΜΟΥΣ ..."})},
      {EightRadiatorsAlready,
       Notice({"... ΕΧΕΤΕ, ΗΔΗ, ΚΑΤΑΧΩΡΗΣΕΙ ΟΚΤΩ ΣΩΜΑΤΑ ...",
               "... ΠΡΕΠΕΙ ΝΑ ΔΙΑΓΡΑΨΕΤΕ ΚΑΠΟΙΟ, ΓΙΑ ΝΑ ΚΑΤΑΧΩΡΗΣΕΤΕ ΚΑΠΟΙΟ ΑΛΛΟ ..."})},
      {NoExcel, Notice({"... Το Πρόγραμμα < Microsoft Excel >, ΔΕΝ είναι εγκατεστημένο στο "
                        "Σύστημα αυτό ...",
                        "... ΔΕΝ Μπορείτε να κάνετε Προεπισκόπηση (Preview) ..."},
                       "  ! !   ΠΡΟΣΟΧΗ   ! ! ")},
      {DeleteEntry, Question({"!! ΘΑ ΔΙΑΓΡΑΦΕΙ Η ΤΡΕΧΟΥΣΑ (< ΦΩΤΙΣΜΕΝΗ >) ΚΑΤΑΧΩΡΗΣΗ !!",
                              "... Να συνεχίσω με τη Διαγραφή ? ..."})},
      {StudyNotSaved, Question({"!! Η ΤΡΕΧΟΥΣΑ ΜΕΛΕΤΗ, ΔΕΝ ΕΧΕΙ < ΣΩΘΕΙ > ΣΕ ΑΡΧΕΙΟ !!",
                                "... θέλετε να < σωθεί > η Μελέτη σε Αρχείο ? ..."})},
      {DeleteWholeSheet, Question({"!! ΘΑ ΔΙΑΓΡΑΦΕΙ ΟΛΟΚΛΗΡΟ ΤΟ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ !!",
                                   "... Να συνεχίσω με τη Διαγραφή ? ..."})},
      {NoDataOnSheet, Question({"!! ΔΕΝ ΥΠΑΡΧΟΥΝ ΔΕΔΟΜΕΝΑ ΓΙΑ ΤΟ ΤΡΕΧΟΝ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ !!",
                                "... Να διαγραφεί το Φύλλο Υπολογισμών ? ..."})},
      {TempDropOutOfRange,
       Notice({"...!! Η ΘΕΡΜΟΚΡΑΣΙΑΚΗ ΠΤΩΣΗ ΤΟΥ ΝΕΡΟΥ ΣΤΟ ΚΥΚΛΩΜΑ, ΠΡΕΠΕΙ ΝΑ ΕΙΝΑΙ ΜΕΤΑΞΥ "
               "8°C ΚΑΙ 30°C !!..."})},
      {InletTempOutOfRange,
       Notice({"...!! Η ΘΕΡΜΟΚΡΑΣΙΑ ΕΙΣΟΔΟΥ ΤΟΥ ΝΕΡΟΥ ΣΤΟΝ ΒΡΟΧΟ, ΠΡΕΠΕΙ ΝΑ ΕΙΝΑΙ ΜΕΤΑΞΥ "
               "30°C ΚΑΙ 90°C !!..."})},
      {ScreenTooSmall,
       Notice({"... Η Ανάλυση της Οθόνης, πρέπει να είναι τουλάχιστον 1024 x 768 ...",
               "... για σωστή απεικόνιση των Οθονών τού Προγράμματος ..."},
              "... ΠΡΟΣΟΧΗ ...")},
      // The boxes below are shown without beeps.
      {OtherRowsOnSheet,
       QuestionBox(kTitle,
                   {"!! ΥΠΑΡΧΟΥΝ ΚΑΙ ΑΛΛΕΣ ΚΑΤΑΧΩΡΗΣΕΙΣ ΣΤΟ ΠΑΡΟΝ ΦΥΛΛΟ !!",
                    "... Θέλετε αυτές να Διαγραφούν (Yes) ή να Παραμείνουν (No) ?? ..."},
                   Answer::Yes)},
      {NewStudyLosesData,
       QuestionBox("...!! ΠΡΟΣΟΧΗ  !!...",
                   {"... Τα Δεδομένα θα χαθούν, προκειμένου να δημιουργηθεί μια Νέα Μελέτη ...",
                    "... Να προχωρήσω στη Νέα Μελέτη ; ..."},
                   Answer::No)},
      {RadiatorTooSmall, NoticeBox("... ! ΔΕΝ ΘΑ ΓΙΝΟΥΝ ΟΙ ΥΠΟΛΟΓΙΣΜΟΙ",
                                   {"... Ο τύπος τού Σώματος, που έχει επιλεγεί ...",
                                    "... ΔΕΝ ΕΠΑΡΚΕΙ για την κάλυψη των Θερμικών αναγκών ...",
                                    "... ΟΙ ΥΠΟΛΟΓΙΣΜΟΙ ΣΤΑΜΑΤΟΥΝ !..."})},
      {ExcessiveLoopLoad,
       NoticeBox("... ΥΠΕΡΒΟΛΙΚΑ ΦΟΡΤΙΑ ΣΤΟΝ ΒΡΟΧΟ ...",
                 {"... Για μια ισορροπημένη Μελέτη το Συνολικό Φορτίο των Σωμάτων τού Βρόχου ...",
                  "... ΔΕΝ πρέπει να υπερβαίνει τα 8.000 [Kcal/h] !...",
                  "... ΑΦΑΙΡΕΣΤΕ ΣΩΜΑΤΑ ΑΠΟ ΤΟΝ ΒΡΟΧΟ ή ΑΛΛΑΞΤΕ ΤΗΝ ΔΟΜΗ ΤΟΥ ΒΡΟΧΟΥ ..."})},
      // The manual is there, but the desktop has no program that opens it.
      {ManualNotOpened,
       NoticeBox("... ΠΡΟΣΟΧΗ ...",
                 {"... ΔΕΝ βρέθηκε πρόγραμμα για την ανάγνωση τού Εγχειριδίου < RM.pdf > ...",
                  "... Εγκαταστήστε ένα πρόγραμμα ανάγνωσης αρχείων PDF ..."})},
  };
  return table;
}

Message RavoMessageBox(RavoMessage code) {
  return BoxOf(RavoMessageTable(), code);
}

void RavoMessages(RavoMessage code, Prompter& prompter, StudyState& state) {
  ShowKeepingAnswer(RavoMessageBox(code), prompter, state.LastAnswer);
}
