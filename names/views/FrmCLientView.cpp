#include "FrmCLientView.h"

#include <QFont>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

FrmCLientView::FrmCLientView(FrmCLient& logic, CommandBoundary& boundary, QWidget* parent)
    : DialogView(logic, boundary, parent) {
  auto* layout = new QGridLayout(this);
  layout->addWidget(Kit().Make("LblCurrent"), 0, 0);
  auto* current = Kit().Make<QLabel>("Lbl_Client");
  current->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  QFont bold = current->font();
  bold.setBold(true);
  current->setFont(bold);
  layout->addWidget(current, 1, 0);

  auto* list = Kit().Make<QListWidget>("Lst_Names");
  connect(list, &QListWidget::itemDoubleClicked, this,
          [this, &logic] { Kit().Run([&logic] { logic.Cmd_OK_Click(); }); });
  layout->addWidget(list, 2, 0);

  layout->addWidget(Kit().Make("Lbl_Entry"), 3, 0);
  auto* entry = Kit().Make<QLineEdit>("Txt_Client");
  // The counter follows every change, as the engineer types.
  connect(entry, &QLineEdit::textEdited, this,
          [this, &logic] { Kit().Run([&logic] { logic.Txt_Client_Change(); }); });
  layout->addWidget(entry, 4, 0);
  layout->addWidget(Kit().Make("LblNoChars"), 5, 0, Qt::AlignRight);

  auto* pass = new QHBoxLayout();
  pass->addWidget(Kit().Make("Lbl_Pass"));
  Kit().Make<QLineEdit>("Txt_Pass")->setEchoMode(QLineEdit::Password);
  pass->addWidget(Kit().Make("Txt_Pass"), 1);
  layout->addLayout(pass, 6, 0);

  auto* commands = new QVBoxLayout();
  for (const char* name : {"Cmd_OK", "Cmd_New", "Cmd_COR", "Cmd_Copy", "Cmd_Del", "Cmd_Lock"})
    commands->addWidget(Kit().Make(name));
  commands->addStretch(1);
  commands->addWidget(Kit().Make("Cmd_Exit"));
  layout->addLayout(commands, 0, 1, 7, 1);
  layout->setColumnStretch(0, 1);
  Kit().Render();
  resize(620, 420);
}
