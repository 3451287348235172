// Qt's own dialogs read Greek once the program's translation is installed: the file dialog's
// labels, buttons and columns, the text boxes' context menu, the print preview's actions (so
// the contexts and source texts are Qt's own); and every text of the translation source reaches
// the compiled resource.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>
#include <QXmlStreamReader>
#include <memory>
#include <vector>

#include "QtGreek.h"

namespace {

class QtGreekTest : public ::testing::Test {
 protected:
  void SetUp() override {
    translator_ = InstallQtGreek(*QCoreApplication::instance());
    ASSERT_NE(translator_, nullptr) << kQtGreekResource << " is not among the resources";
  }
  void TearDown() override {
    QCoreApplication::removeTranslator(translator_);
    delete translator_;
  }
  QTranslator* translator_ = nullptr;
};

// The text of an action or button without its accelerator and shortcut.
QString Plain(QString text) {
  text = text.left(text.indexOf(QLatin1Char('\t')) < 0 ? text.size()
                                                       : text.indexOf(QLatin1Char('\t')));
  return text.remove(QLatin1Char('&'));
}

TEST(QtGreekWithout, QtSpeaksEnglishUntilTheTranslationIsInstalled) {
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"));
  QTranslator* translator = InstallQtGreek(*QCoreApplication::instance());
  ASSERT_NE(translator, nullptr);
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Άκυρο"));
  QCoreApplication::removeTranslator(translator);
  delete translator;
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"));
}

struct LabelCase {
  const char* ObjectName;
  const char* Greek;
};

TEST_F(QtGreekTest, TheSaveDialogsLabelsButtonsAndColumnsReadGreek) {
  QFileDialog dialog(nullptr, QStringLiteral("ΑΠΟΘΗΚΕΥΣΗ ΤΗΣ ΜΕΛΕΤΗΣ"), QString(),
                     QStringLiteral("Special Files (*.sht)"));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  const std::vector<LabelCase> labels = {
      {"fileNameLabel", "Ό&νομα αρχείου:"},
      {"lookInLabel", "Αναζήτηση σε:"},
      {"fileTypeLabel", "Αρχεία τύπου:"},
  };
  for (const auto& l : labels) {
    const auto* label = dialog.findChild<QLabel*>(QString::fromLatin1(l.ObjectName));
    ASSERT_NE(label, nullptr) << l.ObjectName;
    EXPECT_EQ(label->text(), QString::fromUtf8(l.Greek)) << l.ObjectName;
  }
  const auto* buttons = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
  ASSERT_NE(buttons, nullptr);
  QStringList texts;
  for (const QAbstractButton* b : buttons->buttons()) texts << Plain(b->text());
  texts.sort();
  EXPECT_EQ(texts, (QStringList{QStringLiteral("Άκυρο"), QStringLiteral("Αποθήκευση")}));

  const auto* model = dialog.findChild<QFileSystemModel*>();
  ASSERT_NE(model, nullptr);
  const QStringList columns = {QStringLiteral("Όνομα"), QStringLiteral("Μέγεθος"),
                               QStringLiteral("Τύπος"), QStringLiteral("Ημερομηνία τροποποίησης")};
  for (int col = 0; col < columns.size(); ++col)
    EXPECT_EQ(model->headerData(col, Qt::Horizontal).toString(), columns[col]) << col;
}

TEST_F(QtGreekTest, TheTextBoxContextMenuReadsGreek) {
  QLineEdit edit;
  edit.setText(QStringLiteral("Οικία"));
  const std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
  QStringList texts;
  for (const QAction* a : menu->actions())
    if (!a->isSeparator() && !a->menu()) texts << Plain(a->text());
  EXPECT_EQ(texts, (QStringList{QStringLiteral("Αναίρεση"), QStringLiteral("Ακύρωση αναίρεσης"),
                                QStringLiteral("Αποκοπή"), QStringLiteral("Αντιγραφή"),
                                QStringLiteral("Επικόλληση"), QStringLiteral("Διαγραφή"),
                                QStringLiteral("Επιλογή όλων")}));
}

TEST_F(QtGreekTest, ThePrintPreviewReadsGreek) {
  QPrintPreviewDialog dialog;
  QStringList texts;
  for (const QAction* a : dialog.findChildren<QAction*>()) texts << Plain(a->text());
  for (const char* wanted : {"Εκτύπωση", "Διαμόρφωση σελίδας", "Επόμενη σελίδα", "Μεγέθυνση",
                             "Προσαρμογή στο πλάτος", "Κατακόρυφος", "Οριζόντιος"})
    EXPECT_TRUE(texts.contains(QString::fromUtf8(wanted))) << wanted;
  EXPECT_FALSE(texts.contains(QStringLiteral("Next page")));
}

// One message of the translation source.
struct SourceMessage {
  QString Context, Source, Comment, Translation;
};

std::vector<SourceMessage> ReadSource(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  QXmlStreamReader xml(&file);
  std::vector<SourceMessage> messages;
  QString context;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    if (xml.name() == QLatin1String("name")) {
      context = xml.readElementText();
    } else if (xml.name() == QLatin1String("message")) {
      messages.push_back({context, {}, {}, {}});
    } else if (xml.name() == QLatin1String("source")) {
      messages.back().Source = xml.readElementText();
    } else if (xml.name() == QLatin1String("comment")) {
      messages.back().Comment = xml.readElementText();
    } else if (xml.name() == QLatin1String("translation")) {
      messages.back().Translation = xml.readElementText();
    }
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  return messages;
}

int Accelerators(QString text) {
  return static_cast<int>(text.remove(QStringLiteral("&&")).count(QLatin1Char('&')));
}

QSet<QString> PlaceMarkers(const QString& text) {
  QSet<QString> markers;
  for (const auto& m : QRegularExpression(QStringLiteral("%\\d")).globalMatch(text))
    markers << m.captured();
  return markers;
}

// A forgotten accelerator or place marker, or a text the build left out, shows here.
TEST_F(QtGreekTest, EveryTextOfTheSourceIsCompiledWithItsAcceleratorsAndPlaceMarkers) {
  const auto messages = ReadSource(QStringLiteral(RAVO_QT_GREEK_TS));
  ASSERT_GT(messages.size(), 200u);
  for (const auto& m : messages) {
    const std::string where = (m.Context + " / " + m.Source).toStdString();
    EXPECT_FALSE(m.Translation.isEmpty()) << where;
    EXPECT_NE(m.Translation, m.Source) << where;
    EXPECT_EQ(Accelerators(m.Translation), Accelerators(m.Source)) << where;
    EXPECT_EQ(PlaceMarkers(m.Translation), PlaceMarkers(m.Source)) << where;
    const QByteArray context = m.Context.toUtf8(), source = m.Source.toUtf8(),
                     comment = m.Comment.toUtf8();
    EXPECT_EQ(QCoreApplication::translate(context.constData(), source.constData(),
                                          m.Comment.isEmpty() ? nullptr : comment.constData()),
              m.Translation)
        << where;
  }
}

}  // namespace
