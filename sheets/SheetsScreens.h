#pragma once
// The screens of the sheets subsystem, by name: each has a view on the desktop.
#include <array>

#include "FrmOldStudy.h"
#include "FrmOpenSave_M.h"
#include "FrmRavoAdd.h"
#include "FrmRavoSheets.h"
#include "FrmRavolin.h"

inline constexpr std::array kSheetsScreens = {FrmRavolin::kName, FrmRavoAdd::kName,
                                              FrmRavoSheets::kName, FrmOldStudy::kName,
                                              FrmOpenSave_M::kName};
