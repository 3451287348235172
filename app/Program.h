#pragma once
// The program, assembled once for every kind of run (the desktop, a script, a batch run): the
// shared study state, the command boundary, the main screen, and which screen opens which
// across subsystems, for a program folder and the run's prompter, platform and screens.
#include <filesystem>
#include <memory>
#include <optional>

#include "CommandBoundary.h"
#include "FrmRavolin.h"
#include "InstanceLock.h"
#include "Message.h"
#include "Options.h"
#include "Platform.h"
#include "Screens.h"
#include "StudyState.h"
#include "Workspace.h"

class Program {
 public:
  Program(Workspace& workspace, Prompter& prompter, Platform& platform, Screens& screens);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  Workspace& Files;
  StudyState State;
  CommandBoundary Boundary;
  FrmRavolin Main;
};

// The program folder, with the shipped files it has not received yet (from beside `argv0`).
// A failure is told through `prompter`; none when the folder cannot be opened.
std::unique_ptr<Workspace> OpenProgramFolder(const Options& options, const char* argv0,
                                             Prompter& prompter);
// The same for a run that works in the folder: none also when another copy of the program
// holds it (the second copy is told so). `lock` keeps the hold.
std::unique_ptr<Workspace> OpenOwnProgramFolder(const Options& options, const char* argv0,
                                                Prompter& prompter,
                                                std::optional<InstanceLock>& lock);
