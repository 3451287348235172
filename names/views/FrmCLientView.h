#pragma once
// The names list on the desktop, over the logic of FrmCLient.
#include "FrmCLient.h"
#include "ScreenView.h"

class FrmCLientView : public DialogView {
 public:
  FrmCLientView(FrmCLient& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
};
