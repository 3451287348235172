#pragma once
// The modal screens on the desktop: each screen's logic gets its view, which runs until the
// logic closes. This is the one place that knows which view belongs to which screen.
#include <QWidget>

#include "CommandBoundary.h"
#include "Screens.h"

class QtScreens : public Screens {
 public:
  explicit QtScreens(CommandBoundary& boundary) : boundary_(boundary) {}
  void SetParent(QWidget* parent) { parent_ = parent; }
  void ShowModal(ScriptScreen& screen) override;

 private:
  CommandBoundary& boundary_;
  QWidget* parent_ = nullptr;
};
