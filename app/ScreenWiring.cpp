#include "ScreenWiring.h"

#include "FrmCLient.h"

void WireScreens(FrmRavolin& main, Workspace& workspace, StudyState& state, Prompter& prompter,
                 Screens& screens) {
  main.OpenEngineerNames = [&workspace, &state, &prompter, &screens] {
    FrmCLient names(workspace, state, prompter, screens);
    names.Form_Load();
    if (!names.Closed()) screens.ShowModal(names);
  };
}
