// The main screen's view on the offscreen platform: the widgets show the logic's state and the
// keys and edits reach its handlers.
#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QListWidget>
#include <QPushButton>

#include "FilteredLineEdit.h"
#include "FrmOldStudyView.h"
#include "FrmOpenSave_MView.h"
#include "FrmRavoAddView.h"
#include "FrmRavoSheetsView.h"
#include "GridModel.h"
#include "MainViewFixture.h"
#include "NamesScreens.h"
#include "SheetsScreens.h"

namespace {

TEST_F(ViewTest, ShowsTheLogicsStateAndAFamilyPickedTakesTheWorkingCopy) {
  EXPECT_EQ(view.windowTitle().toStdString(), FrmRavolin::kCaption);
  EXPECT_EQ(Shows("TxtThema") + "|" + Shows("TxtOrigTemp") + "|" + Shows("CboPipes"),
            "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ|85|Φ16x1");
  EXPECT_EQ(Find<QComboBox>("CboPipes")->count(), 2);
  QAbstractItemModel* model = Find<QTableView>("Grid")->model();
  EXPECT_EQ(std::pair(model->rowCount(), model->columnCount()), std::pair(8, 14));
  EXPECT_EQ(model->headerData(9, Qt::Horizontal).toString(),
            GridModel::HeadForDisplay("ΤΥΠΟΣ ΘΕΡΜΑ- ΝΤΙΚΟΥ ΣΩΜΑ- ΤΟΣ"));
  logic.Grid.SetText(2, 3, "20");
  view.Kit().Render();
  EXPECT_EQ(model->data(model->index(1, 2)).toString(), QStringLiteral("20"));
  auto* families = Find<QComboBox>("CboSomata");
  ASSERT_EQ(families->count(), 2);
  EXPECT_EQ(families->currentText().toStdString(), kSectionFamilyCategory);
  EXPECT_EQ(families->itemText(1), QStringLiteral("Χαλύβδινα Πάνελ"));
  emit families->activated(1);
  EXPECT_EQ(state.SomaCategory, 2);
  EXPECT_EQ(logic.Grid.List(1, 10), std::vector<std::string>{"22/600"});
}

// A text longer than its box shows from its start, whether the program set it or the engineer
// typed it and left.
TEST_F(ViewTest, ALongTextShowsItsStartInABoxNotBeingTypedIn) {
  const std::string owner = "Οικία Παπαδόπουλου Ιωάννη και Μαρίας, Αθήνα";
  logic.TxtOwnership.Text = owner;
  view.Kit().Render();
  auto* box = Find<QLineEdit>("TxtOwnership");
  EXPECT_EQ(box->cursorPosition(), 0);
  box->setFocus();
  box->end(false);
  QTest::keyClicks(box, "x");
  QTest::keyClick(box, Qt::Key_Tab);
  EXPECT_EQ(logic.TxtOwnership.Text, owner + "x");
  EXPECT_EQ(box->cursorPosition(), 0);
}

// Every caption whole and every command with its button and tip, on the smallest display.
TEST_F(ViewTest, TheWindowFitsTheSmallestDisplayWithEveryCaptionWholeAndEveryTip) {
  EXPECT_LE(view.frameGeometry().width(), 1024);
  EXPECT_LE(view.frameGeometry().height(), 768);
  for (const auto& [name, control] : logic.Controls()) {
    const bool command = control.Kind == ControlKind::Command;
    if (!command && !name.starts_with("Lbl")) continue;
    QWidget* widget = Find(name);
    ASSERT_NE(widget, nullptr) << name;
    EXPECT_GE(widget->width(), widget->sizeHint().width()) << name;
    EXPECT_LE(widget->geometry().right(), view.width()) << name;
    if (command) {
      EXPECT_EQ(widget->toolTip().toStdString(), control.Tip) << name;
    }
  }
  auto* grid = Find<QTableView>("Grid");
  int gridWidth = grid->verticalHeader()->width();
  for (int col = 0; col < 14; ++col) gridWidth += grid->columnWidth(col);
  EXPECT_LE(gridWidth, grid->width());
}

TEST_F(ViewTest, TypingGoesThroughTheFieldsFilterAndLeavingItRunsItsCheck) {
  auto* drop = Find<FilteredLineEdit>("TxtTempDrop");
  drop->setFocus();
  QTest::keyClick(drop, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(drop, "1x5");
  EXPECT_EQ(logic.TxtTempDrop.Text, "15");
  QTest::keyClick(drop, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(drop, "7");
  Find("TxtOwnership")->setFocus();
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(drop->text(), QStringLiteral("20"));  // the value it had when it took the focus
}

TEST_F(ViewTest, F1OpensTheManualWhicheverControlHasTheFocusAndSaysWhenItCannot) {
  QWidget* grid = Find("Grid");
  QWidget* owner = Find("TxtOwnership");
  grid->setFocus();
  QTest::keyClick(grid, Qt::Key_F1);  // no manual: silence
  EXPECT_TRUE(platform.Opened.empty());
  WriteAllBytes(folder / "RM.pdf", "%PDF");
  QTest::keyClick(grid, Qt::Key_F1);
  owner->setFocus();
  QTest::keyClick(owner, Qt::Key_F1);
  EXPECT_EQ(platform.Opened, (std::vector<std::string>{"RM.pdf", "RM.pdf"}));
  EXPECT_TRUE(prompter.History().empty());
  platform.CanOpenDocuments = false;  // a desktop without a PDF viewer
  QTest::keyClick(owner, Qt::Key_F1);
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(prompter.History()[0].Box.Lines, RavoMessageBox(RavoMessage::ManualNotOpened).Lines);
}

// A key on the grid or a click on a button reaches its command, and the grid shows at once what
// the command left.
TEST_F(ViewTest, KeysAndButtonsReachTheirCommandsAndTheGridShowsWhatTheyLeft) {
  Header();
  struct Case {
    const char* What;
    int Rows;  // 1000 in the first, 800 in the second
    std::pair<int, int> Active;
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
    const char* Button;  // clicked instead of the key
    std::pair<int, int> Cell;
    const char* Shown;
  } cases[] = {
      {"number pad minus, yes",
       2,
       {1, 1},
       Qt::Key_Minus,
       Qt::KeypadModifier,
       nullptr,
       {1, 2},
       "800"},
      {"F5", 2, {2, 2}, Qt::Key_F5, Qt::NoModifier, nullptr, {2, 2}, "1000"},
      {"one row up", 2, {2, 1}, Qt::Key_unknown, Qt::NoModifier, "CmdOneRowUp", {1, 2}, "800"},
      {"calculate", 1, {1, 1}, Qt::Key_unknown, Qt::NoModifier, "CmdCalc", {1, 11}, "13/II/905"},
  };
  auto* grid = Find<QTableView>("Grid");
  prompter.QueueAnswer(Answer::Yes);  // to the question of the removal
  for (const Case& c : cases) {
    SCOPED_TRACE(c.What);
    logic.Grid.ClearAll();
    Row(1, "1000");
    if (c.Rows == 2) Row(2, "800");
    logic.Grid.SetActiveCell(c.Active.first, c.Active.second);
    view.Kit().Render();
    grid->setFocus();
    if (c.Button)
      QTest::mouseClick(Find<QPushButton>(c.Button), Qt::LeftButton);
    else
      QTest::keyClick(grid, c.Key, c.Modifiers);
    EXPECT_EQ(grid->model()->index(c.Cell.first - 1, c.Cell.second - 1).data().toString(),
              QString::fromUtf8(c.Shown));
  }
  EXPECT_EQ(Shows("TxtFlow"), "50,0");
  EXPECT_EQ(prompter.History().size(), 1u);  // the question, answered
}

TEST_F(ViewTest, TheEngineerButtonOpensTheNamesList) {
  int opened = 0;
  screens.Wire(FrmCLient::kName, [&] { ++opened; });
  QTest::mouseClick(Find<QPushButton>("Cmd_Client"), Qt::LeftButton);
  EXPECT_EQ(opened, 1);
}

TEST_F(ViewTest, ShiftTabInTheAddingDialogGoesBackInTheOrderOfTheFields) {
  FrmRavoAdd add(logic, state, prompter, screens);
  FrmRavoAddView dialog(add, boundary, &view);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
  dialog.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  dialog.Kit().Widget("TxtSomaName")->setFocus();
  QTest::keyClick(dialog.Kit().Widget("TxtSomaName"), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(QApplication::focusWidget(), dialog.Kit().Widget("TxtAdded"));
}

TEST_F(ViewTest, TheSheetsListSelectsThroughTheLogicAndCopies) {
  LoopRecord row;
  row.SheetNo = row.RowNo = 1;
  row.SomaNo = "Κ1";
  row.Load = 750;
  row.RoomTemp = 22;
  row.SomaType = "II/655";
  RecordFile<LoopRecord>(folder / "LOOPS.TMP").Write(1, row);
  SheetRecord sheet;
  sheet.SheetNo = 1;
  sheet.SomaCategoryNo = 1;
  RecordFile<SheetRecord>(folder / "SHEETS.TMP").Write(1, sheet);
  FrmRavoSheets sheets(logic, state, prompter);
  FrmRavoSheetsView dialog(sheets, boundary, &view);
  auto* list = dialog.Kit().Widget<QListWidget>("LstSheets");
  ASSERT_EQ(list->count(), 1);
  EXPECT_EQ(list->item(0)->text(), QStringLiteral("Φύλλο Υπολογισμών Νο : 001"));
  EXPECT_EQ(sheets.LstSheets.SelectedIndex(), 0);
  QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("CmdOK")), Qt::LeftButton);
  EXPECT_TRUE(sheets.Accepted());
  EXPECT_EQ(logic.Grid.Text(1, 2) + "|" + logic.Grid.Text(1, 10), "750|II/655");
}

TEST_F(ViewTest, TheOldStudyQuestionAnswersThroughTheLogic) {
  FrmOldStudy old(logic, ws);
  FrmOldStudyView dialog(old, boundary, &view);
  dialog.show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
  EXPECT_LE(dialog.frameGeometry().width(), 1024);
  auto* list = dialog.findChild<QListWidget*>(QStringLiteral("List1"));
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->count(), 5);
  WriteAllBytes(folder / "SHEETS.TMP", std::string(196, '\0'));
  QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("Command2")), Qt::LeftButton);
  EXPECT_TRUE(old.Closed());
  EXPECT_FALSE(std::filesystem::exists(folder / "SHEETS.TMP"));
}

