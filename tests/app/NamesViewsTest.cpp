// The names list and its password screen on the offscreen platform: the widgets show the
// logic's state and every click reaches its handler.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include "FilteredLineEdit.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "ClientRecord.h"
#include "FakePlatform.h"
#include "FrmCLPassView.h"
#include "FrmCLientView.h"
#include "FrmRavolinView.h"
#include "QtPrompter.h"
#include "QtScreens.h"
#include "ScriptedScreens.h"
#include "TempFolder.h"

namespace {

// Types any text, Greek included, a key at a time (keyClicks knows only ASCII keys).
void TypeText(QWidget* widget, const QString& text) {
  for (const QChar ch : text)
    QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(ch), Qt::NoModifier);
}

class NamesViewTest : public ::testing::Test {
 protected:
  NamesViewTest() : ws(folder.Path()) {
    ws.SetPauseMilliseconds(0);
    WriteClients(ws, ClientList{{"Α. Αλεξίου", "Β. Βασιλείου"}, "κλειδί"});
    state.CurrentEngineer = "Β. Βασιλείου";
    names.Form_Load();
  }
  TempFolder folder;
  Workspace ws;
  StudyState state;
  ScriptedPrompter prompter;
  CommandBoundary boundary{ws, prompter, state};
  ScriptedScreens screens;
  FrmCLient names{ws, state, prompter, screens};
};

TEST_F(NamesViewTest, TheListShowsTheNamesTheEngineerAndAMaskedPassword) {
  FrmCLientView view(names, boundary);
  view.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
  if (const char* shot = std::getenv("RAVO_SHOT")) view.grab().save(QString::fromUtf8(shot));
  EXPECT_LE(view.frameGeometry().width(), 1024);
  EXPECT_EQ(view.windowTitle().toStdString(), FrmCLient::kCaption);
  ASSERT_EQ(view.Kit().Widget<QListWidget>("Lst_Names")->count(), 2);
  EXPECT_EQ(view.Kit().Widget<QListWidget>("Lst_Names")->currentRow(), 1);
  EXPECT_EQ(view.Kit().Widget<QLabel>("Lbl_Client")->text().toStdString(), "Β. Βασιλείου");
  EXPECT_EQ(view.Kit().Widget<QLabel>("LblCurrent")->text().toStdString(), "ΤΡΕΧΟΝ ΟΝΟΜΑ ΜΕΛΕΤΗΤΗ");
  EXPECT_EQ(view.Kit().Widget<QLineEdit>("Txt_Pass")->echoMode(), QLineEdit::Password);
  EXPECT_EQ(view.Kit().Widget<QLineEdit>("Txt_Pass")->text().toStdString(), "κλειδί");
  EXPECT_FALSE(view.Kit().Widget<QLineEdit>("Txt_Client")->isVisible());
  EXPECT_EQ(view.Kit().Widget<QPushButton>("Cmd_Lock")->text().toStdString(), " Αλλαγή Password ");
  for (const char* name : {"Cmd_OK", "Cmd_New", "Cmd_COR", "Cmd_Lock", "Cmd_Exit"})
    EXPECT_GE(view.Kit().Widget<QPushButton>(name)->width(),
              view.Kit().Widget<QPushButton>(name)->sizeHint().width())
        << name;
}

TEST_F(NamesViewTest, ANewNameIsTypedCountedAndAddedThroughTheLogic) {
  FrmCLientView view(names, boundary);
  view.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
  QTest::mouseClick(view.Kit().Widget<QPushButton>("Cmd_New"), Qt::LeftButton);
  ASSERT_TRUE(view.Kit().Widget<QLineEdit>("Txt_Client")->isVisible());
  EXPECT_EQ(view.Kit().Widget<QLabel>("Lbl_Entry")->text().toStdString(), FrmCLient::kNewCaption);
  TypeText(view.Kit().Widget<QLineEdit>("Txt_Client"), QStringLiteral("Γ. Γεωργίου"));
  EXPECT_EQ(view.Kit().Widget<QLabel>("LblNoChars")->text().toStdString(), "< 11 > Χαρακτήρες");
  prompter.QueueAnswer(Answer::Yes);
  prompter.QueueAnswer(Answer::Yes);
  QTest::mouseClick(view.Kit().Widget<QPushButton>("Cmd_OK"), Qt::LeftButton);
  EXPECT_TRUE(names.Closed());
  EXPECT_FALSE(view.isVisible());
  EXPECT_EQ(state.CurrentEngineer, "Γ. Γεωργίου");
  EXPECT_EQ(ReadClients(ws).Names.back(), "Γ. Γεωργίου");
}

