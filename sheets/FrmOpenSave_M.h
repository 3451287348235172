#pragma once
// The study browser: the studies of RVLFiles/ listed by their subject rather than by file
// name, from the cache StudiesFile that it builds anew each time it opens.
#include <string>

#include "Controls.h"
#include "SheetRecords.h"
#include "StudyState.h"
#include "Workspace.h"

class FrmRavolin;

class FrmOpenSave_M : public ScriptScreen {
 public:
  FrmOpenSave_M(FrmRavolin& main, Workspace& workspace, StudyState& state);

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
  void Form_Activate();
  void CmdOpenSave_Click();
  void CmdClassic_Click();

  std::string ScreenName() const override { return "FrmOpenSave_M"; }
  ControlMap& Controls() override { return controls_; }
  void KeyDown(const KeyStroke& key) override;
  void CloseBox() override { closed_ = true; }
  bool Closed() const override { return closed_; }

 private:
  StudyRecord RecordOfLine(int index);
  FrmRavolin& main_;
  Workspace& ws_;
  StudyState& st_;
  ControlMap controls_;
  bool closed_ = false;
};