TEST_F(ViewTest, TheStudyBrowserShowsTheStudiesAndTheirFile) {
  SheetRecord first;
  first.SheetNo = 1;
  first.Thema = "Πολυκατοικία οδού Ερμού";
  RecordFile<SheetRecord>(folder / "RVLFiles" / "Ερμού.sht").Write(1, first);
  FrmOpenSave_M browser(logic, ws, state);
  FrmOpenSave_MView dialog(browser, boundary, &view);
  auto* list = dialog.Kit().Widget<QListWidget>("LstStudies");
  ASSERT_EQ(list->count(), 1);
  EXPECT_EQ(list->item(0)->text(), QStringLiteral("(0001.) Πολυκατοικία οδού Ερμού"));
  list->setCurrentRow(0);
  EXPECT_EQ(browser.LblFileName.Text, "Ερμού.sht");
  EXPECT_EQ(ShownText(dialog.Kit().Widget("LblFileName")), "Ερμού.sht");
  EXPECT_FALSE(browser.Closed());
}

// Every screen of every subsystem has a view, and every control of its table a widget kind
// the kit can make: a screen left without one fails here, not at a click.
TEST_F(ViewTest, EveryScreenHasAView) {
  for (const char* name : kSheetsScreens) EXPECT_TRUE(views.Has(name)) << name;
  for (const char* name : kNamesScreens) EXPECT_TRUE(views.Has(name)) << name;
  for (const auto& [name, control] : logic.Controls())
    EXPECT_NE(view.Kit().Make(name), nullptr) << name;
}

}  // namespace
