#include "FrmCLientView.h"

#include <QFont>
#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

FrmCLientView::FrmCLientView(FrmCLient& logic, CommandBoundary& boundary, QWidget* parent)
    : QDialog(parent), logic_(logic), boundary_(boundary) {
  setObjectName(QStringLiteral("FrmCLient"));
  setWindowTitle(QString::fromStdString(logic_.Caption.Text));
  const auto runner = [this](const std::function<void()>& h) { Run(h); };
  auto* layout = new QGridLayout(this);

  layout->addWidget(AddLabel("LblCurrent", logic_.LblCurrent), 0, 0);
  QLabel* current = AddLabel("Lbl_Client", logic_.Lbl_Client);
  current->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  QFont bold = current->font();
  bold.setBold(true);
  current->setFont(bold);
  layout->addWidget(current, 1, 0);

  list_ = new QListWidget(this);
  list_->setObjectName(QStringLiteral("Lst_Names"));
  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (rendering_) return;
    std::vector<std::string> picked;
    if (row >= 0 && row < static_cast<int>(logic_.Lst_Names.Items.size()))
      picked.push_back(logic_.Lst_Names.Items[row]);
    logic_.Controls().at("Lst_Names").Select(picked);
  });
  connect(list_, &QListWidget::itemDoubleClicked, this,
          [this] { Run([this] { logic_.Cmd_OK_Click(); }); });
  layout->addWidget(list_, 2, 0);

  layout->addWidget(AddLabel("Lbl_Entry", logic_.Lbl_Entry), 3, 0);
  entry_ = new FilteredLineEdit(logic_.Txt_Client, {nullptr, FrmCLient::Txt_KeyPress, nullptr},
                                runner, this);
  entry_->setObjectName(QStringLiteral("Txt_Client"));
  // The counter follows every change, as the engineer types.
  connect(entry_, &QLineEdit::textEdited, this, [this] {
    logic_.Txt_Client_Change();
    Render();
  });
  layout->addWidget(entry_, 4, 0);
  layout->addWidget(AddLabel("LblNoChars", logic_.LblNoChars), 5, 0, Qt::AlignRight);

  auto* pass = new QHBoxLayout();
  pass->addWidget(AddLabel("Lbl_Pass", logic_.Lbl_Pass));
  password_ = new FilteredLineEdit(logic_.Txt_Pass, {nullptr, FrmCLient::Txt_KeyPress, nullptr},
                                   runner, this);
  password_->setObjectName(QStringLiteral("Txt_Pass"));
  password_->setEchoMode(QLineEdit::Password);
  pass->addWidget(password_, 1);
  layout->addLayout(pass, 6, 0);

  auto* commands = new QVBoxLayout();
  for (const char* name : {"Cmd_OK", "Cmd_New", "Cmd_COR", "Cmd_Copy", "Cmd_Del", "Cmd_Lock"}) {
    auto* button = new QPushButton(this);
    button->setObjectName(QString::fromLatin1(name));
    const std::string command = name;
    connect(button, &QPushButton::clicked, this,
            [this, command] { Run([this, command] { logic_.Controls().at(command).Press(); }); });
    commands->addWidget(button);
    buttons_[name] = button;
  }
  commands->addStretch(1);
  auto* exit = new QPushButton(this);
  exit->setObjectName(QStringLiteral("Cmd_Exit"));
  connect(exit, &QPushButton::clicked, this, [this] { Run([this] { logic_.Cmd_Exit_Click(); }); });
  commands->addWidget(exit);
  buttons_["Cmd_Exit"] = exit;
  layout->addLayout(commands, 0, 1, 7, 1);
  layout->setColumnStretch(0, 1);

  Render();
  resize(620, 420);
}

QLabel* FrmCLientView::AddLabel(const std::string& name, Field& field) {
  auto* label = new QLabel(this);
  label->setObjectName(QString::fromStdString(name));
  labels_[name] = {label, &field};
  return label;
}

void FrmCLientView::Render() {
  rendering_ = true;
  for (const auto& [name, shown] : labels_) {
    shown.first->setText(QString::fromStdString(shown.second->Text));
    shown.first->setVisible(shown.second->Visible);
  }
  const auto& items = logic_.Lst_Names.Items;
  bool same = list_->count() == static_cast<int>(items.size());
  for (int i = 0; same && i < list_->count(); ++i)
    same = list_->item(i)->text().toStdString() == items[i];
  if (!same) {
    list_->clear();
    for (const auto& item : items) list_->addItem(QString::fromStdString(item));
  }
  list_->setCurrentRow(logic_.Lst_Names.SelectedIndex());
  entry_->Render();
  password_->Render();
  for (const auto& [name, button] : buttons_)
    button->setText(QString::fromStdString(logic_.Controls().at(name).GetText()));
  rendering_ = false;
}

void FrmCLientView::Run(const std::function<void()>& handler) {
  boundary_.Run(handler);
  Render();
  if (logic_.Closed()) return accept();
  if (logic_.Txt_Client.Visible && !entry_->hasFocus()) entry_->setFocus(Qt::OtherFocusReason);
}

void FrmCLientView::reject() {
  boundary_.Run([this] { logic_.CloseBox(); });
  QDialog::reject();
}
