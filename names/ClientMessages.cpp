#include "ClientMessages.h"

#include <utility>
#include <vector>

namespace {

constexpr const char* kWarning = "  ! !   ΠΡΟΣΟΧΗ   ! ! ";

Message Box(std::string title, std::vector<std::string> lines, MessageButtons buttons,
            MessageIcon icon, Answer byDefault) {
  Message m;
  m.Title = std::move(title);
  m.Lines = std::move(lines);
  m.Buttons = buttons;
  m.Icon = icon;
  m.Default = byDefault;
  m.Beeps = 2;
  return m;
}

Message Critical(std::vector<std::string> lines) {
  return Box(kWarning, std::move(lines), MessageButtons::Ok, MessageIcon::Critical, Answer::Ok);
}

Message Question(std::string title, std::vector<std::string> lines) {
  return Box(std::move(title), std::move(lines), MessageButtons::YesNo, MessageIcon::Question,
             Answer::Yes);
}

// A critical question that answers No when Enter is pressed.
Message CriticalQuestion(std::string title, std::vector<std::string> lines) {
  return Box(std::move(title), std::move(lines), MessageButtons::YesNo, MessageIcon::Critical,
             Answer::No);
}

constexpr const char* kPasswordTrouble = "... ΣΟΒΑΡΟ ΠΡΟΒΛΗΜΑ ΜΕ ΤΑ Passwords ...";

}  // namespace

Message ClientMessage(int16_t code, const std::string& name) {
  switch (code) {
    case 1:
      return Question("... ΠΡΟΣΘΗΚΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΣΤΗ ΛΙΣΤΑ ...",
                      {"... Θέλετε να προστεθεί το Νέο Όνομα στη Λίστα ?? ..."});
    case 2:
      return Critical({"!! ΔΕΝ έχετε δώσει το Password !!"});
    case 3:
      return Critical({"!! Το Password ΔΕΝ ισχύει !!"});
    case 4:
      return CriticalQuestion(
          "... ΔΙΑΓΡΑΦΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΑΠΟ ΤΗ ΛΙΣΤΑ ...",
          {"... Θέλετε να Διαγραφεί το < Φωτισμένο > Όνομα από τη Λίστα ?? ..."});
    case 5:
      return Critical({"... ΔΕΝ μπορώ να διαγράψω τη μοναδική Καταχώρηση ..."});
    case 6:
      return Question("... ΠΡΟΣΘΗΚΗ ΔΙΟΡΘΩΜΕΝΟΥ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΣΤΗ ΛΙΣΤΑ ...",
                      {"... Θέλετε να Διορθωθεί το Όνομα στη Λίστα ?? ..."});
    case 7:
      return Question("... ΕΠΙΛΟΓΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ...",
                      {"... Μελετητής : " + name + " ...", "... ΣΥΜΦΩΝΕΙΤΕ ??? ..."});
    case 8:
      return Critical(
          {"     ... Για < Εκτύπωση μέσω του Προγράμματος (και όχι μέσω του "
           "Microsot Excel) > ...     ",
           "... το όνομα του Μελετητή ΔΕΝ πρέπει να περιλαμβάνει περισσότερους από "
           "50 χαρακτήρες ..."});
    case 9:
      return Critical({"... ΔΕΝ έχετε δώσει το Όνομα του Μελετητή ..."});
    case 13:
      return Critical({kPasswordTrouble});
    default:
      return Critical({});
  }
}

Message PassMessage(int16_t code) {
  switch (code) {
    case 1:
      return Critical({"... Τα δυο Passwords, που εδώσατε ΔΕΝ συμπίπτουν ..."});
    case 2:
      return CriticalQuestion(
          kWarning,
          {"... Η πρόσβαση στο Αρχείο Ονομάτων μελετητών, ΔΕΝ θα προστατεύεται με Password ...",
           "                                     ... Σίγουρα θέλετε κάτι τέτοιο ?? ...        "});
    case 3:
      return Critical({kPasswordTrouble});
    default:
      return Critical({});
  }
}

namespace {

void ShowBox(const Message& box, Prompter& prompter, StudyState& state) {
  const Answer answer = prompter.Show(box);
  if (box.IsQuestion()) state.LastAnswer = AnswerText(answer);
}

}  // namespace

void ShowClientMessage(int16_t code, Prompter& prompter, StudyState& state,
                       const std::string& name) {
  ShowBox(ClientMessage(code, name), prompter, state);
}

void ShowPassMessage(int16_t code, Prompter& prompter, StudyState& state) {
  ShowBox(PassMessage(code), prompter, state);
}
