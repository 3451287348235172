#pragma once
// The password screen of the names list: asks for the password in use (check mode), or for a
// new one twice (new mode).
#include <string>

#include "Controls.h"
#include "Message.h"
#include "StudyState.h"

class FrmCLPass : public ScriptScreen {
 public:
  enum class Mode { Check, New };
  static constexpr const char* kCaption = "ΟΝΟΜΑ ΜΕΛΕΤΗΤΗ";

  FrmCLPass(Mode mode, std::string keptPassword, Prompter& prompter, StudyState& state);

  Field Caption{kCaption};
  Field Label1, LblOK{"Επιβεβαιώστε το Νέο Password :"};
  Field TxtPass, TxtPassOK;
  Field CmdOK{"OK"};

  // Set when the screen closed on a password that passed; in new mode, NewPassword holds it.
  bool Passed = false;
  std::string NewPassword;

  void CmdOK_Click();
  // Characters the file's code page cannot hold never enter a password: typed, they could
  // never be matched again once the password is read back.
  static bool TxtPass_KeyPress(char32_t ch);

  std::string ScreenName() const override { return "FrmCLPass"; }
  ControlMap& Controls() override { return controls_; }
  void KeyDown(const KeyStroke& key) override;
  void CloseBox() override { closed_ = true; }
  bool Closed() const override { return closed_; }

 private:
  void CheckExisting();
  void TakeNew();
  void Pass(std::string password);

  Mode mode_;
  std::string kept_;
  Prompter& prompter_;
  StudyState& st_;
  ControlMap controls_;
  bool closed_ = false;
};
