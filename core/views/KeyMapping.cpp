#include "KeyMapping.h"

KeyStroke ToKeyStroke(const QKeyEvent& event) {
  KeyStroke key;
  const Qt::KeyboardModifiers mods = event.modifiers();
  key.Ctrl = mods & Qt::ControlModifier;
  key.Shift = mods & Qt::ShiftModifier;
  key.Alt = mods & Qt::AltModifier;
  const int k = event.key();
  if (k >= Qt::Key_F1 && k <= Qt::Key_F12) {
    key.Code = static_cast<KeyCode>(static_cast<int>(KeyCode::F1) + (k - Qt::Key_F1));
    return key;
  }
  switch (k) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      key.Code = KeyCode::Enter;
      return key;
    case Qt::Key_Escape:
      key.Code = KeyCode::Escape;
      return key;
    case Qt::Key_Tab:
      key.Code = KeyCode::Tab;
      return key;
    case Qt::Key_Backspace:
      key.Code = KeyCode::Backspace;
      return key;
    case Qt::Key_Delete:
      key.Code = KeyCode::Delete;
      return key;
    case Qt::Key_PageDown:
      key.Code = KeyCode::PageDown;
      return key;
    case Qt::Key_PageUp:
      key.Code = KeyCode::PageUp;
      return key;
    case Qt::Key_Home:
      key.Code = KeyCode::Home;
      return key;
    case Qt::Key_End:
      key.Code = KeyCode::End;
      return key;
    case Qt::Key_Up:
      key.Code = KeyCode::Up;
      return key;
    case Qt::Key_Down:
      key.Code = KeyCode::Down;
      return key;
    case Qt::Key_Left:
      key.Code = KeyCode::Left;
      return key;
    case Qt::Key_Right:
      key.Code = KeyCode::Right;
      return key;
    default:
      break;
  }
  // "+" and "-" of the number pad are row commands; the same signs of the main keyboard are
  // typed characters.
  if (mods & Qt::KeypadModifier) {
    if (k == Qt::Key_Plus) {
      key.Code = KeyCode::NumPlus;
      key.Shift = false;
      return key;
    }
    if (k == Qt::Key_Minus) {
      key.Code = KeyCode::NumMinus;
      return key;
    }
  }
  const QString text = event.text();
  if (!text.isEmpty() && text.at(0).isPrint()) {
    key.Code = KeyCode::Char;
    key.Char = text.toUcs4().value(0);
  } else if (k >= Qt::Key_A && k <= Qt::Key_Z) {
    key.Code = KeyCode::Char;
    key.Char = static_cast<char32_t>(k);
  }
  return key;
}
