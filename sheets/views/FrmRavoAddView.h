#pragma once
// The dialog that adds radiators, over the logic of FrmRavoAdd. It closes when the logic says.
#include <QComboBox>
#include <QDialog>
#include <functional>

#include "CommandBoundary.h"
#include "FilteredLineEdit.h"
#include "FrmRavoAdd.h"

class FrmRavoAddView : public QDialog {
 public:
  FrmRavoAddView(FrmRavoAdd& logic, CommandBoundary& boundary, QWidget* parent = nullptr);

  void Render();
  void Run(const std::function<void()>& handler);
  FilteredLineEdit* TextBox(const std::string& name) const;
  QComboBox* RoomTemp() const { return roomTemp_; }

 protected:
  void reject() override;

 private:
  void ApplyFocus();
  FrmRavoAdd& logic_;
  CommandBoundary& boundary_;
  FilteredLineEdit* added_ = nullptr;
  FilteredLineEdit* somaName_ = nullptr;
  QComboBox* roomTemp_ = nullptr;
  bool rendering_ = false;
};
