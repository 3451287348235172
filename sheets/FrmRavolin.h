#pragma once
// The main screen: one calculation sheet, its header fields and its grid, as logic without
// widgets. FrmRavolinView renders it; the script driver acts on it by the names of its
// controls.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "CommandBoundary.h"
#include "Message.h"
#include "Platform.h"
#include "RadiatorSizing.h"
#include "RavoMessages.h"
#include "ScreenKit.h"
#include "SheetOnScreen.h"
#include "SheetRecords.h"
#include "StudyState.h"
#include "TextGrid.h"
#include "Workspace.h"

inline constexpr int kGridRows = 8;
inline constexpr int kGridCols = 14;

class FrmRavolin : public Screen<FrmRavolin>, public SheetOnScreen {
 public:
  static constexpr const char* kName = "FrmRavolin";
  static const ControlTable<FrmRavolin>& Table();
  static constexpr const char* kCaption = "ΥΠΟΛΟΓΙΣΜΟΙ ΜΟΝΟΣΩΛΗΝΙΟΥ ΣΥΣΤΗΜΑΤΟΣ ΚΕΝΤΡΙΚΗΣ ΘΕΡΜΑΝΣΗΣ";
  static constexpr const char* kDefaultThema = "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ";
  static constexpr const char* kPipeListFile = "RavoPipes.txt";
  static constexpr const char* kManualFile = "RM.pdf";
  static constexpr const char* kCalcTip = "ΠΑΤΗΣΤΕ, ΕΝΑΛΛΑΚΤΙΚΑ, < F10 >";

  static constexpr const char* kBlockCaption =
      "ΠΑΤΗΣΤΕ Το ΠΛΗΚΤΡΟ < F5 >, ΓΙΑ ΑΝΤΙΓΡΑΦΗ ΣΤΑ ΕΠΙΛΕΓΜΕΝΑ ΚΕΛΛΙΑ, ΤΗΣ ΑΝΩ ΤΟΥ 1ου ΤΙΜΗΣ";

  FrmRavolin(Workspace& workspace, StudyState& state, Prompter& prompter, Platform& platform,
             CommandBoundary& boundary, Screens& screens);

  // The column heads of the grid, columns 1 to 14.
  static const std::vector<std::string>& ColumnHeads();
  // The study file the sheets were opened from or saved to; empty for a new study.
  const std::string& StudyFileName() const { return st_.StudyFileName; }

