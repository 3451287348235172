#include "LevelMessages.h"

namespace {

constexpr const char* kAttention = "..!! ΠΡΟΣΟΧΗ !!...";
constexpr const char* kUnusedCountLine = "... (< # > ΚΑΤΑ ΤΟ ΠΛΗΘΟΣ) ...";

Message Question(std::string title, std::vector<std::string> lines, Answer byDefault) {
  return QuestionBox(std::move(title), std::move(lines), byDefault, MessageIcon::Question);
}

}  // namespace

const std::vector<MessageEntry<LevelMessage>>& LevelMessageTable() {
  using enum LevelMessage;
  static const std::vector<MessageEntry<LevelMessage>> table = {
      {ChangeLevelCount,
       Question("...!! ΑΛΛΑΓΗ ΠΛΗΘΟΥΣ ΘΕΡΜΑΙΝΟΜΕΝΩΝ ΕΠΙΠΕΔΩΝ !!...",
                {"... ΘΑ ΔΙΑΓΡΑΦΟΥΝ ΟΛΑ ΤΑ ΔΕΔΟΜΕΝΑ ΣΑΣ ...",
                 "(... ΚΑΙ τα Δεδομένα για τα μήκη και Εξαρτήματα τού Σωληνοδικτύου !!...)",
                 "... Επιμένετε στην Αλλαγή τού Πλήθους των Θερμαινόμενων Επιπέδων ;; ..."},
                Answer::Yes)},
      {ResetDistribution,
       Question(kAttention,
                {"... ΟΛΑ ΤΑ ΔΕΔΟΜΕΝΑ ΤΗΣ ΚΑΤΑΝΟΜΗΣ ΤΩΝ ΒΡΟΧΩΝ ΣΤΑ ΘΕΡΜΑΙΝΟΜΕΝΑ ΕΠΙΠΕΔΑ, ΘΑ "
                 "ΧΑΘΟΥΝ !!...",
                 "(... Αλλά ΟΧΙ και τα Δεδομένα για τα μήκη και Εξαρτήματα τού Δικτύου των "
                 "ΤΡΟΦΟΔΟΤΙΚΩΝ ΣΩΛΗΝΩΝ ...)",
                 " ... ΕΠΙΜΕΝΕΤΕ ΣΕ ΑΥΤΗ ΤΗΝ ΕΝΕΡΓΕΙΑ, ΠΑΡΑ ΤΑΥΤΑ ??? ..."},
                Answer::No)},
      {LevelsWithoutLoops,
       NoticeBox(kAttention,
                 {"... ΥΠΑΡΧΟΥΝ ΘΕΡΜΑΙΝΟΜΕΝΑ ΕΠΙΠΕΔΑ, ΓΙΑ ΤΑ ΟΠΟΙΑ ΔΕΝ ΕΧΕΤΕ ΚΑΤΑΧΩΡΗΣΕΙ "
                  "ΒΡΟΧΟΥΣ !!...",
                  "... Πατήστε το πλήκτρο < RESET >, για να ξανακάνετε την Κατανομή των Βρόχων "
                  "στα Επίπεδα ...",
                  "... ή προχωρήστε σε ΑΝΑΚΑΤΑΝΟΜΗ των Βρόχων στα Επίπεδα, με τη βοήθεια των "
                  "< Βελών > ..."},
                 MessageIcon::Critical)},
      {UnusedSheets,
       Question(kAttention,
                {"... ΥΠΑΡΧΟΥΝ ΒΡΟΧΟΙ (ΦΥΛΛΑ ΥΠΟΛΟΓΙΣΜΩΝ), ΠΟΥ ΔΕΝ ΕΧΟΥΝ ΧΡΗΣΙΜΟΠΟΙΗΘΕΙ !!...",
                 kUnusedCountLine, " ... ΕΠΙΜΕΝΕΤΕ ΣΕ < ΕΞΟΔΟ > ΠΑΡΑ ΤΑΥΤΑ ??? ...",
                 "... Αν έχετε - ήδη - καταχωρήσεις Δεδομένων για Κατακόρυφους Τροφοδοτικούς "
                 "Σωλήνες, τα Δεδομένα αυτά θα χαθούν !..."},
                Answer::Yes)},
      {TwoDecimalSeparators,
       NoticeBox("!!... ΠΡΟΣΟΧΗ : Απαράδεκτη Καταχώρηση ...!!",
                 {"!! Περισσότερες από μια Υποδιαστολές !!"}, MessageIcon::Critical)},
  };
  return table;
}

Message LevelMessageBox(LevelMessage code, int count) {
  Message box = BoxOf(LevelMessageTable(), code);
  for (std::string& line : box.Lines)
    if (line == kUnusedCountLine) line = "... (< " + std::to_string(count) + " > ΚΑΤΑ ΤΟ ΠΛΗΘΟΣ) ...";
  return box;
}
