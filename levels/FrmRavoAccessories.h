#pragma once
// The name, length and fittings of the riser piece that reaches one heated level, with the
// panel of tee pictures that count tees by the situation they show.
#include <array>
#include <string>

#include "FloorEntries.h"
#include "LevelState.h"
#include "Message.h"
#include "ScreenKit.h"
#include "StudyState.h"
#include "Workspace.h"

class FrmRavoAccessories : public Dialog<FrmRavoAccessories> {
 public:
  static constexpr const char* kName = "FrmRavoAccessories";
  static constexpr const char* kCaption = "ΚΑΤΑΧΩΡΗΣΗ ΔΕΔΟΜΕΝΩΝ ΤΜΗΜΑΤΩΝ ΣΩΛΗΝΩΝ";
  static constexpr int kBoxes = 15;
  static const ControlTable<FrmRavoAccessories>& Table();

  FrmRavoAccessories(Workspace& ws, StudyState& study, LevelState& levels, Prompter& prompter,
                     FloorEntries& entries);

  Field Caption{kCaption};
  Field TxtFloorNo, Txt_aa, Txt_Floor{"ΚΑΤΑΚΟΡΥΦΟΣ ΣΩΛΗΝΑΣ"};
  // Start and end node, length, then the fittings in the order of the record.
  Field Txt0, Txt1, Txt2, Txt6, Txt7, Txt8, Txt9, Txt10, Txt11, Txt12, Txt13, Txt14, Txt15, Txt16,
      Txt17;
  Field Cmd_End, CmdANT{"ANT"}, Cmd_Tau{"<ΤΑΥ>"}, Cmd_CloseTees{"X"}, CmdNoTau{"0 <ΤΑΥ>"};
  Field Cmd_Same{"Όμοιο"}, Lbl_Same{"Όμοιο με :"}, CmdSaveF{" Save "};
  ComboBox CboSame;
  // The tee panel shows beside the boxes (the screen widened) or stays hidden.
  bool TeePanelShown = false;

  // The tee pictures by their letter (Shift and the letter, or a click on the picture).
  void TeePicture(char letter);
  void CmdANT_Click();
  void CmdNoTau_Click();
  void Cmd_Same_Click();
  void CboSame_Click();
  void CboSame_LostFocus();
  void Txt0_LostFocus();
  void Txt1_LostFocus();
  void Cmd_End_Click();
  bool KeyDown(const KeyStroke& key) override;

 private:
  void Form_Load() override;
  std::function<void()> KeepOwnState() override;
  std::array<Field*, kBoxes> Boxes();
  void UpdateScreen();
  void UpdateCboSame();
  void GiveValuesToArray();
  bool CheckForChanges();
  void SaveAccessoriesFloorData();
  void Add(Field& counter);

  Workspace& ws_;
  StudyState& st_;
  LevelState& lv_;
  Prompter& prompter_;
  FloorEntries& entries_;
  std::array<std::string, kBoxes> values_;
};
