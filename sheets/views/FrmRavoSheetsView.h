#pragma once
// The list of the study's sheets for CmdSame, over the logic of FrmRavoSheets.
#include <QDialog>
#include <QListWidget>
#include <functional>

#include "CommandBoundary.h"
#include "FrmRavoSheets.h"

class FrmRavoSheetsView : public QDialog {
 public:
  FrmRavoSheetsView(FrmRavoSheets& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
  void Run(const std::function<void()>& handler);
  QListWidget* List() const { return list_; }

 protected:
  void reject() override;

 private:
  FrmRavoSheets& logic_;
  CommandBoundary& boundary_;
  QListWidget* list_ = nullptr;
};
