#include "FrmRavoAddView.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

FrmRavoAddView::FrmRavoAddView(FrmRavoAdd& logic, CommandBoundary& boundary, QWidget* parent)
    : QDialog(parent), logic_(logic), boundary_(boundary) {
  setObjectName(QStringLiteral("FrmRavoAdd"));
  setWindowTitle(QString::fromStdString(logic_.Caption.Text));
  auto* layout = new QGridLayout(this);
  const auto runner = [this](const std::function<void()>& h) { Run(h); };
  added_ = new FilteredLineEdit(logic_.TxtAdded,
                                {[this] { logic_.TxtAdded_GotFocus(); },
                                 [this](char32_t c) { return logic_.TxtAdded_KeyPress(c); },
                                 [this] { logic_.TxtAdded_LostFocus(); }},
                                runner, this);
  added_->setObjectName(QStringLiteral("TxtAdded"));
  somaName_ = new FilteredLineEdit(
      logic_.TxtSomaName,
      {nullptr, [this](char32_t c) { return logic_.TxtSomaName_KeyPress(c); }, nullptr}, runner,
      this);
  somaName_->setObjectName(QStringLiteral("TxtSomaName"));
  somaName_->SetSelectionStart([this] { return logic_.SomaNameSelectionStart(); });
  roomTemp_ = new QComboBox(this);
  roomTemp_->setObjectName(QStringLiteral("CboRoomTemp"));
  for (const auto& item : logic_.CboRoomTemp.Items)
    roomTemp_->addItem(QString::fromStdString(item));
  connect(roomTemp_, &QComboBox::activated, this, [this](int index) {
    if (!rendering_) Run([this, index] { logic_.Controls().at("CboRoomTemp").ChooseIndex(index); });
  });
  const std::map<std::string, QWidget*> widgets = {
      {"TxtAdded", added_}, {"TxtSomaName", somaName_}, {"CboRoomTemp", roomTemp_}};
  int row = 0;
  for (const auto& label : FrmRavoAdd::Labels()) {
    auto* caption = new QLabel(QString::fromUtf8(label.Text), this);
    caption->setWordWrap(true);
    layout->addWidget(caption, row, 0);
    QWidget* widget = widgets.at(label.Control);
    widget->setMaximumWidth(120);
    layout->addWidget(widget, row++, 1);
  }
  auto* buttons = new QHBoxLayout();
  const std::vector<std::tuple<const char*, const Field*, std::function<void()>>> commands = {
      {"CmdOK", &logic_.CmdOK, [this] { logic_.CmdOK_Click(); }},
      {"CmdSame", &logic_.CmdSame, [this] { logic_.CmdSame_Click(); }},
      {"CmdCancel", &logic_.CmdCancel, [this] { logic_.CmdCancel_Click(); }}};
  for (const auto& [name, field, click] : commands) {
    auto* button = new QPushButton(QString::fromStdString(field->Text), this);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, click] { Run(click); });
    buttons->addWidget(button);
  }
  layout->addLayout(buttons, row, 0, 1, 2);
  setMinimumWidth(720);
  Render();
  ApplyFocus();
}

void FrmRavoAddView::Render() {
  rendering_ = true;
  added_->Render();
  somaName_->Render();
  roomTemp_->setCurrentIndex(logic_.CboRoomTemp.Index);
  rendering_ = false;
}

void FrmRavoAddView::Run(const std::function<void()>& handler) {
  boundary_.Run(handler);
  Render();
  if (logic_.Closed()) return accept();
  ApplyFocus();
}

void FrmRavoAddView::ApplyFocus() {
  const std::string target = logic_.FocusTarget;
  logic_.FocusTarget.clear();
  QWidget* widget = target == "TxtAdded"      ? static_cast<QWidget*>(added_)
                    : target == "TxtSomaName" ? static_cast<QWidget*>(somaName_)
                    : target == "CboRoomTemp" ? static_cast<QWidget*>(roomTemp_)
                                              : nullptr;
  if (widget && !widget->hasFocus()) widget->setFocus(Qt::OtherFocusReason);
}

FilteredLineEdit* FrmRavoAddView::TextBox(const std::string& name) const {
  return name == "TxtAdded" ? added_ : name == "TxtSomaName" ? somaName_ : nullptr;
}

void FrmRavoAddView::reject() {
  Run([this] { logic_.CmdCancel_Click(); });
}
