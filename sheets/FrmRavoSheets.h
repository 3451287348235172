#pragma once
// The list of the study's sheets, from which CmdSame copies the radiators of one sheet into the
// sheet on the screen.
#include <string>

#include "Controls.h"
#include "Message.h"
#include "StudyState.h"
#include "Workspace.h"

class FrmRavolin;

class FrmRavoSheets : public ScriptScreen {
 public:
  static constexpr const char* kCaption = "Καταχωρημένα Φύλλα Υπολογισμών";

  FrmRavoSheets(FrmRavolin& main, Workspace& workspace, StudyState& state, Prompter& prompter);

  Field Caption{kCaption};
  ListBox LstSheets;
  Field CmdOK{"ΕΠΙΛΟΓΗ"}, CmdCancel{"ΑΚΥΡΟ"};
  // Set when the radiators were copied: the dialog that opened this one closes too.
  bool Copied = false;

  void CmdOK_Click();

  std::string ScreenName() const override { return "FrmRavoSheets"; }
  ControlMap& Controls() override { return controls_; }
  void KeyDown(const KeyStroke& key) override;
  void CloseBox() override { closed_ = true; }
  bool Closed() const override { return closed_; }

 private:
  FrmRavolin& main_;
  Workspace& ws_;
  StudyState& st_;
  Prompter& prompter_;
  ControlMap controls_;
  bool closed_ = false;
};
