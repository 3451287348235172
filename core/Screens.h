#pragma once
// Opens the modal screens that a command shows (FrmRavoAdd, FrmRavoSheets, ...). The desktop
// runs the screen's view until it closes; a script run hands the following lines that name the
// screen to it; a test acts on it directly. The call returns when the screen has closed.
// A screen of another subsystem is opened by its name, through what the program wired to it:
// the subsystems do not know each other.
#include <functional>
#include <map>
#include <string>

#include "Controls.h"

class Screens {
 public:
  virtual ~Screens() = default;
  virtual void ShowModal(ScriptScreen& screen) = 0;

  // Opens the screen wired to `name`; a fault of the program when nothing is.
  void Open(const std::string& name);
  void Wire(const std::string& name, std::function<void()> opener);
  bool Wired(const std::string& name) const { return openers_.count(name) > 0; }

 private:
  std::map<std::string, std::function<void()>> openers_;
};
