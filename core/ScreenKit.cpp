#include "ScreenKit.h"

#include <utility>

#include "RuntimeFault.h"

ControlMap& ScreenBase::Controls() {
  if (!made_) {
    controls_ = MakeControls();
    made_ = true;
  }
  return controls_;
}

bool ScreenBase::KeyDown(const KeyStroke& key) {
  if (key.Code != KeyCode::Escape || key.Ctrl || key.Shift || key.Alt) return false;
  CloseBox();
  return true;
}

std::string ScreenBase::TakeFocusTarget() {
  return std::exchange(focus_, {});
}

void ScreenBase::FocusOnObject(const void* object) {
  for (const auto& [name, control] : Controls()) {
    if (control.Object() == object) {
      focus_ = name;
      return;
    }
  }
  throw RuntimeFault(FaultCode::Internal, name_ + ": the focus is asked for a control it lacks");
}

namespace {

template <class T>
std::function<void()> Restorer(T* object) {
  return [object, kept = *object] { *object = kept; };
}

}  // namespace

std::function<void()> ScreenBase::Keep() {
  std::vector<std::function<void()>> restore;
  for (auto& [name, c] : Controls()) {
    if (c.Text) restore.push_back(Restorer(c.Text));
    if (c.Combo) restore.push_back(Restorer(c.Combo));
    if (c.List) restore.push_back(Restorer(c.List));
    if (c.Check) restore.push_back(Restorer(c.Check));
    if (c.Grid) restore.push_back(Restorer(c.Grid));
  }
  restore.push_back(KeepOwnState());
  return [this, restore = std::move(restore), closed = closed_] {
    for (const auto& r : restore) r();
    closed_ = closed;
  };
}

void Screens::Open(const std::string& name) {
  const auto at = openers_.find(name);
  if (at == openers_.end())
    throw RuntimeFault(FaultCode::Internal, "no screen is wired to " + name);
  at->second();
}

void Screens::Wire(const std::string& name, std::function<void()> opener) {
  openers_[name] = std::move(opener);
}
