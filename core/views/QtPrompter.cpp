#include "QtPrompter.h"

#include "ScreenView.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {
QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information:
      return QMessageBox::Information;
    case MessageIcon::Exclamation:
      return QMessageBox::Warning;
    case MessageIcon::Question:
      return QMessageBox::Question;
    case MessageIcon::Critical:
      return QMessageBox::Critical;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}
}  // namespace

Answer QtPrompter::Show(const Message& message) {
  // The screens under the box show what the command has done so far.
  ViewKit::RenderAll();
  for (int i = 0; i < message.Beeps; ++i) QApplication::beep();
  QStringList lines;
  for (const auto& line : message.Lines) lines << QString::fromStdString(line);
  QMessageBox box(IconOf(message.Icon), QString::fromStdString(message.Title),
                  lines.join(QLatin1Char('\n')), QMessageBox::NoButton, parent_);
  if (message.IsQuestion()) {
    QPushButton* yes = box.addButton(QStringLiteral("Ναι"), QMessageBox::YesRole);
    QPushButton* no = box.addButton(QStringLiteral("Όχι"), QMessageBox::NoRole);
    box.setDefaultButton(message.Default == Answer::No ? no : yes);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes ? Answer::Yes : Answer::No;
  }
  QPushButton* ok = box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
  box.setDefaultButton(ok);
  box.setEscapeButton(ok);
  box.exec();
  return Answer::Ok;
}
