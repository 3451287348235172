#pragma once
// A text box wired to a field of a screen's logic: every typed or pasted character goes through
// the logic's filter, and the focus events reach the logic's handlers. Nothing of the system's
// rules lives here.
#include <QLineEdit>
#include <functional>

#include "Controls.h"

class FilteredLineEdit : public QLineEdit {
 public:
  // `run` runs a handler as a command (through the command boundary) and refreshes the screen.
  using Runner = std::function<void(const std::function<void()>&)>;
  FilteredLineEdit(Field& field, TextBoxEvents events, Runner run, QWidget* parent = nullptr);

  // Shows the field's state without firing any handler.
  void Render();
  // Where the selection starts on a focus gain (to the end of the text); by default the whole
  // text is selected.
  void SetSelectionStart(std::function<int()> start) { selectionStart_ = std::move(start); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  bool AcceptsAll(const QString& text);
  void PasteFiltered();
  Field& field_;
  TextBoxEvents events_;
  Runner run_;
  std::function<int()> selectionStart_;
};