  // The screen's caption and fields.
  Field Caption;
  Field TxtThema, TxtOwnership, TxtLoopNo, TxtTempDrop, TxtOrigTemp, TxtLoopLength, TxtOtherRes;
  Field Txta_a, TxtLoopLoad, TxtFlow, TxtVelocity, TxtSFR;
  ComboBox CboPipes, CboSomata;
  // The captions beside the fields.
  Field LblThema{"ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ : "}, Lbla_a{"ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ : "},
      LblOwnership{"ΙΔΙΟΚΤΗΣΙΑ : "}, LblLoopNo{"ΕΝΔΕΙΚΤΙΚΟΣ ΑΡΙΘΜΟΣ ΚΥΚΛΩΜΑΤΟΣ : "},
      LblTempDrop{"ΘΕΡΜΟΚΡΑΣΙΑΚΗ ΠΤΩΣΗ ΝΕΡΟΥ, ΣΤΟ ΚΥΚΛΩΜΑ :"},
      LblOrigTemp{"ΘΕΡΜΟΚΡΑΣΙΑ ΕΙΣΟΔΟΥ ΤΟΥ ΝΕΡΟΥ ΣΤΟΝ ΒΡΟΧΟ :"},
      LblLoopLength{"ΣΥΝΟΛΙΚΟ ΜΗΚΟΣ ΒΡΟΧΟΥ :"},
      LblOtherRes{"ΙΣΟΔΥΝΑΜΟ ΜΗΚΟΣ ΕΙΔΙΚΩΝ ΤΟΠΙΚΩΝ ΑΝΤΙΣΤΑΣΕΩΝ ΒΡΟΧΟΥ :"},
      LblPipes{"ΔΙΑΜΕΤΡΟΣ ΣΩΛΗΝΩΝ ΚΥΚΛΩΜΑΤΟΣ :"}, LblSomata{"ΚΑΤΗΓΟΡΙΑ ΘΕΡΜΑΝΤΙΚΩΝ ΣΩΜΑΤΩΝ :"},
      LblLoopLoad{"ΘΕΡΜΙΚΟ ΦΟΡΤΙΟ ΚΥΚΛΩΜΑΤΟΣ : "}, LblFlow{"ΠΑΡΟΧΗ ΝΕΡΟΥ : "},
      LblVelocity{"ΤΑΧΥΤΗΤΑ ΡΟΗΣ :"}, LblSFR{"ΕΙΔΙΚΗ ΑΝΤΙΣΤΑΣΗ ΡΟΗΣ :"};
  Field CmdCalc{"Υπολογισμοί"};
  Field CmdAddSpaces{"+"}, CmdRemoveSpaces{"−"}, CmdOneRowUp{"▲"}, CmdOneRowDn{"▼"};
  Field CmdPaste{"F5"}, CmdEditCols{"F2"}, CmdDeleteRow{"Διαγρ. Σειράς"},
      CmdDeleteColumn{"Διαγρ. Στήλης"};
  Field CmdFirst{"|◀"}, CmdPrev{"◀"}, CmdNext{"▶"}, CmdLast{"▶|"}, CmdDeleteSheet{"Διαγρ. Φύλλου"};
  Field CmdSave{"Αποθήκευση"}, CmdOpen{"Άνοιγμα"}, CmdNew{"Νέα Μελέτη"};
  Field Cmd_Client{"Μελετητής"};
  TextGrid Grid{kGridRows, kGridCols};
  // The names list, a screen of another subsystem, opened through what the program wired.
  static constexpr const char* kNamesScreen = "FrmCLient";

  // State held by the screen itself.
  float LoopTotalLoad = 0;      // Kcal/h
  float PipeInnerDiameter = 0;  // m
  int16_t InCalculation = 0;
  float OldTempDrop = 0, OldOrigTemp = 0, OldRoomTemp = 0;
  int32_t OldLoad = 0;
  // The running load of FrmRavoAdd, which starts from TxtLoopLoad.
  float AddedLoad = 0;
  CellBlock SelectionBlock;

  // For a batch run, which saves one sheet after another and changes nothing else: after one
  // save has worked out the water of every sheet, a save works out only its own sheet's. Any
  // call starts again from a full pass.
  void KeepOtherSheetsWater(bool keep) {
    keepOtherSheetsWater_ = keep;
    otherSheetsWaterKnown_ = false;
  }
  // The sort keys of the usable type files, "002/Χαλύβδινα Πάνελ.ths", kept sorted.
  std::vector<std::string> SomaSortKeys;
  // Set while the program selects an entry of CboSomata itself: the change handler then only
  // takes the working copy.
  bool CboSomataSetByProgram = false;

  // Start-up (the load of the screen) and program end (its close).
  void Form_Load();
  void Form_Unload();
  // The form sees every key first; true when the key was a command of the form.
  bool Form_KeyDown(const KeyStroke& key);
  void ShowManual();

  // Sets PipeInnerDiameter and the shared PipeArea from a name such as "Φ16x1".
  void FindPipeArea(const std::string& pipeName);

  // Header fields.
  void TxtThema_GotFocus();
  void TxtThema_LostFocus();
  void TxtOwnership_GotFocus();
  bool TxtOwnership_KeyPress(char32_t ch);
  void TxtLoopNo_GotFocus();
  bool TxtLoopNo_KeyPress(char32_t ch);
  void TxtTempDrop_GotFocus();
  bool TxtTempDrop_KeyPress(char32_t ch);
  void TxtTempDrop_LostFocus();
  void TxtOrigTemp_GotFocus();
  bool TxtOrigTemp_KeyPress(char32_t ch);
  void TxtOrigTemp_LostFocus();
  void TxtLoopLength_GotFocus();
  bool TxtLoopLength_KeyPress(char32_t ch);
  void TxtLoopLength_LostFocus();
  void TxtOtherRes_GotFocus();
  bool TxtOtherRes_KeyPress(char32_t ch);
  void TxtOtherRes_LostFocus();

