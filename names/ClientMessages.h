#pragma once
// The message boxes of the names list (FrmCLient) and of its password screen (FrmCLPass),
// chosen by code, with their exact Greek titles, lines and buttons.
#include <cstdint>
#include <string>

#include "Message.h"
#include "StudyState.h"

// The box of a list code (1 to 9, 13). Code 7 names the choice. Code 9, an empty name, is our
// own; the other codes are the list's table. Unknown codes give an empty notice.
Message ClientMessage(int16_t code, const std::string& name = {});
// The box of a password code (1 to 3).
Message PassMessage(int16_t code);

// Show a box; a question leaves "YES" or "NO" in state.LastAnswer, which the caller empties.
void ShowClientMessage(int16_t code, Prompter& prompter, StudyState& state,
                       const std::string& name = {});
void ShowPassMessage(int16_t code, Prompter& prompter, StudyState& state);
