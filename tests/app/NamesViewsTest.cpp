// The names list and its password screen on the offscreen platform: the widgets show the
// logic's state and every click reaches its handler.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>

#include "ClientRecord.h"
#include "FrmCLPassView.h"
#include "FrmCLientView.h"
#include "MainViewFixture.h"
#include "QtPrompter.h"
#include "ScriptedScreens.h"

namespace {

// Types any text, Greek included, a key at a time (keyClicks knows only ASCII keys).
void TypeText(QWidget* widget, const QString& text) {
  for (const QChar ch : text)
    QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(ch), Qt::NoModifier);
}

// The list of two names, the second in use, behind a password; `P` shows the boxes.
template <class P>
class NamesView : public ::testing::Test {
 protected:
  NamesView() : ws(folder.Path()) {
    ws.SetPauseMilliseconds(0);
    WriteClients(ws, ClientList{{"Α. Αλεξίου", "Β. Βασιλείου"}, "κλειδί"});
    state.CurrentEngineer = "Β. Βασιλείου";
    names.Form_Load();
    view.Kit().Render();
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
  }
  template <class W = QWidget>
  W* Find(const std::string& name) {
    return view.Kit().Widget<W>(name);
  }
  void Click(const std::string& name) { QTest::mouseClick(Find(name), Qt::LeftButton); }

  TempFolder folder;
  Workspace ws;
  StudyState state;
  P prompter;
  CommandBoundary boundary{ws, prompter, state};
  ScriptedScreens screens;
  FrmCLient names{ws, state, prompter, screens};
  FrmCLientView view{names, boundary};
};
using NamesViewTest = NamesView<ScriptedPrompter>;

TEST_F(NamesViewTest, TheListShowsTheNamesTheEngineerAndAMaskedPassword) {
  EXPECT_LE(view.frameGeometry().width(), 1024);
  EXPECT_EQ(view.windowTitle().toStdString(), FrmCLient::kCaption);
  ASSERT_EQ(Find<QListWidget>("Lst_Names")->count(), 2);
  EXPECT_EQ(Find<QListWidget>("Lst_Names")->currentRow(), 1);
  EXPECT_EQ(ShownText(Find("Lbl_Client")) + "|" + ShownText(Find("Txt_Pass")) + "|" +
                ShownText(Find("Cmd_Lock")),
            "Β. Βασιλείου|κλειδί| Αλλαγή Password ");
  EXPECT_EQ(Find<QLineEdit>("Txt_Pass")->echoMode(), QLineEdit::Password);
  EXPECT_FALSE(Find("Txt_Client")->isVisible());
  for (const char* name : {"Cmd_OK", "Cmd_New", "Cmd_COR", "Cmd_Lock", "Cmd_Exit"})
    EXPECT_GE(Find(name)->width(), Find(name)->sizeHint().width()) << name;
}

TEST_F(NamesViewTest, ANewNameIsTypedCountedAndAddedThroughTheLogic) {
  Click("Cmd_New");
  ASSERT_TRUE(Find("Txt_Client")->isVisible());
  EXPECT_EQ(ShownText(Find("Lbl_Entry")), FrmCLient::kNewCaption);
  TypeText(Find("Txt_Client"), QStringLiteral("Γ. Γεωργίου"));
  EXPECT_EQ(ShownText(Find("LblNoChars")), "< 11 > Χαρακτήρες");
  prompter.QueueAnswer(Answer::Yes);
  prompter.QueueAnswer(Answer::Yes);
  Click("Cmd_OK");
  EXPECT_TRUE(names.Closed());
  EXPECT_FALSE(view.isVisible());
  EXPECT_EQ(state.CurrentEngineer, "Γ. Γεωργίου");
  EXPECT_EQ(ReadClients(ws).Names.back(), "Γ. Γεωργίου");
}

// The question that follows the adding of a name stands over the list that already holds it.
using NamesBoxesTest = NamesView<QtPrompter>;
TEST_F(NamesBoxesTest, TheListBehindABoxShowsWhatTheCommandDidSoFar) {
  Click("Cmd_New");
  TypeText(Find("Txt_Client"), QStringLiteral("Γ. Γεωργίου"));
  std::vector<int> shownNames;
  AnswerBoxesWithEnter([this] { Click("Cmd_OK"); },  // yes: add it, and choose it
                       [&] { shownNames.push_back(Find<QListWidget>("Lst_Names")->count()); });
  EXPECT_EQ(shownNames, (std::vector<int>{2, 3}));
  EXPECT_EQ(state.CurrentEngineer, "Γ. Γεωργίου");
}

TEST_F(NamesViewTest, AClickOnANameHighlightsItInTheLogicAndTheCloseBoxWritesDeletions) {
  Find<QListWidget>("Lst_Names")->setCurrentRow(0);
  EXPECT_EQ(names.Lst_Names.SelectedIndex(), 0);
  prompter.QueueAnswer(Answer::Yes);
  Click("Cmd_Del");
  EXPECT_EQ(Find<QListWidget>("Lst_Names")->count(), 1);
  QTest::keyClick(&view, Qt::Key_Escape);
  EXPECT_TRUE(names.Closed());
  EXPECT_EQ(ReadClients(ws).Names, std::vector<std::string>{"Β. Βασιλείου"});
}

TEST_F(NamesViewTest, ThePasswordScreenShowsOneBoxToCheckAndTwoForANewPassword) {
  for (const auto& [mode, typed] :
       {std::pair{FrmCLPass::Mode::Check, u"κλειδί"}, {FrmCLPass::Mode::New, u"νέο"}}) {
    const bool fresh = mode == FrmCLPass::Mode::New;
    FrmCLPass pass(mode, "κλειδί", prompter, state);
    FrmCLPassView passView(pass, boundary);
    passView.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&passView));
    EXPECT_EQ(passView.Kit().Widget("TxtPassOK")->isVisible(), fresh);
    EXPECT_EQ(passView.Kit().Widget<QLineEdit>("TxtPass")->echoMode(), QLineEdit::Password);
    TypeText(passView.Kit().Widget("TxtPass"), QString::fromUtf16(typed));
    if (fresh) TypeText(passView.Kit().Widget("TxtPassOK"), QString::fromUtf16(typed));
    QTest::mouseClick(passView.findChild<QPushButton*>(QStringLiteral("CmdOK")), Qt::LeftButton);
    EXPECT_TRUE(pass.Accepted());
    EXPECT_FALSE(passView.isVisible());
    if (fresh) {
      EXPECT_EQ(pass.NewPassword, "νέο");
    }
  }
}

}  // namespace
