#include "FrmOpenSave_MView.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

FrmOpenSave_MView::FrmOpenSave_MView(FrmOpenSave_M& logic, CommandBoundary& boundary,
                                     QWidget* parent)
    : QDialog(parent), logic_(logic), boundary_(boundary) {
  setObjectName(QStringLiteral("FrmOpenSave_M"));
  setWindowTitle(QStringLiteral("ΑΝΑΚΛΗΣΗ ΑΡΧΕΙΟΥ ΜΟΝΟΣΩΛΗΝΙΟΥ"));
  auto* layout = new QVBoxLayout(this);
  list_ = new QListWidget(this);
  list_->setObjectName(QStringLiteral("LstStudies"));
  for (const auto& line : logic_.LstStudies.Items) list_->addItem(QString::fromStdString(line));
  layout->addWidget(list_);
  auto* details = new QGridLayout();
  const std::pair<const Field*, const Field*> rows[] = {
      {&logic_.LblFileNameCaption, &logic_.LblFileName},
      {&logic_.LblFilePathCaption, &logic_.LblFilePath},
      {&logic_.LblFileDateCaption, &logic_.LblFileDate},
      {&logic_.LblFileTimeCaption, &logic_.LblFileTime}};
  int row = 0;
  for (const auto& [caption, value] : rows) {
    details->addWidget(new QLabel(QString::fromStdString(caption->Text), this), row, 0);
    auto* label = new QLabel(this);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    details->addWidget(label, row++, 1);
    labels_[value] = label;
  }
  auto* number = new QLabel(this);
  details->addWidget(number, row, 1);
  labels_[&logic_.LblNumber] = number;
  layout->addLayout(details);
  auto* buttons = new QHBoxLayout();
  auto* open = new QPushButton(QString::fromStdString(logic_.CmdOpenSave.Text), this);
  open->setObjectName(QStringLiteral("CmdOpenSave"));
  auto* classic = new QPushButton(QString::fromStdString(logic_.CmdClassic.Text), this);
  classic->setObjectName(QStringLiteral("CmdClassic"));
  buttons->addWidget(open);
  buttons->addWidget(classic);
  buttons->addStretch(1);
  layout->addLayout(buttons);
  connect(list_, &QListWidget::currentRowChanged, this, [this](int r) {
    std::vector<std::string> picked;
    if (r >= 0) picked.push_back(logic_.LstStudies.Items[r]);
    Run([this, picked] { logic_.Controls().at("LstStudies").Select(picked); });
  });
  connect(list_, &QListWidget::itemDoubleClicked, this,
          [this] { Run([this] { logic_.CmdOpenSave_Click(); }); });
  connect(open, &QPushButton::clicked, this,
          [this] { Run([this] { logic_.CmdOpenSave_Click(); }); });
  connect(classic, &QPushButton::clicked, this,
          [this] { Run([this] { logic_.CmdClassic_Click(); }); });
  logic_.Form_Activate();
  Render();
  resize(640, 460);
}

void FrmOpenSave_MView::Render() {
  for (auto& [field, label] : labels_) label->setText(QString::fromStdString(field->Text));
}

void FrmOpenSave_MView::Run(const std::function<void()>& handler) {
  boundary_.Run(handler);
  Render();
  if (logic_.Closed()) accept();
}

void FrmOpenSave_MView::reject() {
  logic_.CloseBox();
  QDialog::reject();
}
