#include "QtScreens.h"

#include <QApplication>
#include <QDialog>

#include "NamesViews.h"
#include "RuntimeFault.h"
#include "SheetsViews.h"

void QtScreens::ShowModal(ScriptScreen& screen) {
  if (!boundary_) throw RuntimeFault(FaultCode::Internal, "the screens are not attached");
  QWidget* over = QApplication::activeModalWidget();
  const auto view = views_.Make(screen, *boundary_, over ? over : parent_);
  auto* dialog = qobject_cast<QDialog*>(view.get());
  if (!dialog) throw RuntimeFault(FaultCode::Internal, screen.ScreenName() + " is not a dialog");
  ViewKit::RenderAll();  // the screens under the dialog show what the command did before it
  dialog->exec();
}

ViewRegistry ProgramViews() {
  ViewRegistry views;
  AddSheetsViews(views);
  AddNamesViews(views);
  return views;
}
