#pragma once
// Qt's own dialogs (file dialog, message box buttons, print dialog, the text boxes' context menu)
// in Greek. Qt ships no Greek text for them, so the program carries its own, compiled from
// translations/qtbase_el.ts into the program's resources.
class QCoreApplication;
class QTranslator;

// Where the compiled text sits among the program's resources.
inline constexpr const char* kQtGreekResource = ":/i18n/qtbase_el.qm";

// Loads the Greek text and installs it on `app`, which owns it from then on. Call it before
// the first window is made: a widget takes its texts when it is built. Returns the installed
// translator, or nullptr when the resource is missing from the program (then Qt's dialogs stay
// English and nothing else changes).
QTranslator* InstallQtGreek(QCoreApplication& app);
