// The main screen's view on the offscreen platform: the widgets show the logic's state and the
// keys and edits reach its handlers.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

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

TEST_F(ViewTest, ShowsTheLogicsCaptionFieldsAndGrid) {
  EXPECT_EQ(view.windowTitle().toStdString(), FrmRavolin::kCaption);
  EXPECT_EQ(view.Kit().Widget<FilteredLineEdit>("TxtThema")->text().toStdString(),
            "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ");
  EXPECT_EQ(view.Kit().Widget<FilteredLineEdit>("TxtOrigTemp")->text(), QStringLiteral("85"));
  EXPECT_EQ(view.Kit().Widget<QComboBox>("CboPipes")->count(), 2);
  EXPECT_EQ(view.Kit().Widget<QComboBox>("CboPipes")->currentText(), QStringLiteral("Φ16x1"));
  QAbstractItemModel* model = view.Kit().Widget<QTableView>("Grid")->model();
  EXPECT_EQ(model->rowCount(), 8);
  EXPECT_EQ(model->columnCount(), 14);
  EXPECT_EQ(model->headerData(9, Qt::Horizontal).toString(),
            GridModel::HeadForDisplay("ΤΥΠΟΣ ΘΕΡΜΑ- ΝΤΙΚΟΥ ΣΩΜΑ- ΤΟΣ"));
  logic.Grid.SetText(2, 3, "20");
  view.Kit().Render();
  EXPECT_EQ(model->data(model->index(1, 2)).toString(), QStringLiteral("20"));
}

TEST_F(ViewTest, TheWindowFitsTheSmallestSupportedDisplayWithCaptionsUnclipped) {
  EXPECT_LE(view.frameGeometry().width(), 1024);
  EXPECT_LE(view.frameGeometry().height(), 768);
  for (const auto& [name, control] : logic.Controls()) {
    if (!name.starts_with("Lbl")) continue;
    auto* label = view.Kit().Widget<QLabel>(name);
    ASSERT_NE(label, nullptr) << name;
    EXPECT_GE(label->width(), label->sizeHint().width()) << name;
  }
  int gridWidth = view.Kit().Widget<QTableView>("Grid")->verticalHeader()->width();
  for (int col = 0; col < 14; ++col)
    gridWidth += view.Kit().Widget<QTableView>("Grid")->columnWidth(col);
  EXPECT_LE(gridWidth, view.Kit().Widget<QTableView>("Grid")->width());
}

