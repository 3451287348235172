#include "QtGreek.h"

#include <QCoreApplication>
#include <QString>
#include <QTranslator>

QTranslator* InstallQtGreek(QCoreApplication& app) {
  auto* translator = new QTranslator(&app);
  if (!translator->load(QString::fromLatin1(kQtGreekResource)) ||
      !QCoreApplication::installTranslator(translator)) {
    delete translator;
    return nullptr;
  }
  return translator;
}
