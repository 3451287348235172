#pragma once
// The list of the study's sheets, from which CmdSame copies the radiators of one sheet into the
// sheet on the screen. Accepted when the radiators were copied: the dialog that opened this one
// closes too.
#include <string>

#include "Message.h"
#include "ScreenKit.h"
#include "SheetOnScreen.h"
#include "StudyState.h"

class FrmRavoSheets : public Dialog<FrmRavoSheets> {
 public:
  static constexpr const char* kName = "FrmRavoSheets";
  static constexpr const char* kCaption = "Καταχωρημένα Φύλλα Υπολογισμών";
  static const ControlTable<FrmRavoSheets>& Table();

  FrmRavoSheets(SheetOnScreen& sheet, StudyState& state, Prompter& prompter);

  Field Caption{kCaption};
  ListBox LstSheets;
  Field CmdOK{"ΕΠΙΛΟΓΗ"}, CmdCancel{"ΑΚΥΡΟ"};

  void CmdOK_Click();

 private:
  SheetOnScreen& sheet_;
  StudyState& st_;
  Prompter& prompter_;
};
