// Qt's own dialogs read Greek once the program's translation is installed: the file dialog's
// labels, buttons and columns, the text boxes' context menu, the print preview's actions (so
// the contexts and source texts are Qt's own); and every text of the translation source reaches
// the compiled resource.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPrintPreviewDialog>
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

// Every text a widget shows: its labels, buttons, actions and column heads.
QStringList TextsOf(const QWidget& widget) {
  QStringList texts;
  for (const QLabel* label : widget.findChildren<QLabel*>()) texts << Plain(label->text());
  for (const QAbstractButton* b : widget.findChildren<QAbstractButton*>())
    texts << Plain(b->text());
  for (const QAction* action : widget.findChildren<QAction*>()) texts << Plain(action->text());
  for (const QAbstractItemModel* model : widget.findChildren<QAbstractItemModel*>())
    for (int col = 0; col < model->columnCount(); ++col)
      texts << model->headerData(col, Qt::Horizontal).toString();
  return texts;
}

TEST_F(QtGreekTest, QtsOwnDialogsAndMenusReadGreek) {
  QFileDialog save(nullptr, QStringLiteral("ΑΠΟΘΗΚΕΥΣΗ ΤΗΣ ΜΕΛΕΤΗΣ"), QString(),
                   QStringLiteral("Special Files (*.sht)"));
  save.setOption(QFileDialog::DontUseNativeDialog);
  save.setAcceptMode(QFileDialog::AcceptSave);
  QLineEdit edit(QStringLiteral("Οικία"));
  const std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
  QPrintPreviewDialog preview;
  const struct {
    const char* What;
    const QWidget* Widget;
    const char* Greek;    // texts it must show, split at '|'
    const char* English;  // a text that must not show
  } cases[] = {
      {"the save dialog", &save,
       "Όνομα αρχείου:|Αναζήτηση σε:|Αρχεία τύπου:|Άκυρο|Αποθήκευση|Όνομα|Μέγεθος|Τύπος|"
       "Ημερομηνία τροποποίησης",
       "Cancel"},
      {"a text box's menu", menu.get(),
       "Αναίρεση|Ακύρωση αναίρεσης|Αποκοπή|Αντιγραφή|Επικόλληση|Διαγραφή|Επιλογή όλων", "Copy"},
      {"the print preview", &preview,
       "Εκτύπωση|Διαμόρφωση σελίδας|Επόμενη σελίδα|Μεγέθυνση|Προσαρμογή στο πλάτος|Κατακόρυφος|"
       "Οριζόντιος",
       "Next page"},
  };
  for (const auto& c : cases) {
    const QStringList texts = TextsOf(*c.Widget);
    for (const QString& greek : QString::fromUtf8(c.Greek).split(QLatin1Char('|')))
      EXPECT_TRUE(texts.contains(greek)) << c.What << ": " << greek.toStdString();
    EXPECT_FALSE(texts.contains(QString::fromLatin1(c.English))) << c.What;
  }
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
    const auto name = xml.name();
    if (name == QLatin1String("name")) context = xml.readElementText();
    if (name == QLatin1String("message")) messages.push_back({context, {}, {}, {}});
    if (name == QLatin1String("source")) messages.back().Source = xml.readElementText();
    if (name == QLatin1String("comment")) messages.back().Comment = xml.readElementText();
    if (name == QLatin1String("translation")) messages.back().Translation = xml.readElementText();
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
