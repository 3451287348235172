#pragma once
// The views of the sheets subsystem's screens, added to the program's registry.
#include "ScreenView.h"

void AddSheetsViews(ViewRegistry& registry);
