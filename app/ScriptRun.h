#pragma once
#include <iosfwd>

#include "Options.h"
#include "Workspace.h"

// Runs a script against the screens' logic, without a display. Returns the exit status.
int RunScript(const Options& options, Workspace& workspace, std::ostream& out, std::ostream& err);