// The question that follows the adding of a name stands over the list that already holds it.
TEST_F(NamesViewTest, TheListBehindABoxShowsWhatTheCommandDidSoFar) {
  QtPrompter boxes;
  CommandBoundary realBoxes{ws, boxes, state};
  FrmCLient list{ws, state, boxes, screens};
  list.Form_Load();
  FrmCLientView view(list, realBoxes);
  view.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
  QTest::mouseClick(view.Kit().Widget<QPushButton>("Cmd_New"), Qt::LeftButton);
  TypeText(view.Kit().Widget<QLineEdit>("Txt_Client"), QStringLiteral("Γ. Γεωργίου"));
  std::vector<int> shownNames;
  std::function<void()> answer = [&] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      shownNames.push_back(view.Kit().Widget<QListWidget>("Lst_Names")->count());
      QTest::keyClick(box, Qt::Key_Return);  // yes: add it, and choose it
    }
    if (!list.Closed()) QTimer::singleShot(10, answer);
  };
  QTimer::singleShot(0, answer);
  QTest::mouseClick(view.Kit().Widget<QPushButton>("Cmd_OK"), Qt::LeftButton);
  EXPECT_EQ(shownNames, (std::vector<int>{2, 3}));
  EXPECT_EQ(state.CurrentEngineer, "Γ. Γεωργίου");
}

TEST_F(NamesViewTest, AClickOnANameHighlightsItInTheLogicAndTheCloseBoxWritesDeletions) {
  FrmCLientView view(names, boundary);
  view.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
  view.Kit().Widget<QListWidget>("Lst_Names")->setCurrentRow(0);
  EXPECT_EQ(names.Lst_Names.SelectedIndex(), 0);
  prompter.QueueAnswer(Answer::Yes);
  QTest::mouseClick(view.Kit().Widget<QPushButton>("Cmd_Del"), Qt::LeftButton);
  EXPECT_EQ(view.Kit().Widget<QListWidget>("Lst_Names")->count(), 1);
  QTest::keyClick(&view, Qt::Key_Escape);
  EXPECT_TRUE(names.Closed());
  EXPECT_EQ(ReadClients(ws).Names, std::vector<std::string>{"Β. Βασιλείου"});
}

TEST_F(NamesViewTest, ThePasswordScreenShowsOneBoxToCheckAndTwoForANewPassword) {
  FrmCLPass check(FrmCLPass::Mode::Check, "κλειδί", prompter, state);
  FrmCLPassView checkView(check, boundary);
  checkView.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&checkView));
  EXPECT_FALSE(checkView.Kit().Widget<QLineEdit>("TxtPassOK")->isVisible());
  EXPECT_EQ(checkView.Kit().Widget<QLineEdit>("TxtPass")->echoMode(), QLineEdit::Password);
  TypeText(checkView.Kit().Widget<QLineEdit>("TxtPass"), QStringLiteral("κλειδί"));
  QTest::mouseClick(checkView.findChild<QPushButton*>(QStringLiteral("CmdOK")), Qt::LeftButton);
  EXPECT_TRUE(check.Accepted());
  EXPECT_FALSE(checkView.isVisible());

  FrmCLPass fresh(FrmCLPass::Mode::New, "κλειδί", prompter, state);
  FrmCLPassView freshView(fresh, boundary);
  freshView.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&freshView));
  EXPECT_TRUE(freshView.Kit().Widget<QLineEdit>("TxtPassOK")->isVisible());
  TypeText(freshView.Kit().Widget<QLineEdit>("TxtPass"), QStringLiteral("νέο"));
  TypeText(freshView.Kit().Widget<QLineEdit>("TxtPassOK"), QStringLiteral("νέο"));
  QTest::mouseClick(freshView.findChild<QPushButton*>(QStringLiteral("CmdOK")), Qt::LeftButton);
  EXPECT_TRUE(fresh.Accepted());
  EXPECT_EQ(fresh.NewPassword, "νέο");
}

TEST(MainScreenNamesTest, TheEngineerButtonCarriesItsTipAndOpensTheList) {
  TempFolder folder;
  Workspace ws(folder.Path());
  StudyState state;
  ScriptedPrompter prompter;
  FakePlatform platform;
  CommandBoundary boundary{ws, prompter, state};
  const ViewRegistry views = ProgramViews();
  QtScreens screens{views};
  FrmRavolin logic{ws, state, prompter, platform, boundary, screens};
  FrmRavolinView view{logic, boundary};
  int opened = 0;
  screens.Wire(FrmCLient::kName, [&] { ++opened; });
  view.Kit().Render();
  QPushButton* button = view.Kit().Widget<QPushButton>("Cmd_Client");
  EXPECT_EQ(button->toolTip().toStdString(), "ΕΠΙΛΟΓΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ");
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(opened, 1);
}

}  // namespace
