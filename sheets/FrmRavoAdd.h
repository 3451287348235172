#pragma once
// The dialog that adds radiators to the sheet, one after another, until it is cancelled or the
// grid is full; and, through CmdSame, the copy of the radiators of another sheet.
#include <string>

#include "Controls.h"
#include "Message.h"
#include "Screens.h"
#include "StudyState.h"

class FrmRavolin;

class FrmRavoAdd : public ScriptScreen {
 public:
  static constexpr const char* kCaption = "ΠΡΟΣΘΗΚΗ ΧΩΡΟΥ ή ΘΕΡΜΑΝΤΙΚΟΥ ΣΩΜΑΤΟΣ, ΣΤΗ ΛΙΣΤΑ";

  FrmRavoAdd(FrmRavolin& main, StudyState& state, Prompter& prompter, Screens& screens);

  // The captions of the fields, beside the control each names.
  struct Label {
    const char* Control;
    const char* Text;
  };
  static const std::vector<Label>& Labels();

  Field Caption{kCaption};
  Field TxtAdded, TxtSomaName;
  ComboBox CboRoomTemp;
  Field CmdOK{"ΚΑΤΑΧΩΡΗΣΗ"}, CmdCancel{"ΤΕΛΟΣ"},
      CmdSame{"ΤΟ ΤΡΕΧΟΝ ΦΥΛΛΟ, ΘΑ ΓΙΝΕΙ ΟΜΟΙΟ ΜΕ ΤΟ ..."};
  std::string FocusTarget = "TxtAdded";

  void TxtAdded_GotFocus();
  bool TxtAdded_KeyPress(char32_t ch);
  void TxtAdded_LostFocus();
  bool TxtSomaName_KeyPress(char32_t ch);
  // Where the selection of TxtSomaName starts when it gets the focus: at the first character
  // that is not a digit, so that "12Α" is ready for the next "12Β".
  int SomaNameSelectionStart() const;
  void CmdOK_Click();
  void CmdCancel_Click();
  void CmdSame_Click();

  std::string ScreenName() const override { return "FrmRavoAdd"; }
  ControlMap& Controls() override { return controls_; }
  void KeyDown(const KeyStroke& key) override;
  void CloseBox() override { closed_ = true; }
  bool Closed() const override { return closed_; }

 private:
  void CloseGaps();
  FrmRavolin& main_;
  StudyState& st_;
  Prompter& prompter_;
  Screens& screens_;
  ControlMap controls_;
  bool closed_ = false;
};
