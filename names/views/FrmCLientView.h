#pragma once
// The names list on the desktop, over the logic of FrmCLient.
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <functional>
#include <map>
#include <string>

#include "CommandBoundary.h"
#include "FilteredLineEdit.h"
#include "FrmCLient.h"

class QPushButton;

class FrmCLientView : public QDialog {
 public:
  FrmCLientView(FrmCLient& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
  // Runs a handler as a command, shows the logic's state, and closes with the logic.
  void Run(const std::function<void()>& handler);
  void Render();

  QListWidget* List() const { return list_; }
  FilteredLineEdit* Entry() const { return entry_; }
  FilteredLineEdit* Password() const { return password_; }
  QLabel* Label(const std::string& name) const { return labels_.at(name).first; }
  QPushButton* Button(const std::string& name) const { return buttons_.at(name); }

 protected:
  void reject() override;

 private:
  QLabel* AddLabel(const std::string& name, Field& field);
  FrmCLient& logic_;
  CommandBoundary& boundary_;
  QListWidget* list_ = nullptr;
  FilteredLineEdit* entry_ = nullptr;
  FilteredLineEdit* password_ = nullptr;
  std::map<std::string, std::pair<QLabel*, Field*>> labels_;
  std::map<std::string, QPushButton*> buttons_;
  bool rendering_ = false;
};
