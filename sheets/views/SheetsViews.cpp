#include "SheetsViews.h"

#include "FrmOldStudyView.h"
#include "FrmOpenSave_MView.h"
#include "FrmRavoAddView.h"
#include "FrmRavoSheetsView.h"
#include "FrmRavolinView.h"

void AddSheetsViews(ViewRegistry& registry) {
  registry.Add<FrmRavolin, FrmRavolinView>(FrmRavolin::kName);
  registry.Add<FrmRavoAdd, FrmRavoAddView>(FrmRavoAdd::kName);
  registry.Add<FrmRavoSheets, FrmRavoSheetsView>(FrmRavoSheets::kName);
  registry.Add<FrmOldStudy, FrmOldStudyView>(FrmOldStudy::kName);
  registry.Add<FrmOpenSave_M, FrmOpenSave_MView>(FrmOpenSave_M::kName);
}
