#pragma once
// The message boxes of the calculation sheets, by name, with their exact Greek titles and lines.
#include <cstdint>
#include <vector>

#include "Message.h"
#include "StudyState.h"

// The negative codes are the main screen's message routine (-1 to -14), under the numbers the
// system gives them; the positive ones are the other fixed boxes of the sheets' screens.
enum class RavoMessage : int16_t {
  MissingEntries = -1,
  NoOwnership = -2,
  NoLoopNumber = -3,
  NoLoopLength = -4,
  DiscardResults = -5,
  IncompleteData = -6,
  EightRadiatorsAlready = -7,
  NoExcel = -8,
  DeleteEntry = -9,
  StudyNotSaved = -10,
  DeleteWholeSheet = -11,
  NoDataOnSheet = -12,
  TempDropOutOfRange = -13,
  InletTempOutOfRange = -14,
  ScreenTooSmall = 1,
  OtherRowsOnSheet = 2,
  NewStudyLosesData = 3,
  RadiatorTooSmall = 4,
  ExcessiveLoopLoad = 5,
  ManualNotOpened = 6,
};

// Every box of the table, in the order of the codes above.
const std::vector<MessageEntry<RavoMessage>>& RavoMessageTable();

// The box of a code.
Message RavoMessageBox(RavoMessage code);

// Shows the box of a code. A question leaves "YES" or "NO" in state.LastAnswer; the caller
// reads it and empties it.
void RavoMessages(RavoMessage code, Prompter& prompter, StudyState& state);