  // The grid as the user works it: a click enters a cell, an edit types into it.
  void Grid_EditCell(int row, int col, const std::string& text);
  void Grid_Click(int row, int col);
  void Grid_MarkBlock(CellBlock block);
  // Every change of a cell by the user (never by code that writes cells for display).
  void SomethingHasChanged_Spread(int row, int col);

  // The row commands and their keys.
  void CmdAddSpaces_Click();
  void CmdRemoveSpaces_Click();
  void CmdOneRowUp_Click();
  void CmdOneRowDn_Click();
  void CmdPaste_Click();
  void CmdEditCols_Click();
  void CmdDeleteRow_Click();
  void CmdDeleteColumn_Click();
  void KeyF5();
  void CopyUpperValues();
  void EditSomeCols();
  void LockProperColumns();
  // After a row is gone: the loop load, then flow, velocity and resistance again.
  void HeaderRecompute();

  // Calculate (F10 or the button), and the calculation of the sheet on the screen.
  void CmdCalc_Click();
  void Calc();
  void CalculateData();
  void CalculateFlowRate(float tempDrop, float& flow);
  void GetLastDataRow(int16_t& lastRow);
  void Set_TotalLoaD();
  void GetTotalSheetLoaD(float& total, float& real);
  void CheckIfOkToProceed();
  void CheckWrittenValues(const std::string& mode);
  void CheckSomata(int row, int16_t& fault);
  // Sizing of one radiator, by family (the rating table, or the working copy's steps).
  void CalculateSoma_Fetes(float tempDiff, float load, const std::string& somaType, SomaSize& size);
  void CalculateSoma_Panel(float tempDiff, float load, const std::string& somaType, SomaSize& size);

  // The sheet between the screen and the working files.
  void SaveTemporarData();
  void PutGenSheetData(const SheetRecord& record);
  void PutLoopDataOnScreen(const LoopRecord& record);
  void LoadSheet(int16_t sheet);
  // A study left behind comes back on the screen straight from the working files.
  void OpeningOld() override;
  // Appends a copied radiator (columns 1, 2, 3 and 10) at the first free row; the first row
  // into an empty grid brings the family of the sheet it comes from.
  void PutAddLoopDataOnSpread(const LoopRecord& record, float sourceFamily) override;
  // Column 4 and TxtLoopLoad again from the loads.
  void RebuildRunningLoad() override;
  // The sheets of the study ("SHEETS.TMP" counted), kept in SheetCount.
  int16_t CountSheets() override;
  Workspace& Files() override { return ws_; }
  TextGrid& Rows() override { return Grid; }
  float& RunningLoad() override { return AddedLoad; }
  Field& LoopLoadBox() override { return TxtLoopLoad; }
  Field& SheetNumberBox() override { return Txta_a; }
  void CmdDeleteSheet_Click();
  void SetInitialValues();
  void CmdNext_Click();
  void CmdPrev_Click();
  void CmdFirst_Click();
  void CmdLast_Click();
  // The study file and a new study.
  void CmdSave_Click();
  void SaveAsFile(std::string fileName);
  void CmdNew_Click();
  void Cmd_Client_Click();
  void CmdOpen_Click();
  void ClassicOpenFile_M();
  void OpenFile(std::string fileName) override;

  // The radiator families: the type files of the program folder and the working copy.
  void SetCategoryNumbers();
  void FillSomaCategoryCombos();
  void FIXData_in_Combo(int16_t rows) override;
  void GetListIndex(const std::string& name, int16_t& index);
  void CboSomata_Click();

  // Discarding results: the same few steps wherever the sheet's results become invalid.
  void DeleteResultsCells();
  void DeleteLoopData() override;
  void DeleteSpreadData() override;

  // The screen's keys and close box.
  bool KeyDown(const KeyStroke& key) override { return Form_KeyDown(key); }
  void CloseBox() override { Form_Unload(); }

