#pragma once
// The main screen and its view on the offscreen platform, over a program folder with two pipes,
// the section radiators and one panel family, shown and active.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "FakePlatform.h"
#include "FrmRavolinView.h"
#include "QtScreens.h"
#include "TempFolder.h"
#include "TypeFiles.h"

// The text a widget shows: a label's, a box's, a button's, a drop-down's entry.
inline std::string ShownText(const QWidget* widget) {
  if (auto* label = qobject_cast<const QLabel*>(widget)) return label->text().toStdString();
  if (auto* box = qobject_cast<const QLineEdit*>(widget)) return box->text().toStdString();
  if (auto* list = qobject_cast<const QComboBox*>(widget)) return list->currentText().toStdString();
  if (auto* button = qobject_cast<const QAbstractButton*>(widget))
    return button->text().toStdString();
  return "(no text)";
}

// Runs `act`, answering with Enter every message box it raises; `onBox` sees each box first.
// Gives the number of boxes.
inline int AnswerBoxesWithEnter(const std::function<void()>& act,
                                const std::function<void()>& onBox = {}) {
  int boxes = 0;
  bool waiting = true;
  std::function<void()> answer = [&] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      ++boxes;
      if (onBox) onBox();
      QTest::keyClick(box, Qt::Key_Return);
    }
    if (waiting) QTimer::singleShot(10, answer);
  };
  QTimer::singleShot(0, answer);
  act();
  waiting = false;
  QTest::qWait(30);
  return boxes;
}

// `P` shows the boxes: scripted answers, or real boxes on the screen.
template <class P>
class MainViewTest : public ::testing::Test {
 protected:
  MainViewTest() : ws(folder.Path()) {
    platform.Seps = {U',', U'.'};
    WriteAllBytes(folder / "RavoPipes.txt",
                  "\xD6"
                  "16x1\r\n\xD6"
                  "18x1\r\n");
    WriteTypeFile(folder / kSectionFamilyMaster, 1, kSectionFamilyCategory, SectionModels(1));
    WriteTypeFile(folder / "Πάνελ.ths", 2, "Χαλύβδινα Πάνελ (EN 442)",
                  {Stepped("22/600", 150, 0.25f, 100, "400", 4, 30, "")});
    screens.Attach(boundary, &view);
    if constexpr (requires { prompter.SetParent(&view); }) prompter.SetParent(&view);
    logic.Form_Load();
    view.Kit().Render();
    view.show();
    view.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    view.Kit().ApplyFocus();
  }
  // A radiator in a row: its name is the row's number, 20°C, the first section model.
  void Row(int row, const char* load) {
    for (const auto& [col, text] : {std::pair{1, std::to_string(row)},
                                    {2, std::string(load)},
                                    {3, std::string("20")},
                                    {10, std::string("II/905")}})
      logic.Grid.SetText(row, col, text);
    view.Kit().Render();
  }
  template <class W = QWidget>
  W* Find(const std::string& name) {
    return view.Kit().Widget<W>(name);
  }
  std::string Shows(const std::string& name) { return ShownText(Find(name)); }
  // The header fields a calculation needs.
  void Header() {
    for (auto [name, text] :
         {std::pair{"TxtOwnership", "Οικία"}, {"TxtLoopNo", "Κ1"}, {"TxtLoopLength", "10"}})
      logic.Controls().at(name).Type(text);
  }

  TempFolder folder;
  Workspace ws;
  StudyState state;
  P prompter;
  FakePlatform platform;
  CommandBoundary boundary{ws, prompter, state};
  ViewRegistry views = ProgramViews();
  QtScreens screens{views};
  FrmRavolin logic{ws, state, prompter, platform, boundary, screens};
  FrmRavolinView view{logic, boundary};
};

using ViewTest = MainViewTest<ScriptedPrompter>;
