#include "QtScreens.h"

#include "FrmOldStudyView.h"
#include "FrmOpenSave_MView.h"
#include "FrmRavoAddView.h"
#include "FrmRavoSheetsView.h"
#include "RuntimeFault.h"

void QtScreens::ShowModal(ScriptScreen& screen) {
  if (auto* add = dynamic_cast<FrmRavoAdd*>(&screen)) {
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
