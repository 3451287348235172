// Typing into the main screen's grid on the real widgets, key by key, as the engineer does:
// what is typed stays, the keys that end an edit move on, the screen's keys take the edit
// with them, and no key reaches a widget that a command has closed.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

#include "FilteredLineEdit.h"
#include "FrmRavoAdd.h"
#include "GridView.h"
#include "MainViewFixture.h"
#include "QtPrompter.h"

namespace {

class GridTypingTest : public ViewTest {
 protected:
  GridView* Grid() { return view.Kit().Widget<GridView>("Grid"); }
  // Makes (row, col) the active cell, as a click on it would, and gives the grid the focus.
  void Select(int row, int col) {
    Grid()->setFocus();
    Grid()->setCurrentIndex(Grid()->model()->index(row - 1, col - 1));
  }
  // The key goes to whatever has the focus, as the keyboard's would.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  // Each character to the widget that has the focus when it is typed: the first one of a cell
  // opens its editor, which takes the rest.
  void Type(const char* text) {
    for (const char* c = text; *c; ++c)
      QTest::keyClicks(QApplication::focusWidget(), QString(QLatin1Char(*c)));
  }
  std::string Shown(int row, int col) {
    return Grid()->model()->index(row - 1, col - 1).data().toString().toStdString();
  }
  std::pair<int, int> Active() const { return {logic.Grid.ActiveRow(), logic.Grid.ActiveCol()}; }
};

// What is typed into a cell stays, whichever key ends the edit, and the active cell moves as a
// spreadsheet's does; Esc throws the edit away.
TEST_F(GridTypingTest, EveryKeyThatEndsAnEditKeepsWhatWasTyped) {
  struct Case {
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
    const char* Kept;
    std::pair<int, int> ActiveAfter;
  } cases[] = {
      {Qt::Key_Return, Qt::NoModifier, "1200", {3, 2}},
      {Qt::Key_Enter, Qt::KeypadModifier, "1200", {3, 2}},
      {Qt::Key_Tab, Qt::NoModifier, "1200", {2, 3}},
      {Qt::Key_Backtab, Qt::ShiftModifier, "1200", {2, 1}},
      {Qt::Key_Down, Qt::NoModifier, "1200", {3, 2}},
      {Qt::Key_Up, Qt::NoModifier, "1200", {1, 2}},
      {Qt::Key_Right, Qt::NoModifier, "1200", {2, 3}},
      {Qt::Key_Left, Qt::NoModifier, "1200", {2, 1}},
      {Qt::Key_Escape, Qt::NoModifier, "", {2, 2}},
  };
  for (const Case& c : cases) {
    logic.Grid.SetText(2, 2, "");
    view.Kit().Render();
    Select(2, 2);
    Type("1200");
    ASSERT_NE(Grid()->OpenEditor(), nullptr) << c.Key;
    Key(c.Key, c.Modifiers);
    EXPECT_EQ(Grid()->OpenEditor(), nullptr) << c.Key;
    EXPECT_EQ(logic.Grid.Text(2, 2), c.Kept) << c.Key;
    EXPECT_EQ(Shown(2, 2), c.Kept) << c.Key;
    EXPECT_EQ(Active(), c.ActiveAfter) << c.Key;
    EXPECT_EQ(Grid()->currentIndex().row() + 1, c.ActiveAfter.first) << c.Key;
  }
}

TEST_F(GridTypingTest, F2EditsTheTextInPlaceAfterTheScreenOpensTheColumns) {
  Row(1, "12");
  for (int col = 1; col <= 3; ++col) logic.Grid.SetLocked(1, col, true);
  view.Kit().Render();
  Select(1, 2);
  Type("9");  // a locked cell takes no typing
  EXPECT_EQ(Grid()->OpenEditor(), nullptr);
  EXPECT_EQ(logic.Grid.Text(1, 2), "12");
  EXPECT_EQ(Active(), std::pair(1, 2));
  Key(Qt::Key_F2);
  ASSERT_NE(Grid()->OpenEditor(), nullptr);
  EXPECT_FALSE(logic.Grid.Locked(1, 2));
  Type("3");
  Key(Qt::Key_Left);  // in place, the arrows move the caret
  Type("0");
  Key(Qt::Key_Return);
  EXPECT_EQ(logic.Grid.Text(1, 2), "1203");
}

TEST_F(GridTypingTest, TheScreensKeysTakeTheOpenEditFirst) {
  Header();
  Row(1, "1000");
  Select(1, 2);
  Type("800");
  Key(Qt::Key_F10);
  EXPECT_EQ(Grid()->OpenEditor(), nullptr);
  EXPECT_EQ(logic.Grid.Text(1, 2), "800");
  EXPECT_EQ(Shown(1, 4), "800");  // the running sum of the calculation
  EXPECT_EQ(view.Kit().Widget<QLabel>("TxtLoopLoad")->text(), QStringLiteral("800"));
  // A key the screen does not take leaves the editor alone, whatever it types.
  Select(2, 2);
  Type("4-");
  EXPECT_EQ(qobject_cast<QLineEdit*>(Grid()->OpenEditor())->text(), QStringLiteral("4-"));
  EXPECT_TRUE(prompter.History().empty());
}

TEST_F(GridTypingTest, AClickOnTheModelCellChoosesNothing) {
  Row(1, "1000");
  logic.Grid.SetText(1, 10, "");
  view.Kit().Render();
  const QRect cell = Grid()->visualRect(Grid()->model()->index(0, 9));
  QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, {}, cell.center());
  EXPECT_EQ(Active(), std::pair(1, 10));
  EXPECT_EQ(Grid()->OpenEditor(), nullptr);
  QTest::mouseDClick(Grid()->viewport(), Qt::LeftButton, {}, cell.center());
  auto* list = qobject_cast<QComboBox*>(Grid()->OpenEditor());
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->currentIndex(), -1);
  Select(2, 2);  // leaving the cell keeps it empty
  EXPECT_EQ(logic.Grid.Text(1, 10), "");
  // A pick from the list is a choice.
  Select(1, 10);
  Key(Qt::Key_F2);
  list = qobject_cast<QComboBox*>(Grid()->OpenEditor());
  ASSERT_NE(list, nullptr);
  list->setCurrentIndex(2);
  emit list->activated(2);
  EXPECT_EQ(logic.Grid.Text(1, 10), list->itemText(2).toStdString());
}

