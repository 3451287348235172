#include "GridView.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>

GridView::GridView(EditRunner runEdit, QWidget* parent)
    : QTableView(parent), runEdit_(std::move(runEdit)) {
  // A click only makes a cell active: the model cell's list opens when it is asked for.
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
  setSelectionMode(ContiguousSelection);
}

QWidget* GridView::OpenEditor() const {
  return state() == EditingState ? indexWidget(editing_) : nullptr;
}

bool GridView::CommitEdit() {
  QWidget* editor = OpenEditor();
  if (!editor) return false;
  commitData(editor);
  closeEditor(editor, QAbstractItemDelegate::NoHint);
  return true;
}

void GridView::DiscardEdit() {
  runEdit_ = nullptr;
  pending_.reset();
  if (QWidget* editor = OpenEditor())
    QTableView::closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

void GridView::EditInPlace() {
  if (OpenEditor() || !currentIndex().isValid()) return;
  if (!edit(currentIndex(), EditKeyPressed, nullptr)) return;
  typing_ = false;
  if (auto* line = qobject_cast<QLineEdit*>(OpenEditor())) line->end(false);
}

bool GridView::IsEditorKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers mods = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  const int key = event.key();
  // Shift, Ctrl, Alt alone are pressed on the way to a combination: they end nothing.
  if (IsModifierKey(key)) return true;
  if ((event.modifiers() & Qt::KeypadModifier) && (key == Qt::Key_Plus || key == Qt::Key_Minus))
    return false;  // the row commands of the number pad
  if (mods & Qt::AltModifier) return false;
  if (mods & Qt::ControlModifier) {
    for (const auto standard : {QKeySequence::Copy, QKeySequence::Cut, QKeySequence::Paste,
                                QKeySequence::SelectAll, QKeySequence::Undo, QKeySequence::Redo})
      if (event.matches(standard)) return true;
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Backspace ||
           key == Qt::Key_Delete;
  }
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Insert:
      return true;
    default:
      break;
  }
  const QString text = event.text();
  return !text.isEmpty() && text.at(0).isPrint();
}

bool GridView::IsModifierKey(int key) {
  switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_Mode_switch:
      return true;
    default:
      return false;
  }
}

GridView* GridView::EditingGridOf(QWidget* focus) {
  for (QWidget* w = focus ? focus->parentWidget() : nullptr; w; w = w->parentWidget())
    if (auto* grid = qobject_cast<GridView*>(w)) return grid->OpenEditor() ? grid : nullptr;
  return nullptr;
}

bool GridView::EditorKeyPress(const QKeyEvent& event) {
  QWidget* editor = OpenEditor();
  if (!editor) return false;
  const bool shift = event.modifiers() & Qt::ShiftModifier;
  auto* combo = qobject_cast<QComboBox*>(editor);
  switch (event.key()) {
    case Qt::Key_Escape:
      QTableView::closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      CommitAndMove(shift ? MoveUp : MoveDown);
      return true;
    case Qt::Key_Tab:
      CommitAndMove(MoveNext);
      return true;
    case Qt::Key_Backtab:
      CommitAndMove(MovePrevious);
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
      // A list cell opens its list with the arrows; a pick in it closes the edit.
      if (combo) {
        combo->showPopup();
        return true;
      }
      CommitAndMove(event.key() == Qt::Key_Up ? MoveUp : MoveDown);
      return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
      if (combo || !typing_ || event.modifiers() != Qt::NoModifier) return false;
      CommitAndMove(event.key() == Qt::Key_Left ? MoveLeft : MoveRight);
      return true;
    default:
      return false;
  }
}

void GridView::TakeEdit(int row, int col, const std::string& text) {
  pending_ = Edit{row, col, text};
  if (!OpenEditor()) RunPendingEdit();
}

bool GridView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const bool opened = QTableView::edit(index, trigger, event);
  if (opened) editing_ = index;
  if (opened && trigger != NoEditTriggers) typing_ = trigger == AnyKeyPressed;
  return opened;
}

void GridView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  // Where the grid goes after an edit is decided here, not by the delegate.
  const bool revert = hint == QAbstractItemDelegate::RevertModelCache;
  QTableView::closeEditor(editor, revert ? hint : QAbstractItemDelegate::NoHint);
  if (revert) pending_.reset();
  RunPendingEdit();
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const QString text = event->text();
  const bool typed = !text.isEmpty() && text.at(0).isPrint() &&
                     !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (typed && !OpenEditor()) {
    // The character opens the editor and is its first: put there by hand, since an event handed
    // on to a new editor can be lost to the desktop's input method. A locked cell keeps it out.
    event->accept();
    if (!currentIndex().isValid() || !edit(currentIndex(), AnyKeyPressed, nullptr)) return;
    typing_ = true;
    if (auto* line = qobject_cast<QLineEdit*>(OpenEditor()))
      line->setText(text);
    else if (QWidget* editor = OpenEditor())
      QCoreApplication::sendEvent(editor, event);  // a list cell looks the letter up
    return;
  }
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Move(event->modifiers() & Qt::ShiftModifier ? MoveUp : MoveDown);
    event->accept();
    return;
  }
  QTableView::keyPressEvent(event);
}

void GridView::RunPendingEdit() {
  if (!pending_) return;
  const Edit edit = std::move(*pending_);
  pending_.reset();
  if (runEdit_) runEdit_(edit.Row, edit.Col, edit.Text);
}

void GridView::CommitAndMove(CursorAction move) {
  const QModelIndex at = currentIndex();
  CommitEdit();
  if (currentIndex() == at && hasFocus()) Move(move);
}

void GridView::Move(CursorAction move) {
  const QModelIndex next = moveCursor(move, Qt::NoModifier);
  if (next.isValid() && next != currentIndex()) setCurrentIndex(next);
}
