#include "NamesViews.h"

#include "FrmCLPassView.h"
#include "FrmCLientView.h"

void AddNamesViews(ViewRegistry& registry) {
  registry.Add<FrmCLient, FrmCLientView>(FrmCLient::kName);
  registry.Add<FrmCLPass, FrmCLPassView>(FrmCLPass::kName);
}
