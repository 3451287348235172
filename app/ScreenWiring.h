#pragma once
// Which command opens which screen across subsystems, the same for the desktop and the
// script run: the subsystems do not know each other.
#include "FrmRavolin.h"
#include "Message.h"
#include "Screens.h"
#include "StudyState.h"
#include "Workspace.h"

void WireScreens(FrmRavolin& main, Workspace& workspace, StudyState& state, Prompter& prompter,
                 Screens& screens);
