#pragma once
// The loops dealt to the heated levels: how many levels the study has and which calculation
// sheets hang on each. Every give and take-back is stored at once in the level's record; the
// sums of each level wait for CmdOK.
#include <cstdint>
#include <string>
#include <vector>

#include "FloorEntries.h"
#include "LevelState.h"
#include "Message.h"
#include "ScreenKit.h"
#include "StudyState.h"
#include "Workspace.h"

class FrmVRinLEV : public Dialog<FrmVRinLEV> {
 public:
  static constexpr const char* kName = "FrmVRinLEV";
  static constexpr const char* kCaption =
      "ΚΑΤΑΝΟΜΗ ΦΥΛΛΩΝ ΥΠΟΛΟΓΙΣΜΩΝ (ΒΡΟΧΩΝ) ΣΤΑ ΘΕΡΜΑΙΝΟΜΕΝΑ ΕΠΙΠΕΔΑ";
  static constexpr const char* kLevelEntry = "ΘΕΡΜΑΙΝΟΜΕΝΟ ΕΠΙΠΕΔΟ Νο : ";
  static constexpr const char* kSheetEntry = "ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ Νο : ";
  static const ControlTable<FrmVRinLEV>& Table();

  FrmVRinLEV(Workspace& ws, StudyState& study, LevelState& levels, Prompter& prompter,
             FloorEntries& entries);

  Field Caption{kCaption};
  Field LblLevels{"ΠΛΗΘΟΣ ΕΠΙΠΕΔΩΝ ΠΟΥ ΠΕΡΙΛΑΜΒΑΝΟΝΤΑΙ, ΣΤΗΝ ΤΡΕΧΟΥΣΑ ΜΕΛΕΤΗ : "};
  Field TxtLevels;
  ComboBox CboLevels;
  ListBox LstVroxoi, LstUsedVroxoi;
  Field CmdGive{">>"}, CmdTakeBack{"<<"}, CmdReset{"RESET"}, CmdOK{"OK"};
  Field LblError;
  // The marker blinks while the number of levels is 0.
  bool Blinking = false;

  void TxtLevels_LostFocus();
  void CboLevels_Click();
  void CmdGive_Click();
  void CmdTakeBack_Click();
  void CmdReset_Click();
  void CmdOK_Click();
  // The sheets of the level's list, one entry each, in LstUsedVroxoi.
  void Analyze_and_PutOnData();
  // The list sorted on two-digit text keys; a sheet above 99 is the run-time's failure.
  static std::string AnalyzeAndShortSheets(const std::string& list);
  void DeleteEverything();

 private:
  void Form_Load() override;
  std::function<void()> KeepOwnState() override;
  std::vector<std::string> AllSheetEntries() const;
  int16_t LevelsTyped() const;
  void ChooseFirstLevel();
  // The tests of give and take-back: false when a step is refused (the focus moved) or no entry
  // of `from` is selected.
  bool GuardsPass(const ListBox& from);
  // Moves the selected entries of `from` to the end of `to`; gives the moved ones.
  static std::vector<std::string> MoveSelected(ListBox& from, ListBox& to);
  // The focus after a refused step: the levels list, or the number when that is still 0.
  void FocusBack();
  // Stores `list` as the current level's sheets, sorted, with the study's title.
  void PutLevelList(int16_t level, const std::string& list, bool keepOld);

  Workspace& ws_;
  StudyState& st_;
  LevelState& lv_;
  Prompter& prompter_;
  FloorEntries& entries_;
};
