#pragma once
// The message boxes of the names list (FrmCLient) and of its password screen (FrmCLPass), by
// name, with their exact Greek titles, lines and buttons.
#include <cstdint>
#include <string>
#include <vector>

#include "Message.h"
#include "StudyState.h"

// The list's codes under the numbers the system gives them; NoName, an empty name, is our own.
enum class ClientMessage : int16_t {
  AddName = 1,
  NoPassword = 2,
  WrongPassword = 3,
  DeleteName = 4,
  OnlyEntry = 5,
  CorrectName = 6,
  ChooseEngineer = 7,
  NameTooLongToPrint = 8,
  NoName = 9,
  PasswordTrouble = 13,
};

// The password screen's codes.
enum class PassMessage : int16_t {
  PasswordsDiffer = 1,
  NoProtection = 2,
  PasswordTrouble = 3,
};

// Every box of each table, in the order of the codes above. ChooseEngineer's first line holds
// the mark {name} where the box names the choice.
const std::vector<MessageEntry<ClientMessage>>& ClientMessageTable();
const std::vector<MessageEntry<PassMessage>>& PassMessageTable();

// The box of a list code; `name` is the choice that ChooseEngineer names.
Message ClientMessageBox(ClientMessage code, const std::string& name = {});
Message PassMessageBox(PassMessage code);

// Show a box; a question leaves "YES" or "NO" in state.LastAnswer, which the caller empties.
void ShowClientMessage(ClientMessage code, Prompter& prompter, StudyState& state,
                       const std::string& name = {});
void ShowPassMessage(PassMessage code, Prompter& prompter, StudyState& state);
