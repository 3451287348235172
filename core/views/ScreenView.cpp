#include "ScreenView.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QTableView>

#include "FilteredLineEdit.h"
#include "GridListDelegate.h"
#include "GridModel.h"
#include "GridView.h"
#include "KeyMapping.h"
#include "RuntimeFault.h"

namespace {

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

void RenderCombo(QComboBox* widget, const ComboBox& combo) {
  QStringList items;
  for (const auto& item : combo.Items) items << Q(item);
  QStringList shown;
  for (int i = 0; i < widget->count(); ++i) shown << widget->itemText(i);
  if (shown != items) {
    widget->clear();
    widget->addItems(items);
  }
  widget->setCurrentIndex(combo.Index);
  widget->setToolTip(widget->currentText());  // the whole entry, when the box cuts it
}

void RenderList(QListWidget* widget, const ListBox& list) {
  bool same = widget->count() == static_cast<int>(list.Items.size());
  for (int i = 0; same && i < widget->count(); ++i)
    same = widget->item(i)->text() == Q(list.Items[i]);
  if (!same) {
    widget->clear();
    for (const auto& item : list.Items) widget->addItem(Q(item));
  }
  if (widget->selectionMode() == QAbstractItemView::NoSelection) return;
  for (int i = 0; i < widget->count(); ++i) {
    const bool selected = i < static_cast<int>(list.Selected.size()) && list.Selected[i];
    widget->item(i)->setSelected(selected);
    if (selected && (!list.MultiSelect || widget->currentRow() < 0))
      widget->setCurrentRow(i, QItemSelectionModel::NoUpdate);
  }
}

std::vector<std::string> SelectedTexts(const QListWidget* widget) {
  std::vector<std::string> picked;
  for (int i = 0; i < widget->count(); ++i)
    if (widget->item(i)->isSelected()) picked.push_back(widget->item(i)->text().toStdString());
  return picked;
}

}  // namespace

ViewKit::ViewKit(QWidget& view, ScriptScreen& logic, CommandBoundary& boundary)
    : QObject(&view), view_(view), logic_(logic), boundary_(boundary) {
  view_.setObjectName(Q(logic_.ScreenName()));
  qApp->installEventFilter(this);
  Shown().push_back(this);
}

ViewKit::~ViewKit() {
  // An edit left open when the screen goes without closing is not the engineer's last word.
  for (GridView* grid : grids_) grid->DiscardEdit();
  qApp->removeEventFilter(this);
  std::erase(Shown(), this);
}

QWidget* ViewKit::Widget(const std::string& name) const {
  const auto at = widgets_.find(name);
  return at == widgets_.end() ? nullptr : at->second;
}

QWidget* ViewKit::Make(const std::string& name) {
  if (QWidget* made = Widget(name)) return made;
  ControlMap& controls = logic_.Controls();
  const auto at = controls.find(name);
  if (at == controls.end())
    throw RuntimeFault(FaultCode::Internal, logic_.ScreenName() + " has no control " + name);
  QWidget* widget = MakeWidget(name, at->second);
  widget->setObjectName(Q(name));
  widgets_[name] = widget;
  RenderOne(widget, at->second);
  return widget;
}

QWidget* ViewKit::MakeWidget(const std::string& name, Control& c) {
  switch (c.Kind) {
    case ControlKind::Label:
      return new QLabel(&view_);
    case ControlKind::TextBox: {
      auto* box = new FilteredLineEdit(
          *c.Text, c.Events, [this](const std::function<void()>& h) { Run(h); }, &view_);
      box->setReadOnly(!c.Type || !c.Text->Enabled);
      return box;
    }
    case ControlKind::ComboBox: {
      auto* combo = new QComboBox(&view_);
      // A long entry must not widen the screen; the list shows it whole when opened.
      combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
      combo->setMinimumContentsLength(12);
      connect(combo, &QComboBox::activated, this, [this, name](int index) {
        if (!rendering_)
          Run([this, name, index] { logic_.Controls().at(name).ChooseIndex(index); });
      });
      return combo;
    }
    case ControlKind::ListBox: {
      auto* list = new QListWidget(&view_);
      list->setSelectionMode(c.List->MultiSelect ? QAbstractItemView::ExtendedSelection
                                                 : QAbstractItemView::SingleSelection);
      connect(list, &QListWidget::itemSelectionChanged, this, [this, name, list] {
        if (rendering_) return;
        const std::vector<std::string> picked = SelectedTexts(list);
        Run([this, name, picked] { logic_.Controls().at(name).Select(picked); });
      });
      return list;
    }
    case ControlKind::CheckBox: {
      auto* check = new QCheckBox(&view_);
      connect(check, &QCheckBox::clicked, this, [this, name] {
        if (!rendering_) Run([this, name] { logic_.Controls().at(name).Press(); });
      });
      return check;
    }
    case ControlKind::Command: {
      auto* button = new QPushButton(&view_);
      if (!c.Tip.empty()) button->setToolTip(Q(c.Tip));
      connect(button, &QPushButton::clicked, this,
              [this, name] { Run([this, name] { logic_.Controls().at(name).Press(); }); });
      return button;
    }
    case ControlKind::Grid:
      return MakeGrid(name, c);
  }
  return new QLabel(&view_);
}

