#include "FrmOpenSave_MView.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

FrmOpenSave_MView::FrmOpenSave_MView(FrmOpenSave_M& logic, CommandBoundary& boundary,
                                     QWidget* parent)
    : DialogView(logic, boundary, parent) {
  auto* layout = new QVBoxLayout(this);
  auto* list = Kit().Make<QListWidget>("LstStudies");
  layout->addWidget(list);
  auto* details = new QGridLayout();
  const std::pair<const char*, const char*> rows[] = {{"LblFileNameCaption", "LblFileName"},
                                                      {"LblFilePathCaption", "LblFilePath"},
                                                      {"LblFileDateCaption", "LblFileDate"},
                                                      {"LblFileTimeCaption", "LblFileTime"}};
  int row = 0;
  for (const auto& [caption, value] : rows) {
    details->addWidget(Kit().Make(caption), row, 0);
    Kit().Make<QLabel>(value)->setTextInteractionFlags(Qt::TextSelectableByMouse);
    details->addWidget(Kit().Make(value), row++, 1);
  }
  details->addWidget(Kit().Make("LblNumber"), row, 1);
  layout->addLayout(details);
  auto* buttons = new QHBoxLayout();
  buttons->addWidget(Kit().Make("CmdOpenSave"));
  buttons->addWidget(Kit().Make("CmdClassic"));
  buttons->addStretch(1);
  layout->addLayout(buttons);
  connect(list, &QListWidget::itemDoubleClicked, this,
          [this, &logic] { Kit().Run([&logic] { logic.CmdOpenSave_Click(); }); });
  Kit().Render();
  resize(640, 460);
}
