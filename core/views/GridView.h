#pragma once
// A screen's grid on the desktop, taking typing as a spreadsheet does: a printable key on a
// cell starts an edit with that character; F2 and a double click edit the cell's text in place;
// Enter, Tab and the arrows close the edit and move on; Esc throws the edit away; a locked cell
// takes no typing. An edit reaches the screen only once its editor has closed, so that no
// command of the screen ever runs while a cell editor is open.
#include <QTableView>
#include <functional>
#include <optional>
#include <string>

class QKeyEvent;

class GridView : public QTableView {
  Q_OBJECT

 public:
  using EditRunner = std::function<void(int row, int col, const std::string& text)>;
  // `runEdit` hands a finished edit to the screen (row and column from 1).
  GridView(EditRunner runEdit, QWidget* parent);

  using QTableView::edit;
  // The editor open on a cell, or null.
  QWidget* OpenEditor() const;
  // Closes the open editor and hands its text to the screen; false when none was open.
  bool CommitEdit();
  // Closes the open editor and forgets its edit: the screen is going.
  void DiscardEdit();
  // Opens the current cell's editor on its text, the caret at the end, if the cell may be typed.
  void EditInPlace();
  // A key for the open editor. True when the grid took it: Enter, Tab and the arrows that leave
  // the cell close the edit and move, Esc cancels. False for the keys typed into the editor and
  // for the keys that are not the editor's (see IsEditorKey).
  bool EditorKeyPress(const QKeyEvent& event);
  // The keys an open editor keeps to itself: what is typed and how the caret moves, cut, copy
  // and paste. Every other key (F-keys, page keys, the number pad's signs, Ctrl with a letter of
  // a command) belongs to the screen.
  static bool IsEditorKey(const QKeyEvent& event);
  // Shift, Ctrl, Alt and the like, pressed alone.
  static bool IsModifierKey(int key);
  // The grid whose cell editor holds `focus`, or null.
  static GridView* EditingGridOf(QWidget* focus);

  // Called by the model: an edit of a cell. Kept until the editor closes, run at once otherwise.
  void TakeEdit(int row, int col, const std::string& text);

 protected:
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void keyPressEvent(QKeyEvent* event) override;
  // A typed letter never jumps to a cell that begins with it.
  void keyboardSearch(const QString&) override {}

 private:
  struct Edit {
    int Row, Col;
    std::string Text;
  };
  void RunPendingEdit();
  // Commits the edit, then moves, unless the screen has put the active cell or the focus
  // elsewhere meanwhile.
  void CommitAndMove(CursorAction move);
  void Move(CursorAction move);

  EditRunner runEdit_;
  std::optional<Edit> pending_;
  QPersistentModelIndex editing_;  // the cell whose editor is open
  // The edit began with a typed character: Left and Right then leave the cell, as Up and Down
  // do; in an edit in place they move the caret.
  bool typing_ = false;
};
