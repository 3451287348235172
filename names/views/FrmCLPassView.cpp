#include "FrmCLPassView.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

FrmCLPassView::FrmCLPassView(FrmCLPass& logic, CommandBoundary& boundary, QWidget* parent)
    : DialogView(logic, boundary, parent) {
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout();
  for (const auto& [label, box] : {std::pair{"Label1", "TxtPass"}, {"LblOK", "TxtPassOK"}}) {
    Kit().Make<QLineEdit>(box)->setEchoMode(QLineEdit::Password);
    form->addRow(Kit().Make(label), Kit().Make(box));
  }
  layout->addLayout(form);
  auto* ok = Kit().Make<QPushButton>("CmdOK");
  ok->setDefault(true);
  layout->addWidget(ok, 0, Qt::AlignRight);
  Kit().Render();
  resize(420, sizeHint().height());
}
