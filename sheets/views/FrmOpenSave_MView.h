#pragma once
// The study browser on the desktop, over the logic of FrmOpenSave_M.
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <map>
#include <string>

#include "CommandBoundary.h"
#include "FrmOpenSave_M.h"

class FrmOpenSave_MView : public QDialog {
 public:
  FrmOpenSave_MView(FrmOpenSave_M& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
  void Run(const std::function<void()>& handler);
  void Render();
  QListWidget* List() const { return list_; }

 protected:
  void reject() override;

 private:
  FrmOpenSave_M& logic_;
  CommandBoundary& boundary_;
  QListWidget* list_ = nullptr;
  std::map<const Field*, QLabel*> labels_;
};
