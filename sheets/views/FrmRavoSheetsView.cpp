#include "FrmRavoSheetsView.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

FrmRavoSheetsView::FrmRavoSheetsView(FrmRavoSheets& logic, CommandBoundary& boundary,
                                     QWidget* parent)
    : QDialog(parent), logic_(logic), boundary_(boundary) {
  setObjectName(QStringLiteral("FrmRavoSheets"));
  setWindowTitle(QString::fromStdString(logic_.Caption.Text));
  auto* layout = new QVBoxLayout(this);
  list_ = new QListWidget(this);
  list_->setObjectName(QStringLiteral("LstSheets"));
  for (const auto& item : logic_.LstSheets.Items) list_->addItem(QString::fromStdString(item));
  layout->addWidget(list_);
  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
    std::vector<std::string> picked;
    if (row >= 0) picked.push_back(logic_.LstSheets.Items[row]);
    logic_.Controls().at("LstSheets").Select(picked);
  });
  auto* buttons = new QHBoxLayout();
  auto* ok = new QPushButton(QString::fromStdString(logic_.CmdOK.Text), this);
  ok->setObjectName(QStringLiteral("CmdOK"));
  connect(ok, &QPushButton::clicked, this, [this] { Run([this] { logic_.CmdOK_Click(); }); });
  connect(list_, &QListWidget::itemDoubleClicked, this,
          [this] { Run([this] { logic_.CmdOK_Click(); }); });
  auto* cancel = new QPushButton(QString::fromStdString(logic_.CmdCancel.Text), this);
  cancel->setObjectName(QStringLiteral("CmdCancel"));
  connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
  if (list_->count() > 0) list_->setCurrentRow(0);
  resize(380, 320);
}

void FrmRavoSheetsView::Run(const std::function<void()>& handler) {
  boundary_.Run(handler);
  if (logic_.Closed()) accept();
}

void FrmRavoSheetsView::reject() {
  logic_.CloseBox();
  QDialog::reject();
}
