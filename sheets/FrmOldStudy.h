#pragma once
// The study left behind by a run that did not end normally: the engineer revives it or lets
// it go for good.
#include <string>

#include "Controls.h"
#include "StudyState.h"
#include "Workspace.h"

class FrmRavolin;

class FrmOldStudy : public ScriptScreen {
 public:
  static constexpr const char* kCaption = " ... Βρέθηκε στον Σκληρό Δίσκο, Αρχείο Μελέτης ...";

  FrmOldStudy(FrmRavolin& main, Workspace& workspace);

  Field Caption{kCaption};
  Field Label1{"... ΠΡΟΣΟΧΗ : ΠΑΛΑΙΑ ΜΕΛΕΤΗ ..."};
  ListBox List1;
  Field Command1{"ΝΑΙ"}, Command2{"ΟΧΙ"};
  Field Lbl_Wait{"... Παρακαλώ, Περιμένετε ..."};

  // Yes: the study comes back on the main screen; no: the working files go.
  void Command1_Click();
  void Command2_Click();

  std::string ScreenName() const override { return "FrmOldStudy"; }
  ControlMap& Controls() override { return controls_; }
  void KeyDown(const KeyStroke&) override {}
  // Closing the box decides nothing: the files stay, and the next start asks again.
  void CloseBox() override { closed_ = true; }
  bool Closed() const override { return closed_; }

 private:
  FrmRavolin& main_;
  Workspace& ws_;
  ControlMap controls_;
  bool closed_ = false;
};