TEST_F(ViewTest, TypingGoesThroughTheFieldsFilterAndLeavingItRunsItsCheck) {
  FilteredLineEdit* drop = view.Kit().Widget<FilteredLineEdit>("TxtTempDrop");
  drop->setFocus();
  QTest::keyClick(drop, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(drop, "1x5");
  EXPECT_EQ(logic.TxtTempDrop.Text, "15");
  QTest::keyClick(drop, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(drop, "7");
  view.Kit().Widget<FilteredLineEdit>("TxtOwnership")->setFocus();
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(drop->text(), QStringLiteral("20"));  // the value it had when it took the focus
}

TEST_F(ViewTest, F1OpensTheManualWhicheverControlHasTheFocusAndSaysWhenItCannot) {
  view.Kit().Widget<QTableView>("Grid")->setFocus();
  QTest::keyClick(view.Kit().Widget<QTableView>("Grid"), Qt::Key_F1);  // no manual: silence
  EXPECT_TRUE(platform.Opened.empty());
  WriteAllBytes(folder / "RM.pdf", "%PDF");
  QTest::keyClick(view.Kit().Widget<QTableView>("Grid"), Qt::Key_F1);
  view.Kit().Widget<FilteredLineEdit>("TxtOwnership")->setFocus();
  QTest::keyClick(view.Kit().Widget<FilteredLineEdit>("TxtOwnership"), Qt::Key_F1);
  EXPECT_EQ(platform.Opened, (std::vector<std::string>{"RM.pdf", "RM.pdf"}));
  EXPECT_TRUE(prompter.History().empty());
  platform.CanOpenDocuments = false;  // a desktop without a PDF viewer
  QTest::keyClick(view.Kit().Widget<FilteredLineEdit>("TxtOwnership"), Qt::Key_F1);
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(prompter.History()[0].Box.Lines, RavoMessageBox(RavoMessage::ManualNotOpened).Lines);
}

TEST_F(ViewTest, TheFamiliesComboShowsTheFamiliesAndAPickTakesTheWorkingCopy) {
  ASSERT_EQ(view.Kit().Widget<QComboBox>("CboSomata")->count(), 2);
  EXPECT_EQ(view.Kit().Widget<QComboBox>("CboSomata")->currentText().toStdString(),
            kSectionFamilyCategory);
  EXPECT_EQ(view.Kit().Widget<QComboBox>("CboSomata")->itemText(1),
            QStringLiteral("Χαλύβδινα Πάνελ"));
  emit view.Kit().Widget<QComboBox>("CboSomata")->activated(1);
  EXPECT_EQ(state.SomaCategory, 2);
  EXPECT_EQ(logic.Grid.List(1, 10), std::vector<std::string>{"22/600"});
}

TEST_F(ViewTest, TheCalculateButtonCarriesItsTipAndCalculates) {
  Header();
  Row(1, "1000");
  ASSERT_EQ(view.Kit().Widget<QPushButton>("CmdCalc")->toolTip().toStdString(),
            FrmRavolin::kCalcTip);
  QTest::mouseClick(view.Kit().Widget<QPushButton>("CmdCalc"), Qt::LeftButton);
  EXPECT_EQ(logic.Grid.Text(1, 11), "13/II/905");
  EXPECT_EQ(view.Kit().Widget<QLabel>("TxtFlow")->text(), QStringLiteral("50,0"));
}

class ViewKeysTest : public ViewTest {
 protected:
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    view.Kit().Widget<QTableView>("Grid")->setFocus();
    QTest::keyClick(view.Kit().Widget<QTableView>("Grid"), key, modifiers);
  }
};

TEST_F(ViewKeysTest, TheNumberPadsMinusRemovesTheActiveRadiatorAfterTheQuestion) {
  Row(1, "1000");
  Row(2, "800");
  logic.Grid.SetActiveCell(1, 1);
  view.Kit().Render();
  prompter.QueueAnswer(Answer::Yes);
  Press(Qt::Key_Minus, Qt::KeypadModifier);
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(logic.Grid.Text(1, 2), "800");
  EXPECT_EQ(logic.Grid.DataRowCount(), 1);
  EXPECT_EQ(view.Kit().Widget<QLabel>("TxtLoopLoad")->text(), QStringLiteral("800"));
}

TEST_F(ViewKeysTest, F5CopiesTheRowAbove) {
  Row(1, "1000");
  logic.Grid.SetText(2, 1, "2");
  logic.Grid.SetActiveCell(2, 2);
  view.Kit().Render();
  Press(Qt::Key_F5);
  EXPECT_EQ(logic.Grid.Text(2, 2), "1000");
}

TEST_F(ViewKeysTest, EveryRowCommandHasItsButtonAndTip) {
  for (const auto& [name, command] : logic.Controls()) {
    if (command.Kind != ControlKind::Command || name == "CmdCalc") continue;
    QPushButton* button = view.Kit().Widget<QPushButton>(name);
    ASSERT_NE(button, nullptr) << name;
    EXPECT_EQ(button->toolTip().toStdString(), command.Tip) << name;
    EXPECT_GE(button->width(), button->sizeHint().width()) << name;  // caption whole
    EXPECT_LE(button->geometry().right(), view.width()) << name;
  }
  Row(1, "1000");
  Row(2, "800");
  logic.Grid.SetActiveCell(2, 1);
  view.Kit().Render();
  QTest::mouseClick(view.Kit().Widget<QPushButton>("CmdOneRowUp"), Qt::LeftButton);
  EXPECT_EQ(logic.Grid.Text(1, 2), "800");
  EXPECT_EQ(logic.Grid.ActiveRow(), 1);
}

TEST_F(ViewTest, TheAddingDialogShowsItsFieldsAndAddsThroughTheLogic) {
  FrmRavoAdd add(logic, state, prompter, screens);
  FrmRavoAddView dialog(add, boundary, &view);
  dialog.show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
  if (const char* shot = std::getenv("RAVO_SHOT")) dialog.grab().save(QString::fromUtf8(shot));
  EXPECT_LE(dialog.frameGeometry().width(), 1024);
  EXPECT_EQ(dialog.windowTitle().toStdString(), FrmRavoAdd::kCaption);
  EXPECT_EQ(dialog.Kit().Widget<QComboBox>("CboRoomTemp")->currentText(), QStringLiteral("20"));
  FilteredLineEdit* added = dialog.Kit().Widget<FilteredLineEdit>("TxtAdded");
  added->setFocus();
  QTest::keyClicks(added, "12a5");
  EXPECT_EQ(added->text(), QStringLiteral("125"));
  FilteredLineEdit* name = dialog.Kit().Widget<FilteredLineEdit>("TxtSomaName");
  name->setFocus();
  QTest::keyClicks(name, "WC-ROOM");
  EXPECT_EQ(name->text(), QStringLiteral("WC-RO"));
  dialog.activateWindow();  // Shift-Tab goes back to the load, in the order of the fields
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  name->setFocus();
  QTest::keyClick(name, Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(QApplication::focusWidget(), added);
  QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("CmdOK")), Qt::LeftButton);
  EXPECT_EQ(logic.Grid.Text(1, 1), "WC-RO");
  EXPECT_EQ(logic.Grid.Text(1, 2), "125");
  QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("CmdCancel")), Qt::LeftButton);
  EXPECT_TRUE(add.Closed());
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ViewTest, TheSheetsListSelectsThroughTheLogicAndCopies) {
  LoopRecord row;
  row.SheetNo = 1;
  row.RowNo = 1;
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
  EXPECT_EQ(logic.Grid.Text(1, 2), "750");
  EXPECT_EQ(logic.Grid.Text(1, 10), "II/655");
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
  EXPECT_EQ(dialog.Kit().Widget<QLabel>("LblFileName")->text(), QStringLiteral("Ερμού.sht"));
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