TEST_F(GridTypingTest, ATenKilobytePasteAndAWindowClosedWhileEditingLoseNothing) {
  Select(1, 1);
  Type("A");
  QApplication::clipboard()->setText(QString(10240, QLatin1Char('7')));
  Key(Qt::Key_V, Qt::ControlModifier);
  Key(Qt::Key_Return);
  EXPECT_EQ(logic.Grid.Text(1, 1), "A7777");  // the radiator's name holds five characters
  Select(1, 2);
  Type("950");
  view.close();
  EXPECT_EQ(logic.Grid.Text(1, 2), "950");
}

// The number pad's plus opens the adding dialog below the rows it fills: its fields filter what
// is typed, and its command shows on the main screen at once.
TEST_F(GridTypingTest, TheAddingDialogsRowsShowOnTheMainScreenWhileItIsOpen) {
  std::string seen;
  bool below = false;
  int repaints = -1;
  QSignalSpy gridRepaints(Grid()->model(), &QAbstractItemModel::dataChanged);
  QTimer::singleShot(0, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle().toStdString(), FrmRavoAdd::kCaption);
    EXPECT_LE(dialog->frameGeometry().width(), 1024);
    below = dialog->geometry().top() >= Grid()->mapToGlobal(QPoint(0, 0)).y() + Grid()->height() ||
            dialog->frameGeometry().bottom() >= dialog->screen()->availableGeometry().bottom() - 40;
    auto* added = dialog->findChild<FilteredLineEdit*>(QStringLiteral("TxtAdded"));
    auto* name = dialog->findChild<FilteredLineEdit*>(QStringLiteral("TxtSomaName"));
    for (const auto& [box, text] : {std::pair{added, "12a00"}, {name, "R1-ROOM"}}) {
      box->setFocus();
      QTest::keyClicks(box, text);
    }
    QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("CmdOK")), Qt::LeftButton);
    seen = ShownText(added) + "|" + ShownText(name) + "|" + Shown(1, 2) + "|" + Shown(1, 1);
    repaints = static_cast<int>(gridRepaints.count());
    QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("CmdCancel")), Qt::LeftButton);
  });
  Select(1, 1);
  Key(Qt::Key_Plus, Qt::KeypadModifier);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);  // Cancel closed it
  EXPECT_EQ(seen, "1200|R1-RO|1200|R1-RO");
  EXPECT_GE(repaints, 2);  // the dialog's opening, and its command
  EXPECT_TRUE(below);
}

// A command started by a key while a cell editor is open raises a box; Enter on the box ends
// it, and the grid goes on taking keys.
using BoxesTest = MainViewTest<QtPrompter>;
TEST_F(BoxesTest, EnterOnABoxRaisedFromTheKeyboardReachesOnlyLiveWidgets) {
  Header();
  Row(1, "99999999999999");
  auto* grid = view.Kit().Widget<GridView>("Grid");
  grid->setFocus();
  grid->setCurrentIndex(grid->model()->index(2, 1));
  grid->edit(grid->currentIndex());
  ASSERT_NE(grid->OpenEditor(), nullptr);
  EXPECT_EQ(AnswerBoxesWithEnter([] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10); }),
            1);
  EXPECT_EQ(grid->OpenEditor(), nullptr);
  EXPECT_EQ(logic.Grid.Text(1, 11), "");
  view.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
  grid->setFocus();
  QTest::keyClicks(grid, "5");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(logic.Grid.Text(3, 2), "5");
}

TEST(GridKeysTest, TheEditorKeepsTheKeysThatTypeAndMoveInIt) {
  struct Case {
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
    const char* Text;
    bool Editors;
  } cases[] = {
      {Qt::Key_A, Qt::NoModifier, "a", true},
      {Qt::Key_7, Qt::KeypadModifier, "7", true},
      {Qt::Key_Minus, Qt::NoModifier, "-", true},
      {Qt::Key_Minus, Qt::KeypadModifier, "-", false},
      {Qt::Key_Plus, Qt::KeypadModifier, "+", false},
      {Qt::Key_V, Qt::ControlModifier, "", true},
      {Qt::Key_S, Qt::ControlModifier, "", false},
      {Qt::Key_F10, Qt::NoModifier, "", false},
      {Qt::Key_PageDown, Qt::NoModifier, "", false},
      {Qt::Key_Home, Qt::ControlModifier, "", false},
      {Qt::Key_Home, Qt::NoModifier, "", true},
      {Qt::Key_Backspace, Qt::NoModifier, "", true},
      {Qt::Key_Escape, Qt::NoModifier, "", true},
      {Qt::Key_F, Qt::AltModifier, "f", false},
      {Qt::Key_Control, Qt::ControlModifier, "", true},
      {Qt::Key_Shift, Qt::ShiftModifier, "", true},
  };
  for (const Case& c : cases) {
    const QKeyEvent event(QEvent::KeyPress, c.Key, c.Modifiers, QString::fromUtf8(c.Text));
    EXPECT_EQ(GridView::IsEditorKey(event), c.Editors) << c.Key << " " << c.Modifiers;
  }
}

}  // namespace
