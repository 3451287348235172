#pragma once
// The dialog that adds radiators, over the logic of FrmRavoAdd.
#include "FrmRavoAdd.h"
#include "ScreenView.h"

class FrmRavoAddView : public DialogView {
 public:
  FrmRavoAddView(FrmRavoAdd& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
};
