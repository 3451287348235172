#pragma once
// The password screen of the names list: asks for the password in use (check mode), or for a
// new one twice (new mode).
#include <string>

#include "Message.h"
#include "ScreenKit.h"
#include "StudyState.h"

class FrmCLPass : public Dialog<FrmCLPass> {
 public:
  static constexpr const char* kName = "FrmCLPass";
  static const ControlTable<FrmCLPass>& Table();
  enum class Mode { Check, New };
  static constexpr const char* kCaption = "ΟΝΟΜΑ ΜΕΛΕΤΗΤΗ";

  FrmCLPass(Mode mode, std::string keptPassword, Prompter& prompter, StudyState& state);

  Field Caption{kCaption};
  Field Label1, LblOK{"Επιβεβαιώστε το Νέο Password :"};
  Field TxtPass, TxtPassOK;
  Field CmdOK{"OK"};

  // Accepted when the screen closed on a password that passed; in new mode, NewPassword holds
  // it.
  std::string NewPassword;

  void CmdOK_Click();
  // Characters the file's code page cannot hold never enter a password: typed, they could
  // never be matched again once the password is read back.
  static bool TxtPass_KeyPress(char32_t ch);

 private:
  void CheckExisting();
  void TakeNew();
  void Pass(std::string password);

  Mode mode_;
  std::string kept_;
  Prompter& prompter_;
  StudyState& st_;
};
