#pragma once
// The study browser: the studies of RVLFiles/ listed by their subject rather than by file
// name, from the cache StudiesFile that it builds anew each time it opens.
#include <string>

#include "ScreenKit.h"
#include "SheetOnScreen.h"
#include "SheetRecords.h"
#include "StudyState.h"
#include "Workspace.h"

class FrmOpenSave_M : public Dialog<FrmOpenSave_M> {
 public:
  static constexpr const char* kName = "FrmOpenSave_M";
  static const ControlTable<FrmOpenSave_M>& Table();

  FrmOpenSave_M(SheetOnScreen& sheet, Workspace& workspace, StudyState& state);

  Field Caption{"ΑΝΑΚΛΗΣΗ ΑΡΧΕΙΟΥ ΜΟΝΟΣΩΛΗΝΙΟΥ"};
  ListBox LstStudies;
  Field CmdOpenSave{"ΑΝΑΚΛΗΣΗ"}, CmdClassic{"Λίστα ΑΡΧΕΙΩΝ"};
  Field LblFileName, LblFilePath, LblFileDate, LblFileTime, LblNumber;
  Field LblFileNameCaption{"ΟΝΟΜΑΣΙΑ ΑΡΧΕΙΟΥ ΤΗΣ ΜΕΛΕΤΗΣ"};
  Field LblFilePathCaption{"PATH (FOLDER) ΑΡΧΕΙΟΥ ΤΗΣ ΜΕΛΕΤΗΣ"};
  Field LblFileDateCaption{"ΗΜΕΡΟΜΗΝΙΑ ΑΡΧΕΙΟΥ : "};
  Field LblFileTimeCaption{"ΩΡΑ ΑΡΧΕΙΟΥ : "};
  // Set by CmdClassic: the platform's file dialog follows once the browser has closed.
  bool ClassicRequested = false;

  // Rebuilds StudiesFile from the study files of `folder`, in list order.
  void MakeCurrentStudiesFile(const std::string& folder);
  void LstStudies_Click();
  // Each opening starts with nothing selected and nothing shown.
  void Form_Load() override;
  void CmdOpenSave_Click();
  void CmdClassic_Click();

 private:
  StudyRecord RecordOfLine(int index);
  SheetOnScreen& sheet_;
  Workspace& ws_;
  StudyState& st_;
};
