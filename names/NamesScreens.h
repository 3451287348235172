#pragma once
// The screens of the names subsystem, by name: each has a view on the desktop.
#include <array>

#include "FrmCLPass.h"
#include "FrmCLient.h"

inline constexpr std::array kNamesScreens = {FrmCLient::kName, FrmCLPass::kName};