 private:
  void TestResolution();
  void BuildGrid();
  void FindSeparators();
  void SetStartValues();
  void LoadPipeList();
  void LookForStudyLeftBehind();
  void TestSomaFiles();
  void TakeOldCellValues(int row, int col);
  void SwapRows(int row, int other);
  // Asks message -5 on a calculated sheet; true when the command may go on (results discarded).
  bool DiscardAfterQuestion();
  // Shows the question of a code; true on "YES". LastAnswer is read and emptied here.
  bool AskYes(RavoMessage code);
  // The header values that every record of the sheet carries, as SaveTemporarData reads them.
  struct SheetHeader {
    std::string Thema, Ownership, LoopNo, PipeName;
    float Flow = 0, Velocity = 0, SpecificResistance = 0;
  };
  void SaveEmptySheet();
  SheetHeader ReadSheetHeader();
  void FillRowIdentity(LoopRecord& record, const SheetHeader& header, int16_t sheet, int row) const;
  static void ClearRowValues(LoopRecord& record);
  void SaveRow(int row, float flow, float in, float& out, SomaSize& size, LoopRecord& record);
  void WriteSheetRecord(RecordFile<SheetRecord>& sheets, int16_t sheet, const SheetHeader& header);
  std::vector<SomaRecord> ReadFamilyOf(float categoryNo);
  void TakeFamilyOfSheet();
  void RemoveSheetFromFiles(int16_t sheet);
  void TakeFamilyInUse();
  // The first type file whose family number is `categoryNo`, with its first record.
  std::optional<std::string> FamilyFileOf(float categoryNo, SomaRecord* first = nullptr);
  void SelectFamilyOf(const SomaRecord& first);
  bool OfferToSave();
  bool LooksLikeAStudy(const std::string& fileName);
  void SheetNumberDisagrees(int16_t sheet, int16_t written);
  SheetRecord PutSheetRecordOnScreen(int16_t sheet);
  void ReportUnreadableNumbers(int16_t sheet);
  bool unreadableNumbers_ = false;  // a record read since the last report held one
  std::vector<bool> PutLoopsOfSheetOnScreen(int16_t sheet);
  bool LeaveEmptySheet(int16_t target);
  void GoBackTo(int16_t target, bool alreadyThere);
  // Velocity (m/s) and specific resistance (mm/m) of a flow (l/h) in the first pipe of the
  // list.
  float Velocity(float flow) const;
  float SpecificResistance(float flow) const;
  void RadiatorTooSmall(int row);
  void WriteRowResults(int row, float in, float out, float mean, float factor, float equivalent);
  void WriteRowSize(int row, const SomaSize& size);
  void SizeRow(int row, float tempDiff, float equivalent, SomaSize& size);
  void RebuildRunningSum();
  // The water of every sheet, or in a batch run after the first pass, of the sheet just saved.
  void ComputeWaterContent(int16_t savedSheet);
  void UpdateWaterContent(RecordFile<SheetRecord>& sheets, int32_t first, int32_t last);
  void SelectFamilyQuietly(int index);
  // The model names of the working copy, as the list of column 10 of the rows `first` to
  // `last`; the family in use follows the working copy.
  void TakeModelLists(int first, int last);
  std::function<void()> KeepOwnState() override;
  // A range check of the temperature fields on focus loss (messages -13 and -14).
  void CheckTemperatureField(Field& field, float& oldValue, double low, double high,
                             RavoMessage rangeMessage);
  void DiscardResults(bool withLoopData);
  void RewriteThemaInRecords(const std::string& thema);
  bool AcceptsDigits(char32_t ch, bool decimalSeparator);

  Workspace& ws_;
  StudyState& st_;
  Prompter& prompter_;
  Platform& platform_;
  CommandBoundary& boundary_;
  RadiatorSizing sizing_;
  Screens& screens_;
  std::string oldThema_;
  bool keepOtherSheetsWater_ = false, otherSheetsWaterKnown_ = false;
  bool cboSomataGoingBack_ = false;
};
