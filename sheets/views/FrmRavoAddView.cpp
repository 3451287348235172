#include "FrmRavoAddView.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "FilteredLineEdit.h"

FrmRavoAddView::FrmRavoAddView(FrmRavoAdd& logic, CommandBoundary& boundary, QWidget* parent)
    : DialogView(logic, boundary, parent) {
  auto* layout = new QGridLayout(this);
  // The widgets are made in the order Tab visits them.
  const std::pair<const char*, const char*> rows[] = {
      {"LblAdded", "TxtAdded"}, {"LblSomaName", "TxtSomaName"}, {"LblRoomTemp", "CboRoomTemp"}};
  int row = 0;
  for (const auto& [caption, field] : rows) {
    Kit().Make<QLabel>(caption)->setWordWrap(true);
    layout->addWidget(Kit().Make(caption), row, 0);
    Kit().Make(field)->setMaximumWidth(120);
    layout->addWidget(Kit().Make(field), row++, 1);
  }
  auto* buttons = new QHBoxLayout();
  for (const char* name : {"CmdOK", "CmdSame", "CmdCancel"}) {
    // Enter belongs to the fields, which move the focus on with it.
    Kit().Make<QPushButton>(name)->setAutoDefault(false);
    buttons->addWidget(Kit().Make(name));
  }
  layout->addLayout(buttons, row, 0, 1, 2);
  Kit().Widget<FilteredLineEdit>("TxtSomaName")->SetSelectionStart([&logic] {
    return logic.SomaNameSelectionStart();
  });
  setMinimumWidth(720);
  OpenBelow("Grid");
  Kit().Render();
  Kit().ApplyFocus();
}
