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

// Runs a screen's view until it closes. A screen opened from a dialog stands over that dialog.
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
    Exec<FrmRavoAddView>(*add, boundary_, parent_);
  } else if (auto* sheets = dynamic_cast<FrmRavoSheets*>(&screen)) {
    Exec<FrmRavoSheetsView>(*sheets, boundary_, parent_);
  } else if (auto* old = dynamic_cast<FrmOldStudy*>(&screen)) {
    Exec<FrmOldStudyView>(*old, boundary_, parent_);
  } else if (auto* browser = dynamic_cast<FrmOpenSave_M*>(&screen)) {
    Exec<FrmOpenSave_MView>(*browser, boundary_, parent_);
  } else {
    throw RuntimeFault(FaultCode::Internal, "no view for " + screen.ScreenName());
  }
}
