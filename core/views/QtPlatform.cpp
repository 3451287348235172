#include "QtPlatform.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
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

bool QtPlatform::OpenDocument(const std::filesystem::path& file) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(file.string())));
}

// "Special Files (*.sht)|*.sht" becomes Qt's "Special Files (*.sht)". A proposed file opens
// the dialog in its own folder with its name in the box.
std::optional<std::filesystem::path> QtPlatform::AskSaveFile(
    const std::filesystem::path& folder, const std::string& filter,
    const std::filesystem::path& proposed) {
  const QString qtFilter = QString::fromStdString(filter.substr(0, filter.find('|')));
  const std::filesystem::path start = proposed.empty() ? folder : folder / proposed;
  const QString name = QFileDialog::getSaveFileName(
      QApplication::activeWindow(), QStringLiteral("ΑΠΟΘΗΚΕΥΣΗ ΤΗΣ ΜΕΛΕΤΗΣ"),
      QString::fromStdString(start.string()), qtFilter);
  if (name.isEmpty()) return std::nullopt;
  return std::filesystem::path(name.toStdString());
}

std::optional<std::filesystem::path> QtPlatform::AskOpenFile(const std::filesystem::path& folder,
                                                             const std::string& filter) {
  const QString qtFilter = QString::fromStdString(filter.substr(0, filter.find('|')));
  const QString name =
      QFileDialog::getOpenFileName(QApplication::activeWindow(), QStringLiteral("ΑΝΑΚΛΗΣΗ ΜΕΛΕΤΗΣ"),
                                   QString::fromStdString(folder.string()), qtFilter);
  if (name.isEmpty()) return std::nullopt;
  return std::filesystem::path(name.toStdString());
}
