#pragma once
// The one place where a command's failure is caught. Every command that a user starts (a key,
// a click, a field left, a cell edited) runs through Run: the working files' journal is begun,
// and a RuntimeFault, or any other failure that escapes the command, puts the working files
// back as they were, shows a Greek message and ends the command. The program goes on.
#include <functional>
#include <string>

#include "Message.h"
#include "RuntimeFault.h"

class Workspace;

// "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ..." with the text of the fault and what failed.
Message FaultMessage(const RuntimeFault& fault);

class CommandBoundary {
 public:
  CommandBoundary(Workspace& workspace, Prompter& prompter);
  // False when the command failed (reported) or was refused because a command is waiting in
  // one of the system's pauses: commands are never re-entered during them.
  bool Run(const std::function<void()>& command);
  // Reports a fault caught elsewhere (a step of the start-up that must not stop the rest).
  void Report(const RuntimeFault& fault);

 private:
  void Fail(const RuntimeFault& fault);
  Workspace& workspace_;
  Prompter& prompter_;
};