QWidget* ViewKit::MakeGrid(const std::string& name, Control& c) {
  TextGrid& grid = *c.Grid;
  std::vector<Qt::Alignment> alignments(grid.MaxCols(), Qt::AlignVCenter | Qt::AlignRight);
  if (const auto at = alignments_.find(name); at != alignments_.end()) alignments = at->second;
  auto* table = new GridView(
      [this, edit = c.EditCell](int r, int col, const std::string& t) {
        if (edit) Run([=] { edit(r, col, t); });
      },
      &view_);
  auto* model = new GridModel(
      grid, alignments,
      [table](int r, int col, const std::string& t) { table->TakeEdit(r, col, t); }, this);
  table->setModel(model);
  table->setItemDelegate(new GridListDelegate(grid, table));
  models_[table] = model;
  grids_.push_back(table);
  connect(table->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this, click = c.ClickCell](const QModelIndex& current) {
            if (rendering_ || !current.isValid() || !click) return;
            Run([=] { click(current.row() + 1, current.column() + 1); });
          });
  connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this, table, mark = c.MarkBlock, &grid] {
            if (rendering_ || !mark) return;
            const QModelIndexList cells = table->selectionModel()->selectedIndexes();
            if (cells.size() < 2) return;
            CellBlock block{grid.MaxCols() + 1, grid.MaxRows() + 1, 0, 0};
            for (const QModelIndex& i : cells) {
              block.Col1 = std::min(block.Col1, i.column() + 1);
              block.Row1 = std::min(block.Row1, i.row() + 1);
              block.Col2 = std::max(block.Col2, i.column() + 1);
              block.Row2 = std::max(block.Row2, i.row() + 1);
            }
            Run([=] { mark(block); });
          });
  return table;
}

void ViewKit::RenderOne(QWidget* widget, const Control& c) {
  switch (c.Kind) {
    case ControlKind::Label:
      // A label is never typed into: one that the screen keeps disabled still reads clearly.
      static_cast<QLabel*>(widget)->setText(Q(c.Text->Text));
      widget->setVisible(c.Text->Visible);
      return;
    case ControlKind::Command:
      static_cast<QPushButton*>(widget)->setText(Q(c.Text->Text));
      widget->setEnabled(c.Text->Enabled);
      widget->setVisible(c.Text->Visible);
      return;
    case ControlKind::TextBox:
      static_cast<FilteredLineEdit*>(widget)->Render();
      return;
    case ControlKind::ComboBox:
      RenderCombo(static_cast<QComboBox*>(widget), *c.Combo);
      widget->setEnabled(c.Combo->Enabled);
      widget->setVisible(c.Combo->Visible);
      return;
    case ControlKind::ListBox:
      RenderList(static_cast<QListWidget*>(widget), *c.List);
      widget->setEnabled(c.List->Enabled);
      widget->setVisible(c.List->Visible);
      return;
    case ControlKind::CheckBox: {
      auto* check = static_cast<QCheckBox*>(widget);
      check->setText(Q(c.Check->Text));
      check->setChecked(c.Check->Value);
      check->setEnabled(c.Check->Enabled);
      check->setVisible(c.Check->Visible);
      return;
    }
    case ControlKind::Grid: {
      auto* table = static_cast<QTableView*>(widget);
      GridModel* model = models_.at(widget);
      model->Refresh();
      const QModelIndex active = model->index(c.Grid->ActiveRow() - 1, c.Grid->ActiveCol() - 1);
      if (table->currentIndex() != active) table->setCurrentIndex(active);
      return;
    }
  }
}

void ViewKit::Render() {
  rendering_ = true;
  ControlMap& controls = logic_.Controls();
  if (const auto caption = controls.find("Caption"); caption != controls.end()) {
    const QString text = Q(caption->second.GetText()).trimmed();
    view_.setWindowTitle(title_ ? title_(text) : text);
  }
  for (const auto& [name, widget] : widgets_) RenderOne(widget, controls.at(name));
  rendering_ = false;
}

void ViewKit::RenderAll() {
  for (ViewKit* kit : Shown()) kit->Render();
}

std::vector<ViewKit*>& ViewKit::Shown() {
  static std::vector<ViewKit*> shown;
  return shown;
}

bool ViewKit::CommitOpenEdits() {
  bool committed = false;
  for (GridView* grid : grids_) committed = grid->CommitEdit() || committed;
  return committed;
}

