#include "FrmRavoSheetsView.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QVBoxLayout>

FrmRavoSheetsView::FrmRavoSheetsView(FrmRavoSheets& logic, CommandBoundary& boundary,
                                     QWidget* parent)
    : DialogView(logic, boundary, parent) {
  auto* layout = new QVBoxLayout(this);
  auto* list = Kit().Make<QListWidget>("LstSheets");
  layout->addWidget(list);
  connect(list, &QListWidget::itemDoubleClicked, this,
          [this, &logic] { Kit().Run([&logic] { logic.CmdOK_Click(); }); });
  auto* buttons = new QHBoxLayout();
  buttons->addWidget(Kit().Make("CmdOK"));
  buttons->addWidget(Kit().Make("CmdCancel"));
  layout->addLayout(buttons);
  // The first sheet stands selected, so that OK takes it at once.
  if (!logic.LstSheets.Items.empty())
    Kit().Run([&logic] { logic.Controls().at("LstSheets").Select({logic.LstSheets.Items[0]}); });
  resize(380, 320);
}
