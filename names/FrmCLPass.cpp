#include "FrmCLPass.h"

#include "ClientMessages.h"
#include "ClientRecord.h"
#include "Cp1253.h"

const ControlTable<FrmCLPass>& FrmCLPass::Table() {
  using F = FrmCLPass;
  const auto keyPress = [](F&, char32_t ch) { return F::TxtPass_KeyPress(ch); };
  static const ControlTable<F> table = {
      kit::Label("Caption", &F::Caption),
      kit::Label("Label1", &F::Label1),
      kit::Label("LblOK", &F::LblOK),
      kit::TextBox("TxtPass", &F::TxtPass, {nullptr, keyPress, nullptr}),
      kit::TextBox("TxtPassOK", &F::TxtPassOK, {nullptr, keyPress, nullptr}),
      kit::Command("CmdOK", &F::CmdOK, &F::CmdOK_Click),
  };
  return table;
}

FrmCLPass::FrmCLPass(Mode mode, std::string keptPassword, Prompter& prompter, StudyState& state)
    : Dialog(kName), mode_(mode), kept_(std::move(keptPassword)), prompter_(prompter), st_(state) {
  const bool fresh = mode_ == Mode::New;
  Label1.Text = fresh ? "Δώστε το Νέο Password :" : "Δώστε το υπάρχον Password :";
  LblOK.Visible = fresh;
  TxtPassOK.Visible = fresh;
  for (Field* box : {&TxtPass, &TxtPassOK}) box->MaxLength = static_cast<int>(kClientPassWidth);
}

bool FrmCLPass::TxtPass_KeyPress(char32_t ch) {
  return ch == 8 || ch == 13 || UnicodeToCp1253(ch) >= 0;
}

void FrmCLPass::CmdOK_Click() {
  if (mode_ == Mode::Check)
    CheckExisting();
  else
    TakeNew();
}

void FrmCLPass::CheckExisting() {
  if (Trim(TxtPass.Text) != kept_) {
    ShowPassMessage(PassMessage::PasswordTrouble, prompter_, st_);
    return;
  }
  Pass(kept_);
}

void FrmCLPass::TakeNew() {
  const std::string entry = Trim(TxtPass.Text);
  if (entry != Trim(TxtPassOK.Text)) {
    ShowPassMessage(PassMessage::PasswordsDiffer, prompter_, st_);
    return;
  }
  if (entry.empty()) {
    ShowPassMessage(PassMessage::NoProtection, prompter_, st_);
    const std::string answer = st_.LastAnswer;
    st_.LastAnswer.clear();
    if (answer != "YES") return;
  }
  Pass(entry);
}

void FrmCLPass::Pass(std::string password) {
  NewPassword = std::move(password);
  Accept();
}
