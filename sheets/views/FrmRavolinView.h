#pragma once
// The main screen on the desktop: the header fields, the grid and the commands of FrmRavolin,
// laid out. The screen kit makes, renders and wires every widget.
#include <QWidget>

#include "FrmRavolin.h"
#include "ScreenView.h"

class QGridLayout;
class QVBoxLayout;

class FrmRavolinView : public QWidget {
 public:
  FrmRavolinView(FrmRavolin& logic, CommandBoundary& boundary, QWidget* parent = nullptr);
  ViewKit& Kit() { return kit_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildHeader(QGridLayout* layout);
  void BuildGrid();
  QVBoxLayout* BuildCommands();

  FrmRavolin& logic_;
  ViewKit kit_;
};
