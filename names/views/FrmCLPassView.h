#pragma once
// The password screen of the names list, over the logic of FrmCLPass.
#include <QDialog>
#include <QLabel>
#include <functional>

#include "CommandBoundary.h"
#include "FilteredLineEdit.h"
#include "FrmCLPass.h"

class FrmCLPassView : public QDialog {
 public:
  FrmCLPassView(FrmCLPass& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
  void Run(const std::function<void()>& handler);
  FilteredLineEdit* Entry() const { return entry_; }
  FilteredLineEdit* Confirmation() const { return confirmation_; }

 protected:
  void reject() override;

 private:
  FrmCLPass& logic_;
  CommandBoundary& boundary_;
  FilteredLineEdit* entry_ = nullptr;
  FilteredLineEdit* confirmation_ = nullptr;
};
