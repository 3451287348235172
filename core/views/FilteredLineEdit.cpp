#include "FilteredLineEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QTimer>

FilteredLineEdit::FilteredLineEdit(Field& field, TextBoxEvents events, Runner run, QWidget* parent)
    : QLineEdit(parent), field_(field), events_(std::move(events)), run_(std::move(run)) {
  connect(this, &QLineEdit::textEdited, this,
          [this](const QString& text) { field_.Text = text.toStdString(); });
  Render();
}

void FilteredLineEdit::Render() {
  const QString text = QString::fromStdString(field_.Text);
  if (this->text() != text) {
    setText(text);
    // A box the engineer is not typing in shows the start of a text too long for it.
    if (!hasFocus()) setCursorPosition(0);
  }
  setEnabled(field_.Enabled);
  setVisible(field_.Visible);
  // Setting the length again would drop the selection.
  const int maxLength = field_.MaxLength > 0 ? field_.MaxLength : 32767;
  if (this->maxLength() != maxLength) setMaxLength(maxLength);
}

bool FilteredLineEdit::AcceptsAll(const QString& text) {
  if (!events_.KeyPress) return true;
  for (const char32_t ch : text.toUcs4())
    if (!events_.KeyPress(ch)) return false;
  return true;
}

void FilteredLineEdit::PasteFiltered() {
  const std::string typed = QApplication::clipboard()->text().toStdString();
  const std::string kept = FilterTyped(
      std::string(), typed, events_.KeyPress ? events_.KeyPress : [](char32_t) { return true; },
      false);
  insert(QString::fromStdString(kept));
  field_.Text = text().toStdString();
}

void FilteredLineEdit::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) {
    PasteFiltered();
    return;
  }
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    if (events_.KeyPress) run_([this] { events_.KeyPress(13); });
    return;
  }
  if (key == Qt::Key_Backspace) {
    if (!events_.KeyPress || events_.KeyPress(8)) QLineEdit::keyPressEvent(event);
    return;
  }
  const QString text = event->text();
  const bool typing = !text.isEmpty() && text.at(0).isPrint() &&
                      !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (typing && !AcceptsAll(text)) return;
  QLineEdit::keyPressEvent(event);
}

void FilteredLineEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason)
    return;
  if (events_.GotFocus) run_(events_.GotFocus);
  // The text is selected whole on every focus gain; after a click Qt would place the cursor,
  // so the selection follows once the click is done.
  QTimer::singleShot(0, this, [this] {
    if (!selectionStart_) return selectAll();
    const int start = selectionStart_();
    setSelection(start, static_cast<int>(text().size()) - start);
  });
}

void FilteredLineEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // A message box or another window taking the focus is not the engineer leaving the field.
  if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason)
    return;
  field_.Text = text().toStdString();
  if (!field_.Text.empty()) setCursorPosition(0);
  if (events_.LostFocus) run_(events_.LostFocus);
}
