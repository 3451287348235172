#include "FrmOldStudyView.h"

#include <QApplication>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

FrmOldStudyView::FrmOldStudyView(FrmOldStudy& logic, CommandBoundary& boundary, QWidget* parent)
    : DialogView(logic, boundary, parent) {
  auto* layout = new QVBoxLayout(this);
  auto* heading = Kit().Make<QLabel>("Label1");
  heading->setAlignment(Qt::AlignCenter);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  layout->addWidget(heading);
  auto* list = Kit().Make<QListWidget>("List1");
  // The lines are centred with blanks: a fixed-width font keeps them centred.
  list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  list->setSelectionMode(QAbstractItemView::NoSelection);
  list->setMinimumWidth(list->sizeHintForColumn(0) + 2 * list->frameWidth() + 8);
  list->setFixedHeight(list->sizeHintForRow(0) * list->count() + 2 * list->frameWidth() + 4);
  layout->addWidget(list);
  auto* wait = Kit().Make<QLabel>("Lbl_Wait");
  wait->setAlignment(Qt::AlignCenter);
  layout->addWidget(wait);
  auto* buttons = new QHBoxLayout();
  auto* yes = Kit().Make<QPushButton>("Command1");
  // The notice shows before the revival starts, which takes a moment.
  connect(yes, &QPushButton::pressed, this, [wait] {
    wait->setVisible(true);
    QApplication::processEvents();
  });
  buttons->addStretch(1);
  buttons->addWidget(yes);
  buttons->addWidget(Kit().Make("Command2"));
  buttons->addStretch(1);
  layout->addLayout(buttons);
  Kit().Render();
}
