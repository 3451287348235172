#pragma once
// The study left behind by a run that did not end normally: the engineer revives it or lets
// it go for good.
#include <string>

#include "ScreenKit.h"
#include "SheetOnScreen.h"
#include "Workspace.h"

class FrmOldStudy : public Dialog<FrmOldStudy> {
 public:
  static constexpr const char* kName = "FrmOldStudy";
  static constexpr const char* kCaption = " ... Βρέθηκε στον Σκληρό Δίσκο, Αρχείο Μελέτης ...";
  static const ControlTable<FrmOldStudy>& Table();

  FrmOldStudy(SheetOnScreen& sheet, Workspace& workspace);

  Field Caption{kCaption};
  Field Label1{"... ΠΡΟΣΟΧΗ : ΠΑΛΑΙΑ ΜΕΛΕΤΗ ..."};
  ListBox List1;
  Field Command1{"ΝΑΙ"}, Command2{"ΟΧΙ"};
  Field Lbl_Wait{"... Παρακαλώ, Περιμένετε ..."};

  // Yes: the study comes back on the main screen; no: the working files go. Closing the box
  // decides nothing: the files stay, and the next start asks again.
  void Command1_Click();
  void Command2_Click();

 private:
  SheetOnScreen& sheet_;
  Workspace& ws_;
};
