#include "FrmCLient.h"

#include <algorithm>

#include "ClientMessages.h"
#include "ClientRecord.h"
#include "Cp1253.h"
#include "FrmCLPass.h"

const ControlTable<FrmCLient>& FrmCLient::Table() {
  using F = FrmCLient;
  const auto keyPress = [](F&, char32_t ch) { return F::Txt_KeyPress(ch); };
  static const ControlTable<F> table = {
      kit::Label("Caption", &F::Caption),
      kit::Label("LblCurrent", &F::LblCurrent),
      kit::Label("Lbl_Client", &F::Lbl_Client),
      kit::Label("Lbl_Entry", &F::Lbl_Entry),
      kit::Label("LblNoChars", &F::LblNoChars),
      kit::Label("Lbl_Pass", &F::Lbl_Pass),
      kit::List("Lst_Names", &F::Lst_Names),
      kit::TextBox("Txt_Client", &F::Txt_Client, {nullptr, keyPress, &F::Txt_Client_Change}),
      kit::TextBox("Txt_Pass", &F::Txt_Pass, {nullptr, keyPress, nullptr}),
      kit::Command("Cmd_New", &F::Cmd_New, &F::Cmd_New_Click),
      kit::Command("Cmd_COR", &F::Cmd_COR, &F::Cmd_COR_Click),
      kit::Command("Cmd_Copy", &F::Cmd_Copy, &F::Cmd_Copy_Click),
      kit::Command("Cmd_OK", &F::Cmd_OK, &F::Cmd_OK_Click),
      kit::Command("Cmd_Del", &F::Cmd_Del, &F::Cmd_Del_Click),
      kit::Command("Cmd_Lock", &F::Cmd_Lock, &F::Cmd_Lock_Click),
      kit::Command("Cmd_Exit", &F::Cmd_Exit, &F::Cmd_Exit_Click),
  };
  return table;
}

FrmCLient::FrmCLient(Workspace& workspace, StudyState& state, Prompter& prompter, Screens& screens)
    : Dialog(kName), ws_(workspace), st_(state), prompter_(prompter), screens_(screens) {
  Lbl_Entry.Visible = false;
  Txt_Client.Visible = false;
  Txt_Client.MaxLength = static_cast<int>(kClientNameWidth);
  Txt_Pass.MaxLength = static_cast<int>(kClientPassWidth);
}

std::function<void()> FrmCLient::KeepOwnState() {
  return [this, kept = kept_, records = records_, corrected = correctedEntry_, deleted = deleted_] {
    kept_ = kept;
    records_ = records;
    correctedEntry_ = corrected;
    deleted_ = deleted;
  };
}

void FrmCLient::Form_Load() {
  ShowCurrentEngineer();
  if (!ws_.FileExists(kClientsFile)) {
    Close();
    return;
  }
  const std::vector<ClientRecord> records = ReadClientRecords(ws_);
  kept_ = records.empty() ? std::string() : FieldText(records.front().ClientPass);
  Txt_Pass.Text = kept_;
  std::vector<std::string> names;
  records_.clear();
  for (std::size_t i = 0; i < records.size(); ++i) {
    names.push_back(FieldText(records[i].ClientName));
    records_.push_back(static_cast<int>(i + 1));
  }
  Lst_Names.SetItems(std::move(names));
  // The engineer in use is highlighted, else the first name, so that OK confirms at once.
  if (Lst_Names.Items.empty()) return;
  const auto at = std::find(Lst_Names.Items.begin(), Lst_Names.Items.end(), st_.CurrentEngineer);
  Lst_Names.Selected[at == Lst_Names.Items.end() ? 0 : at - Lst_Names.Items.begin()] = true;
}

bool FrmCLient::Txt_KeyPress(char32_t ch) {
  return ch == 8 || ch == 13 || UnicodeToCp1253(ch) >= 0;
}

void FrmCLient::Txt_Client_Change() {
  LblNoChars.Text = "< " + std::to_string(Utf8ToU32(Txt_Client.Text).size()) + " > Χαρακτήρες";
}

void FrmCLient::SetEntryText(const std::string& text) {
  Txt_Client.Text = text;
  Txt_Client_Change();
}

void FrmCLient::OpenEntry(const std::string& caption, const std::string& text) {
  Lbl_Entry.Text = caption;
  Lbl_Entry.Visible = true;
  Txt_Client.Visible = true;
  SetEntryText(text);
  FocusOn(Txt_Client);
}

void FrmCLient::CloseEntry() {
  Lbl_Entry.Visible = false;
  Txt_Client.Visible = false;
  correctedEntry_ = -1;
}

std::string FrmCLient::HighlightedName() const {
  const int index = Lst_Names.SelectedIndex();
  return index < 0 ? std::string() : Lst_Names.Items[index];
}

void FrmCLient::Cmd_New_Click() {
  OpenEntry(kNewCaption, "");
  correctedEntry_ = -1;
}

void FrmCLient::Cmd_COR_Click() {
  const int index = Lst_Names.SelectedIndex();
  if (index < 0) return;
  OpenEntry(kCorrectionCaption, Lst_Names.Items[index]);
  correctedEntry_ = index;
}

