#pragma once
// The message boxes of the calculation sheet, chosen by code (-1 to -14), with their exact
// Greek titles and lines.
#include <cstdint>

#include "Message.h"
#include "StudyState.h"

// The box of a code. An unknown code gives an empty notice (the old routine showed nothing
// meaningful for it either); callers only use the codes of the table.
Message RavoMessage(int16_t code);

// Shows the box of a code. A question leaves "YES" or "NO" in state.LastAnswer; the caller
// reads it and empties it.
void RavoMessages(int16_t code, Prompter& prompter, StudyState& state);

// The first code and the last code of the table.
inline constexpr int16_t kFirstRavoMessage = -1;
inline constexpr int16_t kLastRavoMessage = -14;
