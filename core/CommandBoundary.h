#pragma once
// The one place where a command's failure is caught. Every command that a user starts (a key,
// a click, a field left, a cell edited, a close box) runs through Run: the working files'
// journal is begun and the screen's state and the shared study state are kept; a RuntimeFault,
// or any other failure that escapes the command, puts the files, the screen and the study
// state back as they were, shows a Greek message and ends the command. The program goes on.
#include <functional>
#include <string>
#include <vector>

#include "Controls.h"
#include "Message.h"
#include "RuntimeFault.h"
#include "StudyState.h"

class Workspace;

// "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ..." with the text of the fault, what failed, and the working files
// that could not be put back, if any.
Message FaultMessage(const RuntimeFault& fault, const std::vector<std::string>& unrestored = {});

class CommandBoundary {
 public:
  CommandBoundary(Workspace& workspace, Prompter& prompter, StudyState& state);
  // A command of `screen`. False when the command failed (reported) or was refused because a
  // command is waiting in one of the system's pauses: commands are never re-entered during
  // them.
  bool Run(ScriptScreen& screen, const std::function<void()>& command);
  // A command of no screen (a step of the start of a run).
  bool Run(const std::function<void()>& command);
  // Reports a fault caught elsewhere (a step of the start-up that must not stop the rest).
  void Report(const RuntimeFault& fault);

 private:
  bool Execute(ScriptScreen* screen, const std::function<void()>& command);
  Workspace& workspace_;
  Prompter& prompter_;
  StudyState& state_;
};