void FrmCLient::Cmd_Copy_Click() {
  if (Lst_Names.SelectedIndex() < 0) return;
  SetEntryText(HighlightedName());
}

std::string FrmCLient::Ask(ClientMessage code, const std::string& name) {
  ShowClientMessage(code, prompter_, st_, name);
  std::string answer = st_.LastAnswer;
  st_.LastAnswer.clear();
  return answer;
}

bool FrmCLient::StoredPasswordMissing() {
  if (!Trim(Txt_Pass.Text).empty()) return false;
  const std::vector<ClientRecord> records = ReadClientRecords(ws_);
  return !records.empty() && !FieldText(records.front().ClientPass).empty();
}

void FrmCLient::Cmd_OK_Click() {
  if (StoredPasswordMissing()) {
    Ask(ClientMessage::NoPassword);
    return;
  }
  if (!Txt_Client.Visible) {
    if (Lst_Names.SelectedIndex() < 0) return;
    ChooseEngineer(HighlightedName());
    return;
  }
  if (Trim(Txt_Pass.Text) != kept_) {
    // Kept on purpose: the box of a missing password, not of a wrong one.
    Ask(ClientMessage::NoPassword);
    return;
  }
  const std::string name = Trim(Txt_Client.Text);
  if (name.empty()) {
    Ask(ClientMessage::NoName);
    return;
  }
  if (Ask(CorrectionMode() ? ClientMessage::CorrectName : ClientMessage::AddName) == "YES")
    KeepEntryInList(name);
  ChooseEngineer(name);
}

void FrmCLient::KeepEntryInList(const std::string& name) {
  std::fill(Lst_Names.Selected.begin(), Lst_Names.Selected.end(), false);
  if (CorrectionMode() && correctedEntry_ < static_cast<int>(Lst_Names.Items.size())) {
    CorrectInFile(records_[correctedEntry_], name);
    std::string& entry = Lst_Names.Items[correctedEntry_];
    if (entry == st_.CurrentEngineer) st_.CurrentEngineer = name;
    entry = name;
    Lst_Names.Selected[correctedEntry_] = true;
  } else {
    AppendToFile(name);
    Lst_Names.Items.push_back(name);
    Lst_Names.Selected.push_back(true);
  }
  ShowCurrentEngineer();
  CloseEntry();
}

void FrmCLient::AppendToFile(const std::string& name) {
  std::vector<ClientRecord> records = ReadClientRecords(ws_);
  ClientRecord r;
  r.ClientNo = static_cast<int16_t>(records.size() + 1);
  r.ClientName = StoredField(name, kClientNameWidth);
  r.ClientPass = StoredField(kept_, kClientPassWidth);
  records.push_back(r);
  WriteClientRecords(ws_, records);
  records_.push_back(static_cast<int>(records.size()));
}

void FrmCLient::CorrectInFile(int record, const std::string& name) {
  std::vector<ClientRecord> records = ReadClientRecords(ws_);
  if (record < 1 || record > static_cast<int>(records.size())) return AppendToFile(name);
  records[record - 1].ClientName = StoredField(name, kClientNameWidth);
  WriteClientRecords(ws_, records);
}

void FrmCLient::ChooseEngineer(const std::string& name) {
  if (Ask(ClientMessage::ChooseEngineer, name) != "YES") return;
  st_.CurrentEngineer = Trim(name);
  ShowCurrentEngineer();
  CloseScreen();
}

void FrmCLient::ShowCurrentEngineer() {
  Lbl_Client.Text = st_.CurrentEngineer;
}

void FrmCLient::Cmd_Del_Click() {
  if (Lst_Names.Items.size() <= 1) {
    Ask(ClientMessage::OnlyEntry);
    return;
  }
  const int index = Lst_Names.SelectedIndex();
  if (index < 0) return;
  if (Ask(ClientMessage::DeleteName) != "YES") return;
  Lst_Names.Items.erase(Lst_Names.Items.begin() + index);
  Lst_Names.Selected.erase(Lst_Names.Selected.begin() + index);
  records_.erase(records_.begin() + index);
  if (correctedEntry_ == index) CloseEntry();
  if (correctedEntry_ > index) --correctedEntry_;
  deleted_ = true;
}

void FrmCLient::Cmd_Lock_Click() {
  if (Trim(Txt_Pass.Text) != kept_) {
    Ask(ClientMessage::WrongPassword);
    return;
  }
  FrmCLPass check(FrmCLPass::Mode::Check, kept_, prompter_, st_);
  check.Open(screens_);
  if (!check.Accepted()) return;
  FrmCLPass fresh(FrmCLPass::Mode::New, kept_, prompter_, st_);
  fresh.Open(screens_);
  if (!fresh.Accepted()) return;
  std::vector<ClientRecord> records = ReadClientRecords(ws_);
  for (ClientRecord& r : records) r.ClientPass = StoredField(fresh.NewPassword, kClientPassWidth);
  WriteClientRecords(ws_, records);
  kept_ = fresh.NewPassword;
  Txt_Pass.Text = kept_;
}

void FrmCLient::CloseScreen() {
  if (Closed()) return;
  // The names that left the list leave the file now: the list is written anew, renumbered.
  if (deleted_) WriteClients(ws_, ClientList{Lst_Names.Items, kept_});
  deleted_ = false;
  Close();
}
