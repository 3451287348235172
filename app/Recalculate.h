#pragma once
// The batch command line: a whole study recalculated by the same code the screen uses, in a
// workspace of its own, and reported sheet by sheet (text or JSON); --write saves it back.
#include <iosfwd>

#include "Options.h"
#include "Workspace.h"

// Returns the exit status: 0 every sheet calculated, 1 some sheet did not (its messages are in
// the report), 2 the study could not be read (the message on `err`).
int Recalculate(const Options& options, Workspace& home, std::ostream& out, std::ostream& err);
