#include "FrmCLPassView.h"

#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

FrmCLPassView::FrmCLPassView(FrmCLPass& logic, CommandBoundary& boundary, QWidget* parent)
    : QDialog(parent), logic_(logic), boundary_(boundary) {
  setObjectName(QStringLiteral("FrmCLPass"));
  setWindowTitle(QString::fromStdString(logic_.Caption.Text));
  const auto runner = [this](const std::function<void()>& h) { Run(h); };
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout();
  const auto box = [&](Field& field, const char* name) {
    auto* edit =
        new FilteredLineEdit(field, {nullptr, FrmCLPass::TxtPass_KeyPress, nullptr}, runner, this);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setEchoMode(QLineEdit::Password);
    return edit;
  };
  entry_ = box(logic_.TxtPass, "TxtPass");
  form->addRow(QString::fromStdString(logic_.Label1.Text), entry_);
  confirmation_ = box(logic_.TxtPassOK, "TxtPassOK");
  if (logic_.TxtPassOK.Visible)
    form->addRow(QString::fromStdString(logic_.LblOK.Text), confirmation_);
  layout->addLayout(form);
  auto* ok = new QPushButton(QString::fromStdString(logic_.CmdOK.Text), this);
  ok->setObjectName(QStringLiteral("CmdOK"));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, [this] { Run([this] { logic_.CmdOK_Click(); }); });
  layout->addWidget(ok, 0, Qt::AlignRight);
  resize(420, sizeHint().height());
}

void FrmCLPassView::Run(const std::function<void()>& handler) {
  boundary_.Run(handler);
  entry_->Render();
  confirmation_->Render();
  if (logic_.Closed()) accept();
}

void FrmCLPassView::reject() {
  logic_.CloseBox();
  QDialog::reject();
}
