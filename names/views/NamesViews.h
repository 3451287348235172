#pragma once
// The views of the names subsystem's screens, added to the program's registry.
#include "ScreenView.h"

void AddNamesViews(ViewRegistry& registry);
