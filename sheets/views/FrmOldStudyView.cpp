#include "FrmOldStudyView.h"

#include <QApplication>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

FrmOldStudyView::FrmOldStudyView(FrmOldStudy& logic, CommandBoundary& boundary, QWidget* parent)
    : QDialog(parent), logic_(logic), boundary_(boundary) {
  setObjectName(QStringLiteral("FrmOldStudy"));
  setWindowTitle(QString::fromStdString(logic_.Caption.Text).trimmed());
  auto* layout = new QVBoxLayout(this);
  auto* heading = new QLabel(QString::fromStdString(logic_.Label1.Text), this);
  heading->setAlignment(Qt::AlignCenter);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  layout->addWidget(heading);
  auto* list = new QListWidget(this);
  list->setObjectName(QStringLiteral("List1"));
  // The lines are centred with blanks: a fixed-width font keeps them centred.
  list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  for (const auto& line : logic_.List1.Items) list->addItem(QString::fromStdString(line));
  list->setSelectionMode(QAbstractItemView::NoSelection);
  list->setMinimumWidth(list->sizeHintForColumn(0) + 2 * list->frameWidth() + 8);
  list->setFixedHeight(list->sizeHintForRow(0) * list->count() + 2 * list->frameWidth() + 4);
  layout->addWidget(list);
  wait_ = new QLabel(QString::fromStdString(logic_.Lbl_Wait.Text), this);
  wait_->setAlignment(Qt::AlignCenter);
  wait_->setVisible(false);
  layout->addWidget(wait_);
  auto* buttons = new QHBoxLayout();
  auto* yes = new QPushButton(QString::fromStdString(logic_.Command1.Text), this);
  yes->setObjectName(QStringLiteral("Command1"));
  auto* no = new QPushButton(QString::fromStdString(logic_.Command2.Text), this);
  no->setObjectName(QStringLiteral("Command2"));
  connect(yes, &QPushButton::clicked, this, [this] {
    wait_->setVisible(true);
    QApplication::processEvents();
    Run([this] { logic_.Command1_Click(); });
  });
  connect(no, &QPushButton::clicked, this, [this] { Run([this] { logic_.Command2_Click(); }); });
  buttons->addStretch(1);
  buttons->addWidget(yes);
  buttons->addWidget(no);
  buttons->addStretch(1);
  layout->addLayout(buttons);
}

void FrmOldStudyView::Run(const std::function<void()>& handler) {
  boundary_.Run(handler);
  if (logic_.Closed()) accept();
}

void FrmOldStudyView::reject() {
  logic_.CloseBox();
  QDialog::reject();
}
