#pragma once
// The list of the study's sheets for CmdSame, over the logic of FrmRavoSheets.
#include "FrmRavoSheets.h"
#include "ScreenView.h"

class FrmRavoSheetsView : public DialogView {
 public:
  FrmRavoSheetsView(FrmRavoSheets& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
};
