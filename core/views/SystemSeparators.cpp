#include "SystemSeparators.h"

#include <QLocale>
#include <QString>

Separators SystemSeparators() {
  QLocale locale = QLocale::system();
  // Grouping is part of the pattern "#,##0.0"; a locale whose default omits it still groups.
  locale.setNumberOptions(QLocale::DefaultNumberOptions);
  const QString sample = locale.toString(5000.0 / 2, 'f', 1);
  std::u32string text;
  for (const char32_t ch : sample.toUcs4()) text.push_back(ch);
  return SeparatorsFromSample(text);
}
