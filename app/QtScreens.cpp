#include "QtScreens.h"

#include <QApplication>

#include "FrmCLPassView.h"
#include "FrmCLientView.h"
#include "FrmOldStudyView.h"
#include "FrmOpenSave_MView.h"
#include "FrmRavoAddView.h"
#include "FrmRavoSheetsView.h"
#include "RuntimeFault.h"

namespace {

// A screen opened from a dialog stands over that dialog.
template <typename View, typename Logic>
void Exec(Logic& logic, CommandBoundary& boundary, QWidget* parent) {
  QWidget* over = QApplication::activeModalWidget();
  View view(logic, boundary, over ? over : parent);
  view.exec();
}

}  // namespace

void QtScreens::ShowModal(ScriptScreen& screen) {
  if (auto* names = dynamic_cast<FrmCLient*>(&screen)) {
    Exec<FrmCLientView>(*names, boundary_, parent_);
  } else if (auto* pass = dynamic_cast<FrmCLPass*>(&screen)) {
    Exec<FrmCLPassView>(*pass, boundary_, parent_);
  } else if (auto* add = dynamic_cast<FrmRavoAdd*>(&screen)) {
    FrmRavoAddView view(*add, boundary_, parent_);
    view.exec();
  } else if (auto* sheets = dynamic_cast<FrmRavoSheets*>(&screen)) {
    FrmRavoSheetsView view(*sheets, boundary_, parent_);
    view.exec();
  } else if (auto* old = dynamic_cast<FrmOldStudy*>(&screen)) {
    FrmOldStudyView view(*old, boundary_, parent_);
    view.exec();
  } else if (auto* browser = dynamic_cast<FrmOpenSave_M*>(&screen)) {
    FrmOpenSave_MView view(*browser, boundary_, parent_);
    view.exec();
  } else {
    throw RuntimeFault(FaultCode::Internal, "no view for " + screen.ScreenName());
  }
}
