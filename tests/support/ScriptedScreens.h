#pragma once
// Modal screens in a test: each ShowModal takes the next queued action, which works the
// screen as the user would; a screen with no action queued is closed through its close box.
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "Screens.h"

class ScriptedScreens : public Screens {
 public:
  using Action = std::function<void(ScriptScreen&)>;
  void Queue(Action action) { actions_.push_back(std::move(action)); }
  void ShowModal(ScriptScreen& screen) override {
    Shown.push_back(screen.ScreenName());
    if (!actions_.empty()) {
      Action action = std::move(actions_.front());
      actions_.pop_front();
      action(screen);
    }
    if (!screen.Closed()) screen.CloseBox();
  }
  std::vector<std::string> Shown;

 private:
  std::deque<Action> actions_;
};
