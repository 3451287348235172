#pragma once
// The question about a study left behind, over the logic of FrmOldStudy.
#include "FrmOldStudy.h"
#include "ScreenView.h"

class FrmOldStudyView : public DialogView {
 public:
  FrmOldStudyView(FrmOldStudy& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
};
