#pragma once
// The screen kit. A screen declares its controls once, in one table: name, member, kind and
// handlers. The script driver's control map, the focus targets, the copy that the command
// boundary keeps and the views' widgets all come from that table, so that a control's name is
// written in one place.
//
//   class FrmRavoSheets : public Dialog<FrmRavoSheets> {
//    public:
//     static const ControlTable<FrmRavoSheets>& Table();
//     ...
//   };
//   const ControlTable<FrmRavoSheets>& FrmRavoSheets::Table() {
//     static const ControlTable<FrmRavoSheets> table = {
//         kit::Label("Caption", &FrmRavoSheets::Caption),
//         kit::List("LstSheets", &FrmRavoSheets::LstSheets),
//         kit::Command("CmdOK", &FrmRavoSheets::CmdOK, &FrmRavoSheets::CmdOK_Click)};
//     return table;
//   }
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "Controls.h"
#include "Screens.h"

// One line of a screen's control table: the name, and how the control is made over a screen.
template <class S>
struct ControlEntry {
  std::string Name;
  std::function<Control(S&)> Make;
};

template <class S>
using ControlTable = std::vector<ControlEntry<S>>;

namespace kit {

// A handler of the screen, a member function or a lambda taking the screen.
template <class S>
using Handler = std::type_identity_t<std::function<void(S&)>>;
template <class S>
using KeyFilter = std::type_identity_t<std::function<bool(S&, char32_t)>>;
// The way to a member: `&S::Member`, or a lambda for a member that is not a plain field.
template <class S, class T>
using Access = std::type_identity_t<std::function<T&(S&)>>;

template <class S, class T>
Access<S, T> Member(T S::*member) {
  return [member](S& s) -> T& { return s.*member; };
}

template <class S>
std::function<void()> Bound(const Handler<S>& handler, S& s) {
  if (!handler) return nullptr;
  return [handler, &s] { handler(s); };
}

// The events of a text box: focus gained, each typed character (false refuses it), focus lost.
template <class S>
struct TextEvents {
  Handler<S> GotFocus;
  KeyFilter<S> KeyPress;
  Handler<S> LostFocus;
};

template <class S>
ControlEntry<S> Label(const char* name, Access<S, Field> field) {
  return {name, [field](S& s) { return LabelControl(field(s)); }};
}
template <class S>
ControlEntry<S> Label(const char* name, Field S::*field) {
  return Label<S>(name, Member(field));
}

template <class S>
ControlEntry<S> TextBox(const char* name, Field S::*field, TextEvents<S> events = {}) {
  return {name, [field, events](S& s) {
            TextBoxEvents bound{Bound(events.GotFocus, s), nullptr, Bound(events.LostFocus, s)};
            if (events.KeyPress)
              bound.KeyPress = [key = events.KeyPress, &s](char32_t ch) { return key(s, ch); };
            return TextBoxControl(s.*field, std::move(bound));
          }};
}

template <class S>
ControlEntry<S> Command(const char* name, Field S::*field, Handler<S> click, const char* tip = "") {
  return {name, [field, click, tip](S& s) {
            Control c = CommandControl(s.*field, Bound(click, s));
            c.Tip = tip;
            return c;
          }};
}

template <class S>
ControlEntry<S> Combo(const char* name, ComboBox S::*combo, Handler<S> click = {}) {
  return {name, [combo, click](S& s) { return ComboControl(s.*combo, Bound(click, s)); }};
}

template <class S>
ControlEntry<S> List(const char* name, ListBox S::*list, Handler<S> click = {}) {
  return {name, [list, click](S& s) { return ListControl(s.*list, Bound(click, s)); }};
}

template <class S>
ControlEntry<S> Check(const char* name, CheckBox S::*check, Handler<S> click = {}) {
  return {name, [check, click](S& s) { return CheckControl(s.*check, Bound(click, s)); }};
}

// The events of a grid: a user's edit of a cell, a click that makes a cell active, a block
// marked.
template <class S>
struct GridEvents {
  std::type_identity_t<std::function<void(S&, int, int, const std::string&)>> EditCell;
  std::type_identity_t<std::function<void(S&, int, int)>> ClickCell;
  std::type_identity_t<std::function<void(S&, CellBlock)>> MarkBlock;
};

template <class S>
ControlEntry<S> Grid(const char* name, TextGrid S::*grid, GridEvents<S> events) {
  return {name, [grid, events](S& s) {
            ::GridEvents bound;
            if (events.EditCell)
              bound.EditCell = [f = events.EditCell, &s](int r, int c, const std::string& t) {
                f(s, r, c, t);
              };
            if (events.ClickCell)
              bound.ClickCell = [f = events.ClickCell, &s](int r, int c) { f(s, r, c); };
            if (events.MarkBlock)
              bound.MarkBlock = [f = events.MarkBlock, &s](CellBlock b) { f(s, b); };
            return GridControl(s.*grid, std::move(bound));
          }};
}

}  // namespace kit

