#pragma once
// The main screen on the desktop: the header fields, the grid and the keys, wired to the
// logic of FrmRavolin. It shows the logic's state after every event and holds no rule.
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QWidget>
#include <map>
#include <string>

#include "CommandBoundary.h"
#include "FilteredLineEdit.h"
#include "FrmRavolin.h"
#include "GridModel.h"

class FrmRavolinView : public QWidget {
 public:
  FrmRavolinView(FrmRavolin& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
  ~FrmRavolinView() override;

  // Shows the logic's state: fields, list, grid, caption, focus.
  void Render();
  // Runs a handler as a command and shows what it left.
  void Run(const std::function<void()>& handler);
  // Puts the focus where the logic asked for it, once.
  void ApplyFocus();

  QTableView* GridView() const { return grid_; }
  FilteredLineEdit* TextBox(const std::string& name) const;
  QComboBox* Pipes() const { return pipes_; }
  QComboBox* Somata() const { return somata_; }
  QPushButton* CalcButton() const { return calc_; }
  QPushButton* Button(const std::string& name) const { return buttons_.at(name); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildHeader(class QGridLayout* layout);
  void BuildGrid();
  QWidget* WidgetNamed(const std::string& name) const;

  FrmRavolin& logic_;
  CommandBoundary& boundary_;
  std::map<std::string, FilteredLineEdit*> boxes_;
  QComboBox* MakeCombo(const std::string& name);
  class QVBoxLayout* BuildCommands();
  std::map<std::string, QPushButton*> buttons_;
  QComboBox* pipes_ = nullptr;
  QComboBox* somata_ = nullptr;
  QPushButton* calc_ = nullptr;
  QTableView* grid_ = nullptr;
  GridModel* model_ = nullptr;
  bool rendering_ = false;
};
