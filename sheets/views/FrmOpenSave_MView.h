#pragma once
// The study browser on the desktop, over the logic of FrmOpenSave_M.
#include "FrmOpenSave_M.h"
#include "ScreenView.h"

class FrmOpenSave_MView : public DialogView {
 public:
  FrmOpenSave_MView(FrmOpenSave_M& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
};
