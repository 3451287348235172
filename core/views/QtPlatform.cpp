#include "QtPlatform.h"

#include <QApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QScreen>
#include <QUrl>

#include "SystemSeparators.h"

DisplaySize QtPlatform::Display() const {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen) return {};
  const QSize size = screen->size();
  return {size.width(), size.height()};
}

Separators QtPlatform::NumberSeparators() const {
  return SystemSeparators();
}

void QtPlatform::OpenDocument(const std::filesystem::path& file) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(file.string())));
}

void QtPlatform::Beep() {
  QApplication::beep();
}