// What every screen has from the kit: its name, its control map made from its table on first
// use, the close box, the focus asked for by the logic, and the copy of its state that the
// command boundary keeps.
class ScreenBase : public ScriptScreen {
 public:
  std::string ScreenName() const override { return name_; }
  ControlMap& Controls() override;
  // Esc closes a screen, as the close box does; a screen with keys of its own overrides this.
  bool KeyDown(const KeyStroke& key) override;
  void CloseBox() override { Close(); }
  bool Closed() const override { return closed_; }
  std::string TakeFocusTarget() override;
  // The control the last event asked to have the focus, without taking it.
  const std::string& FocusTarget() const { return focus_; }
  std::function<void()> Keep() override;

 protected:
  explicit ScreenBase(std::string name) : name_(std::move(name)) {}
  ScreenBase(const ScreenBase&) = delete;
  ScreenBase& operator=(const ScreenBase&) = delete;
  // Asks the view to put the focus on a control: a member of the screen that its table names
  // (a fault of the program otherwise, caught at the command).
  void FocusOn(const Field& member) { FocusOnObject(&member); }
  void FocusOn(const ComboBox& member) { FocusOnObject(&member); }
  void FocusOn(const ListBox& member) { FocusOnObject(&member); }
  void FocusOn(const CheckBox& member) { FocusOnObject(&member); }
  void FocusOn(const TextGrid& member) { FocusOnObject(&member); }
  void Close() { closed_ = true; }
  void Reopen() { closed_ = false; }
  // What the screen keeps besides its controls (variables of its own) and the way to put it
  // back; part of Keep.
  virtual std::function<void()> KeepOwnState() {
    return [] {};
  }

 private:
  virtual ControlMap MakeControls() = 0;
  void FocusOnObject(const void* object);

  std::string name_;
  ControlMap controls_;
  bool made_ = false;
  bool closed_ = false;
  std::string focus_;
};

// A screen of class S, whose controls are the lines of S::Table().
template <class S>
class Screen : public ScreenBase {
 protected:
  using ScreenBase::ScreenBase;

 private:
  ControlMap MakeControls() override {
    ControlMap map;
    S& self = static_cast<S&>(*this);
    for (const ControlEntry<S>& entry : S::Table()) map.emplace(entry.Name, entry.Make(self));
    return map;
  }
};

// A modal screen: opened by a command of another screen, it runs until it closes; the opener
// then reads its answer.
template <class S>
class Dialog : public Screen<S> {
 public:
  // The screen's load runs, and unless it closed the screen at once, the screen runs on the
  // platform (its view, or the script's lines) until it closes.
  void Open(Screens& screens) {
    this->Reopen();
    accepted_ = false;
    Form_Load();
    if (!this->Closed()) screens.ShowModal(*this);
  }
  // The screen closed on a choice that the opener takes (a password that passed, radiators
  // copied); false when it was closed or cancelled.
  bool Accepted() const { return accepted_; }

 protected:
  using Screen<S>::Screen;
  virtual void Form_Load() {}
  void Accept() {
    accepted_ = true;
    this->Close();
  }

 private:
  bool accepted_ = false;
};
