#pragma once
// A fresh program folder for one test with its workspace, removed afterwards; no pause before
// the file operations.
#include "TempFolder.h"
#include "Workspace.h"

struct ProgramFolder {
  ProgramFolder() { ws.SetPauseMilliseconds(0); }
  TempFolder folder;
  Workspace ws{folder.Path()};
};
