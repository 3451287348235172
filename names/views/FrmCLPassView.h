#pragma once
// The password screen of the names list, over the logic of FrmCLPass.
#include "FrmCLPass.h"
#include "ScreenView.h"

class FrmCLPassView : public DialogView {
 public:
  FrmCLPassView(FrmCLPass& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
};
