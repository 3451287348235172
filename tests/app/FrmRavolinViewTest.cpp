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

#include "FakePlatform.h"
#include "FrmOldStudyView.h"
#include "FrmOpenSave_MView.h"
#include "FrmRavoAddView.h"
#include "FrmRavoSheetsView.h"
#include "FrmRavolinView.h"
#include "GridModel.h"
#include "QtScreens.h"
#include "TempFolder.h"
#include "TypeFiles.h"

namespace {

class ViewTest : public ::testing::Test {
 protected:
  ViewTest() : ws(folder.Path()) {
    platform.Seps = {U',', U'.'};
    WriteAllBytes(folder / "RavoPipes.txt",
                  "\xD6"
                  "16x1\r\n\xD6"
                  "18x1\r\n");
    WriteTypeFile(folder / kSectionFamilyMaster, 1, kSectionFamilyCategory, SectionModels(1));
    WriteTypeFile(folder / "Πάνελ.ths", 2, "Χαλύβδινα Πάνελ (EN 442)",
                  {Stepped("22/600", 150, 0.25f, 100, "400", 4, 30, "")});
    logic.Form_Load();
    view.Render();
    view.show();
    view.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    view.ApplyFocus();
  }
  TempFolder folder;
  Workspace ws;
  StudyState state;
  ScriptedPrompter prompter;
  FakePlatform platform;
  CommandBoundary boundary{ws, prompter};
  QtScreens screens{boundary};
  FrmRavolin logic{ws, state, prompter, platform, boundary, screens};
  FrmRavolinView view{logic, boundary};
};

TEST_F(ViewTest, ShowsTheLogicsCaptionFieldsAndGrid) {
  EXPECT_EQ(view.windowTitle().toStdString(), FrmRavolin::kCaption);
  EXPECT_EQ(view.TextBox("TxtThema")->text().toStdString(), "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ");
  EXPECT_EQ(view.TextBox("TxtOrigTemp")->text(), QStringLiteral("85"));
  EXPECT_EQ(view.Pipes()->count(), 2);
  EXPECT_EQ(view.Pipes()->currentText(), QStringLiteral("Φ16x1"));
  QAbstractItemModel* model = view.GridView()->model();
  EXPECT_EQ(model->rowCount(), 8);
  EXPECT_EQ(model->columnCount(), 14);
  EXPECT_EQ(model->headerData(9, Qt::Horizontal).toString(),
            GridModel::HeadForDisplay("ΤΥΠΟΣ ΘΕΡΜΑ- ΝΤΙΚΟΥ ΣΩΜΑ- ΤΟΣ"));
  logic.Grid.SetText(2, 3, "20");
  view.Render();
  EXPECT_EQ(model->data(model->index(1, 2)).toString(), QStringLiteral("20"));
}

TEST_F(ViewTest, TheWindowFitsTheSmallestSupportedDisplayWithCaptionsUnclipped) {
  EXPECT_LE(view.frameGeometry().width(), 1024);
  EXPECT_LE(view.frameGeometry().height(), 768);
  for (const auto& caption : FrmRavolin::Captions()) {
    auto* label = view.findChild<QLabel*>(QString::fromLatin1(caption.Label));
    ASSERT_NE(label, nullptr) << caption.Label;
    EXPECT_GE(label->width(), label->sizeHint().width()) << caption.Label;
  }
  int gridWidth = view.GridView()->verticalHeader()->width();
  for (int col = 0; col < 14; ++col) gridWidth += view.GridView()->columnWidth(col);
  EXPECT_LE(gridWidth, view.GridView()->width());
}

TEST_F(ViewTest, TypingGoesThroughTheFieldsFilter) {
  FilteredLineEdit* drop = view.TextBox("TxtTempDrop");
  drop->setFocus();
  QTest::keyClick(drop, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(drop, "1x5");
  EXPECT_EQ(drop->text(), QStringLiteral("15"));
  EXPECT_EQ(logic.TxtTempDrop.Text, "15");
}

TEST_F(ViewTest, LeavingAFieldRunsItsCheck) {
  FilteredLineEdit* drop = view.TextBox("TxtTempDrop");
  drop->setFocus();
  QTest::keyClick(drop, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(drop, "7");
  view.TextBox("TxtOwnership")->setFocus();
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(drop->text(), QStringLiteral("20"));
}

TEST_F(ViewTest, F1ReachesTheFormWhicheverControlHasTheFocus) {
  WriteAllBytes(folder / "RM.pdf", "%PDF");
  view.GridView()->setFocus();
  QTest::keyClick(view.GridView(), Qt::Key_F1);
  view.TextBox("TxtOwnership")->setFocus();
  QTest::keyClick(view.TextBox("TxtOwnership"), Qt::Key_F1);
  EXPECT_EQ(platform.Opened, (std::vector<std::string>{"RM.pdf", "RM.pdf"}));
}

TEST_F(ViewTest, AnEditOfTheGridReachesTheLogic) {
  QAbstractItemModel* model = view.GridView()->model();
  EXPECT_TRUE(model->setData(model->index(0, 1), QStringLiteral("1000"), Qt::EditRole));
  EXPECT_EQ(logic.Grid.Text(1, 2), "1000");
  EXPECT_EQ(logic.Grid.ActiveRow(), 1);
  EXPECT_EQ(logic.Grid.ActiveCol(), 2);
}

TEST_F(ViewTest, TheFamiliesComboShowsTheFamiliesAndAPickTakesTheWorkingCopy) {
  ASSERT_EQ(view.Somata()->count(), 2);
  EXPECT_EQ(view.Somata()->currentText().toStdString(), kSectionFamilyCategory);
  EXPECT_EQ(view.Somata()->itemText(1), QStringLiteral("Χαλύβδινα Πάνελ"));
  emit view.Somata()->activated(1);
  EXPECT_EQ(state.SomaCategory, 2);
  EXPECT_EQ(logic.Grid.List(1, 10), std::vector<std::string>{"22/600"});
}

TEST_F(ViewTest, TheModelCellOpensADropDownOfTheFamilysModels) {
  QAbstractItemView* grid = view.GridView();
  const QModelIndex cell = grid->model()->index(0, 9);
  QWidget* editor = grid->itemDelegate()->createEditor(grid->viewport(), {}, cell);
  auto* combo = qobject_cast<QComboBox*>(editor);
  ASSERT_NE(combo, nullptr);
  EXPECT_EQ(combo->count(), 12);
  EXPECT_EQ(combo->itemText(0), QStringLiteral("II/905"));
  combo->setCurrentIndex(4);
  grid->itemDelegate()->setModelData(combo, grid->model(), cell);
  EXPECT_EQ(logic.Grid.Text(1, 10), "III/905");
  delete editor;
  // A cell without a list keeps the plain editor.
  QWidget* plain =
      grid->itemDelegate()->createEditor(grid->viewport(), {}, grid->model()->index(0, 1));
  EXPECT_EQ(qobject_cast<QComboBox*>(plain), nullptr);
  delete plain;
}

TEST_F(ViewTest, F10AndTheButtonCalculateTheSheet) {
  for (auto [name, text] :
       {std::pair{"TxtOwnership", "Οικία"}, {"TxtLoopNo", "Κ1"}, {"TxtLoopLength", "10"}})
    logic.Controls().at(name).Type(text);
  logic.Grid.SetText(1, 1, "1");
  logic.Grid.SetText(1, 2, "1000");
  logic.Grid.SetText(1, 3, "20");
  logic.Grid.SetText(1, 10, "II/905");
  view.Render();
  view.GridView()->setFocus();
  QTest::keyClick(view.GridView(), Qt::Key_F10);
  EXPECT_EQ(view.GridView()->model()->data(view.GridView()->model()->index(0, 10)).toString(),
            QStringLiteral("13/II/905"));
  EXPECT_EQ(view.TextBox("TxtFlow")->text(), QStringLiteral("50,0"));
  logic.DeleteResultsCells();
  view.Render();
  ASSERT_EQ(view.CalcButton()->toolTip().toStdString(), FrmRavolin::kCalcTip);
  QTest::mouseClick(view.CalcButton(), Qt::LeftButton);
  EXPECT_EQ(logic.Grid.Text(1, 11), "13/II/905");
}

class ViewKeysTest : public ViewTest {
 protected:
  void Row(int row, const char* load) {
    logic.Grid.SetText(row, 1, std::to_string(row));
    logic.Grid.SetText(row, 2, load);
    logic.Grid.SetText(row, 3, "20");
    logic.Grid.SetText(row, 10, "II/905");
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    view.GridView()->setFocus();
    QTest::keyClick(view.GridView(), key, modifiers);
  }
};

TEST_F(ViewKeysTest, TheNumberPadsMinusRemovesTheActiveRadiatorAfterTheQuestion) {
  Row(1, "1000");
  Row(2, "800");
  logic.Grid.SetActiveCell(1, 1);
  view.Render();
  prompter.QueueAnswer(Answer::Yes);
  Press(Qt::Key_Minus, Qt::KeypadModifier);
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(logic.Grid.Text(1, 2), "800");
  EXPECT_EQ(logic.Grid.DataRowCount(), 1);
  EXPECT_EQ(view.TextBox("TxtLoopLoad")->text(), QStringLiteral("800"));
}

TEST_F(ViewKeysTest, TheNumberPadsPlusOpensTheAddingDialog) {
  int dialogs = 0;
  QTimer::singleShot(0, [&] {
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* dialog = qobject_cast<QDialog*>(w); dialog && dialog->isVisible()) {
        ++dialogs;
        EXPECT_EQ(dialog->objectName(), QStringLiteral("FrmRavoAdd"));
        dialog->reject();
      }
  });
  Press(Qt::Key_Plus, Qt::KeypadModifier);
  EXPECT_EQ(dialogs, 1);
}

TEST_F(ViewKeysTest, F5CopiesTheRowAboveAndF2OpensTheLockedColumns) {
  Row(1, "1000");
  logic.Grid.SetText(2, 1, "2");
  logic.Grid.SetActiveCell(2, 2);
  view.Render();
  Press(Qt::Key_F5);
  EXPECT_EQ(logic.Grid.Text(2, 2), "1000");
  for (int col = 1; col <= 3; ++col) logic.Grid.SetLocked(1, col, true);
  logic.Grid.SetActiveCell(1, 2);
  view.Render();
  EXPECT_FALSE(view.GridView()->model()->flags(view.GridView()->model()->index(0, 1)) &
               Qt::ItemIsEditable);
  Press(Qt::Key_F2);
  EXPECT_TRUE(view.GridView()->model()->flags(view.GridView()->model()->index(0, 1)) &
              Qt::ItemIsEditable);
}

TEST_F(ViewKeysTest, EveryRowCommandHasItsButtonAndTip) {
  for (const auto& command : FrmRavolin::CommandButtons()) {
    if (std::string(command.Name) == "CmdCalc") continue;
    QPushButton* button = view.Button(command.Name);
    EXPECT_EQ(button->toolTip().toStdString(), command.Tip) << command.Name;
    EXPECT_GE(button->width(), button->sizeHint().width()) << command.Name;  // caption whole
    EXPECT_LE(button->geometry().right(), view.width()) << command.Name;
  }
  Row(1, "1000");
  Row(2, "800");
  logic.Grid.SetActiveCell(2, 1);
  view.Render();
  QTest::mouseClick(view.Button("CmdOneRowUp"), Qt::LeftButton);
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
  EXPECT_EQ(dialog.RoomTemp()->currentText(), QStringLiteral("20"));
  FilteredLineEdit* added = dialog.TextBox("TxtAdded");
  added->setFocus();
  QTest::keyClicks(added, "12a5");
  EXPECT_EQ(added->text(), QStringLiteral("125"));
  FilteredLineEdit* name = dialog.TextBox("TxtSomaName");
  name->setFocus();
  QTest::keyClicks(name, "WC-ROOM");
  EXPECT_EQ(name->text(), QStringLiteral("WC-RO"));
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
  FrmRavoSheets sheets(logic, ws, state, prompter);
  FrmRavoSheetsView dialog(sheets, boundary, &view);
  ASSERT_EQ(dialog.List()->count(), 1);
  EXPECT_EQ(dialog.List()->item(0)->text(), QStringLiteral("Φύλλο Υπολογισμών Νο : 001"));
  EXPECT_EQ(sheets.LstSheets.SelectedIndex(), 0);
  QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("CmdOK")), Qt::LeftButton);
  EXPECT_TRUE(sheets.Copied);
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
  ASSERT_EQ(dialog.List()->count(), 1);
  EXPECT_EQ(dialog.List()->item(0)->text(), QStringLiteral("(0001.) Πολυκατοικία οδού Ερμού"));
  dialog.List()->setCurrentRow(0);
  EXPECT_EQ(browser.LblFileName.Text, "Ερμού.sht");
  EXPECT_FALSE(browser.Closed());
}

}  // namespace
