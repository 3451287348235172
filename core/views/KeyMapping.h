#pragma once
// A Qt key event as the logic's KeyStroke.
#include <QKeyEvent>

#include "Controls.h"

KeyStroke ToKeyStroke(const QKeyEvent& event);