void ViewKit::Run(const std::function<void()>& handler) {
  // A screen's commands never nest: a second one asked for while the first runs (by a signal of
  // a widget that the first one changed) is not run.
  if (running_) return;
  // No command runs while a cell editor is open: the edit goes in first, as its own command.
  CommitOpenEdits();
  RunThroughBoundary(handler);
  ShowWhatTheCommandLeft();
}

void ViewKit::RunThroughBoundary(const std::function<void()>& handler) {
  running_ = true;
  struct Done {
    bool& running;
    ~Done() { running = false; }
  } done{running_};
  boundary_.Run(logic_, handler);
}

void ViewKit::ShowWhatTheCommandLeft() {
  // The screens under a dialog show what its command changed in them too.
  RenderAll();
  if (afterRun_) afterRun_();
  if (!logic_.Closed()) ApplyFocus();
}

void ViewKit::ApplyFocus() {
  const std::string target = logic_.TakeFocusTarget();
  if (target.empty()) return;
  QWidget* widget = Widget(target);
  if (widget && !widget->hasFocus()) widget->setFocus(Qt::OtherFocusReason);
}

bool ViewKit::eventFilter(QObject* watched, QEvent* event) {
  // The screen sees every key first, whichever of its widgets has the focus. A key not taken
  // by a widget travels on to its parents: the screen sees it once, at the widget that has the
  // focus.
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  auto* widget = qobject_cast<QWidget*>(watched);
  QWidget* focus = QApplication::focusWidget();
  const bool first = focus ? widget == focus : widget == &view_;
  if (!widget || widget->window() != &view_ || !first) return QObject::eventFilter(watched, event);
  // A key that arrives while a command of this screen runs has nowhere sound to go.
  if (running_) return true;
  auto& keyEvent = *static_cast<QKeyEvent*>(event);
  // An open cell editor keeps the keys that type and move in it; the grid closes the edit on
  // Enter, Tab, the arrows and Esc. Any other key is the screen's, after the edit has gone in.
  bool editClosed = false;
  if (GridView* grid = GridView::EditingGridOf(focus)) {
    if (grid->EditorKeyPress(keyEvent)) return true;
    if (GridView::IsEditorKey(keyEvent)) return false;
    editClosed = CommitOpenEdits();
  }
  // When the widget that had the focus goes while its key is delivered (a cell editor closed
  // for the command), the window is handed the same key again: the screen takes a key once.
  const KeyIdentity identity{keyEvent.timestamp(), keyEvent.key(), keyEvent.modifiers()};
  if (identity.Timestamp != 0 && identity == lastKey_) return true;
  lastKey_ = identity;
  const KeyStroke key = ToKeyStroke(keyEvent);
  bool handled = false;
  RunThroughBoundary([&] { handled = logic_.KeyDown(key); });
  // A key the screen did not take belongs to the widget: nothing is rendered over what it is
  // doing. The editor it was typed into is closed, though: the key goes no further.
  if (!handled) return editClosed;
  ShowWhatTheCommandLeft();
  // F2 edits the active cell in place, after whatever the screen does with it.
  if (key.Code == KeyCode::F2 && !key.Ctrl && !key.Alt && !key.Shift)
    if (auto* grid = qobject_cast<GridView*>(QApplication::focusWidget())) grid->EditInPlace();
  return true;
}

DialogView::DialogView(ScriptScreen& logic, CommandBoundary& boundary, QWidget* parent)
    : QDialog(parent), kit_(*this, logic, boundary) {
  kit_.SetAfterRun([this] {
    if (kit_.Logic().Closed()) accept();
  });
}

void DialogView::reject() {
  if (kit_.Logic().Closed()) return QDialog::reject();
  kit_.Run([this] { kit_.Logic().CloseBox(); });
}

void DialogView::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  const QWidget* over = parentWidget() ? parentWidget()->window() : nullptr;
  const QWidget* target = over ? over->findChild<QWidget*>(Q(below_)) : nullptr;
  if (below_.empty() || !target || !screen()) return;
  const QRect area = screen()->availableGeometry();
  const QPoint foot = target->mapToGlobal(QPoint(0, target->height()));
  const int titleBar = frameGeometry().height() - geometry().height();
  const int x = over->geometry().center().x() - width() / 2;
  const int y = std::min(foot.y() + 4, area.bottom() - height() - std::max(titleBar, 30));
  move(std::clamp(x, area.left(), std::max(area.left(), area.right() - width())),
       std::max(area.top(), y));
}

std::unique_ptr<QWidget> ViewRegistry::Make(ScriptScreen& screen, CommandBoundary& boundary,
                                            QWidget* parent) const {
  const auto at = factories_.find(screen.ScreenName());
  if (at == factories_.end())
    throw RuntimeFault(FaultCode::Internal, "no view for " + screen.ScreenName());
  return at->second(screen, boundary, parent);
}
