#pragma once
// The question about a study left behind, over the logic of FrmOldStudy.
#include <QDialog>
#include <QLabel>

#include "CommandBoundary.h"
#include "FrmOldStudy.h"

class FrmOldStudyView : public QDialog {
 public:
  FrmOldStudyView(FrmOldStudy& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
  void Run(const std::function<void()>& handler);

 protected:
  void reject() override;

 private:
  FrmOldStudy& logic_;
  CommandBoundary& boundary_;
  QLabel* wait_ = nullptr;
};
