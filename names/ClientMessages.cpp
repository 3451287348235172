#include "ClientMessages.h"

#include <string_view>
#include <utility>

namespace {

constexpr const char* kWarning = "  ! !   ΠΡΟΣΟΧΗ   ! ! ";
constexpr const char* kNameMark = "{name}";

// The shapes of the names' boxes; every one beeps twice.
Message Critical(std::vector<std::string> lines) {
  return NoticeBox(kWarning, std::move(lines), MessageIcon::Critical, kSystemBeeps);
}

Message Question(std::string title, std::vector<std::string> lines) {
  return QuestionBox(std::move(title), std::move(lines), Answer::Yes, MessageIcon::Question,
                     kSystemBeeps);
}

// A critical question that answers No when Enter is pressed.
Message CriticalQuestion(std::string title, std::vector<std::string> lines) {
  return QuestionBox(std::move(title), std::move(lines), Answer::No, MessageIcon::Critical,
                     kSystemBeeps);
}

constexpr const char* kPasswordTrouble = "... ΣΟΒΑΡΟ ΠΡΟΒΛΗΜΑ ΜΕ ΤΑ Passwords ...";

}  // namespace

const std::vector<MessageEntry<ClientMessage>>& ClientMessageTable() {
  using enum ClientMessage;
  static const std::vector<MessageEntry<ClientMessage>> table = {
      {AddName, Question("... ΠΡΟΣΘΗΚΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΣΤΗ ΛΙΣΤΑ ...",
                         {"... Θέλετε να προστεθεί το Νέο Όνομα στη Λίστα ?? ..."})},
      {NoPassword, Critical({"!! ΔΕΝ έχετε δώσει το Password !!"})},
      {WrongPassword, Critical({"!! Το Password ΔΕΝ ισχύει !!"})},
      {DeleteName,
       CriticalQuestion("... ΔΙΑΓΡΑΦΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΑΠΟ ΤΗ ΛΙΣΤΑ ...",
                        {"... Θέλετε να Διαγραφεί το < Φωτισμένο > Όνομα από τη Λίστα ?? ..."})},
      {OnlyEntry, Critical({"... ΔΕΝ μπορώ να διαγράψω τη μοναδική Καταχώρηση ..."})},
      {CorrectName, Question("... ΠΡΟΣΘΗΚΗ ΔΙΟΡΘΩΜΕΝΟΥ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΣΤΗ ΛΙΣΤΑ ...",
                             {"... Θέλετε να Διορθωθεί το Όνομα στη Λίστα ?? ..."})},
      {ChooseEngineer,
       Question("... ΕΠΙΛΟΓΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ...",
                {std::string("... Μελετητής : ") + kNameMark + " ...", "... ΣΥΜΦΩΝΕΙΤΕ ??? ..."})},
      {NameTooLongToPrint,
       Critical({"     ... Για < Εκτύπωση μέσω του Προγράμματος (και όχι μέσω του "
                 "Microsot Excel) > ...     ",
                 "... το όνομα του Μελετητή ΔΕΝ πρέπει να περιλαμβάνει περισσότερους από "
                 "50 χαρακτήρες ..."})},
      {NoName, Critical({"... ΔΕΝ έχετε δώσει το Όνομα του Μελετητή ..."})},
      {PasswordTrouble, Critical({kPasswordTrouble})},
  };
  return table;
}

const std::vector<MessageEntry<PassMessage>>& PassMessageTable() {
  using enum PassMessage;
  static const std::vector<MessageEntry<PassMessage>> table = {
      {PasswordsDiffer, Critical({"... Τα δυο Passwords, που εδώσατε ΔΕΝ συμπίπτουν ..."})},
      {NoProtection,
       CriticalQuestion(
           kWarning,
           {"... Η πρόσβαση στο Αρχείο Ονομάτων μελετητών, ΔΕΝ θα προστατεύεται με Password ...",
            "                                     ... Σίγουρα θέλετε κάτι τέτοιο ?? ...        "})},
      {PasswordTrouble, Critical({kPasswordTrouble})},
  };
  return table;
}

Message ClientMessageBox(ClientMessage code, const std::string& name) {
  Message box = BoxOf(ClientMessageTable(), code);
  for (std::string& line : box.Lines) {
    const std::size_t mark = line.find(kNameMark);
    if (mark != std::string::npos) line.replace(mark, std::string_view(kNameMark).size(), name);
  }
  return box;
}

Message PassMessageBox(PassMessage code) {
  return BoxOf(PassMessageTable(), code);
}

void ShowClientMessage(ClientMessage code, Prompter& prompter, StudyState& state,
                       const std::string& name) {
  ShowKeepingAnswer(ClientMessageBox(code, name), prompter, state.LastAnswer);
}

void ShowPassMessage(PassMessage code, Prompter& prompter, StudyState& state) {
  ShowKeepingAnswer(PassMessageBox(code), prompter, state.LastAnswer);
}
