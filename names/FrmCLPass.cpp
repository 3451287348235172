#include "FrmCLPass.h"

#include "ClientMessages.h"
#include "ClientRecord.h"
#include "Cp1253.h"

FrmCLPass::FrmCLPass(Mode mode, std::string keptPassword, Prompter& prompter, StudyState& state)
    : mode_(mode), kept_(std::move(keptPassword)), prompter_(prompter), st_(state) {
  const bool fresh = mode_ == Mode::New;
  Label1.Text = fresh ? "Δώστε το Νέο Password :" : "Δώστε το υπάρχον Password :";
  LblOK.Visible = fresh;
  TxtPassOK.Visible = fresh;
  for (Field* box : {&TxtPass, &TxtPassOK}) box->MaxLength = static_cast<int>(kClientPassWidth);
  controls_["Caption"] = LabelControl(Caption);
  controls_["Label1"] = LabelControl(Label1);
  controls_["LblOK"] = LabelControl(LblOK);
  controls_["TxtPass"] = TextBoxControl(TxtPass, {nullptr, TxtPass_KeyPress, nullptr});
  controls_["TxtPassOK"] = TextBoxControl(TxtPassOK, {nullptr, TxtPass_KeyPress, nullptr});
  controls_["CmdOK"] = CommandControl(CmdOK, [this] { CmdOK_Click(); });
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
  Passed = true;
  closed_ = true;
}

void FrmCLPass::KeyDown(const KeyStroke& key) {
  if (key.Code == KeyCode::Escape) closed_ = true;
}
