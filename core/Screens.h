#pragma once
// Opens the modal screens that a command shows (FrmRavoAdd, FrmRavoSheets, ...). The desktop
// runs the screen's view until it closes; a script run hands the following lines that name the
// screen to it; a test acts on it directly. The call returns when the screen has closed.
#include "Controls.h"

class Screens {
 public:
  virtual ~Screens() = default;
  virtual void ShowModal(ScriptScreen& screen) = 0;
};
