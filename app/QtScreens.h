#pragma once
// The modal screens on the desktop: each screen gets the view the registry holds for its name,
// which runs until the screen closes. A screen opened from a dialog stands over that dialog.
#include <QWidget>

#include "CommandBoundary.h"
#include "ScreenView.h"
#include "Screens.h"

class QtScreens : public Screens {
 public:
  explicit QtScreens(const ViewRegistry& views) : views_(views) {}
  // The boundary the views run their commands through, and the main window.
  void Attach(CommandBoundary& boundary, QWidget* parent) {
    boundary_ = &boundary;
    parent_ = parent;
  }
  void ShowModal(ScriptScreen& screen) override;

 private:
  const ViewRegistry& views_;
  CommandBoundary* boundary_ = nullptr;
  QWidget* parent_ = nullptr;
};

// Every view of the program's screens.
ViewRegistry ProgramViews();
