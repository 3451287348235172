#pragma once
// The dialog that adds radiators to the sheet, one after another, until it is cancelled or the
// grid is full; and, through CmdSame, the copy of the radiators of another sheet.
#include <string>

#include "Message.h"
#include "ScreenKit.h"
#include "SheetOnScreen.h"
#include "StudyState.h"

class FrmRavoAdd : public Dialog<FrmRavoAdd> {
 public:
  static constexpr const char* kName = "FrmRavoAdd";
  static constexpr const char* kCaption = "ΠΡΟΣΘΗΚΗ ΧΩΡΟΥ ή ΘΕΡΜΑΝΤΙΚΟΥ ΣΩΜΑΤΟΣ, ΣΤΗ ΛΙΣΤΑ";
  static const ControlTable<FrmRavoAdd>& Table();

  FrmRavoAdd(SheetOnScreen& sheet, StudyState& state, Prompter& prompter, Screens& screens);

  Field Caption{kCaption};
  // The captions of the fields, each beside its field.
  Field LblAdded{"ΠΡΟΣΤΙΘΕΜΕΝΟ ΠΟΣΟ ΘΕΡΜΙΚΗΣ ΙΣΧΥΟΣ ΣΤΟΝ ΒΡΟΧΟ, [Kcal/h]"};
  Field LblSomaName{"Ο α/α ΤΟΥ ΘΕΡΜΑΝΤΙΚΟΥ ΣΩΜΑΤΟΣ, ΝΑ ΟΝΟΜΑΣΘΕΙ :"};
  Field LblRoomTemp{"ΕΠΙΘΥΜΗΤΗ ΘΕΡΜΟΚΡΑΣΙΑ ΤΟΥ ΧΩΡΟΥ, ΣΤΟΝ ΟΠΟΙΟ ΑΝΗΚΕΙ ΤΟ ΣΩΜΑ, [ oC ] :"};
  Field TxtAdded, TxtSomaName;
  ComboBox CboRoomTemp;
  Field CmdOK{"ΚΑΤΑΧΩΡΗΣΗ"}, CmdCancel{"ΤΕΛΟΣ"},
      CmdSame{"ΤΟ ΤΡΕΧΟΝ ΦΥΛΛΟ, ΘΑ ΓΙΝΕΙ ΟΜΟΙΟ ΜΕ ΤΟ ..."};

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

 private:
  void CloseGaps();
  SheetOnScreen& sheet_;
  StudyState& st_;
  Prompter& prompter_;
  Screens& screens_;
};
