#pragma once
// The view side of the screen kit. `ViewKit` makes each control's widget from the screen's
// control map, renders them all from the logic's state, runs every event through the command
// boundary, hands the keys to the screen first and puts the focus where the logic asked. A
// screen's view is then only its layout: `layout->addWidget(kit.Make("CmdOK"))`.
// `DialogView` is the view of a modal screen: it closes when the logic closes, and its close
// box is the logic's close box, run as a command.
#include <QDialog>
#include <QObject>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "CommandBoundary.h"
#include "Controls.h"

class GridModel;
class GridView;

class ViewKit : public QObject {
 public:
  // `view` is the window of the screen; `afterRun` runs after every command (a dialog closes
  // there when its logic has closed).
  ViewKit(QWidget& view, ScriptScreen& logic, CommandBoundary& boundary);
  ~ViewKit() override;

  // The widget of a control, made at the first call and named as the control.
  QWidget* Make(const std::string& name);
  template <class W>
  W* Make(const std::string& name) {
    return static_cast<W*>(Make(name));
  }
  // How the columns of a grid are aligned, one entry a column, before the grid is made; by
  // default every column reads from the right.
  void AlignColumns(const std::string& grid, std::vector<Qt::Alignment> alignments) {
    alignments_[grid] = std::move(alignments);
  }
  // The widget made for a control, or null.
  QWidget* Widget(const std::string& name) const;
  template <class W>
  W* Widget(const std::string& name) const {
    return static_cast<W*>(Widget(name));
  }
  // Every made widget, and the window's caption, from the logic's state. Fires no handler.
  void Render();
  // Runs a handler as a command of the screen, then shows what it left on every screen open and
  // puts the focus. An open cell editor is closed first and its edit run as a command before.
  void Run(const std::function<void()>& handler);
  // Closes every open cell editor of the screen and runs the edits; true when there was one.
  bool CommitOpenEdits();
  // How the window's title reads, from the screen's caption; by default the caption itself.
  void SetTitle(std::function<QString(const QString& caption)> title) { title_ = std::move(title); }
  void ApplyFocus();
  // Set while the widgets are being rendered: their signals then are not the user's.
  bool Rendering() const { return rendering_; }
  void SetAfterRun(std::function<void()> afterRun) { afterRun_ = std::move(afterRun); }
  // Every screen shown, from the logic's state: before a box or a dialog stands over them, they
  // show what the command has done so far.
  static void RenderAll();
  ScriptScreen& Logic() { return logic_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakeWidget(const std::string& name, Control& control);
  QWidget* MakeGrid(const std::string& name, Control& control);
  void RenderOne(QWidget* widget, const Control& control);
  // The command through the boundary, marked as running while it runs.
  void RunThroughBoundary(const std::function<void()>& handler);
  // After a command: the state it left shown, the dialog closed if it closed, the focus put.
  void ShowWhatTheCommandLeft();
  // Every screen shown, the main one first: a dialog's command changes the screens under it.
  static std::vector<ViewKit*>& Shown();

  QWidget& view_;
  ScriptScreen& logic_;
  CommandBoundary& boundary_;
  std::map<std::string, QWidget*> widgets_;
  std::map<QWidget*, GridModel*> models_;
  std::map<std::string, std::vector<Qt::Alignment>> alignments_;
  struct KeyIdentity {
    quint64 Timestamp = 0;
    int Key = 0;
    Qt::KeyboardModifiers Modifiers;
    bool operator==(const KeyIdentity&) const = default;
  };
  KeyIdentity lastKey_;
  std::vector<GridView*> grids_;
  std::function<void()> afterRun_;
  std::function<QString(const QString&)> title_;
  bool rendering_ = false;
  bool running_ = false;
};

class DialogView : public QDialog {
 public:
  DialogView(ScriptScreen& logic, CommandBoundary& boundary, QWidget* parent);
  ViewKit& Kit() { return kit_; }
  // The dialog opens just under the widget of that name of the window it stands over, so as not
  // to hide what its commands change there; at the foot of the screen when there is no room.
  void OpenBelow(std::string widget) { below_ = std::move(widget); }

 protected:
  // The close box (and Esc, when the screen leaves it to the window) is the logic's close box.
  void reject() override;
  void showEvent(QShowEvent* event) override;

 private:
  ViewKit kit_;
  std::string below_;
};

// The views of the screens, by the screen's name: each subsystem's views library adds its own,
// and the program asks here for the view of a screen it opens.
class ViewRegistry {
 public:
  using Factory =
      std::function<std::unique_ptr<QWidget>(ScriptScreen&, CommandBoundary&, QWidget* parent)>;
  template <class Logic, class View>
  void Add(const std::string& name) {
    factories_[name] = [](ScriptScreen& screen, CommandBoundary& boundary, QWidget* parent) {
      return std::make_unique<View>(static_cast<Logic&>(screen), boundary, parent);
    };
  }
  bool Has(const std::string& name) const { return factories_.count(name) > 0; }
  // The view of a screen; a fault of the program when the screen has none.
  std::unique_ptr<QWidget> Make(ScriptScreen& screen, CommandBoundary& boundary,
                                QWidget* parent) const;

 private:
  std::map<std::string, Factory> factories_;
};
