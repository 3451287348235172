// The names list and its password screen, worked as the engineer works them: the messages each
// command raises, in order, and the list left on disk.
#include <gtest/gtest.h>

#include "ClientMessages.h"
#include "ClientRecord.h"
#include "FrmCLPass.h"
#include "FrmCLient.h"
#include "ProgramFolder.h"
#include "RecordFile.h"
#include "ScriptedScreens.h"
#include "TempFolder.h"

namespace {

class FrmCLientTest : public ::testing::Test, public ProgramFolder {
 protected:
  void MakeList(std::vector<std::string> names, std::string password = {}) {
    WriteClients(ws, ClientList{std::move(names), std::move(password)});
  }
  FrmCLient& Open() {
    prompter.Clear();
    form = std::make_unique<FrmCLient>(ws, state, prompter, screens);
    form->Form_Load();
    return *form;
  }
  void Highlight(const std::string& name) { form->Controls().at("Lst_Names").Select({name}); }
  // The first lines of every box shown since the last call.
  std::vector<std::string> Boxes() {
    std::vector<std::string> lines;
    for (const auto& shown : prompter.History()) lines.push_back(shown.Box.Lines.front());
    prompter.Clear();
    return lines;
  }
  std::string Bytes() const { return ReadAllBytes(folder / kClientsFile); }
  // A FrmCLPass worked by the user: the entries typed, then OK.
  static ScriptedScreens::Action Passwords(std::string entry, std::string confirmation = {}) {
    return [entry, confirmation](ScriptScreen& screen) {
      screen.Controls().at("TxtPass").Type(entry);
      if (screen.Controls().at("TxtPassOK").Visible()) {
        screen.Controls().at("TxtPassOK").Type(confirmation);
      }
      screen.Controls().at("CmdOK").Press();
    };
  }

  StudyState state;
  ScriptedPrompter prompter;
  ScriptedScreens screens;
  std::unique_ptr<FrmCLient> form;
};

const std::string kMessage1 = ClientMessageBox(ClientMessage::AddName).Lines.front();
const std::string kMessage2 = ClientMessageBox(ClientMessage::NoPassword).Lines.front();
const std::string kMessage3 = ClientMessageBox(ClientMessage::WrongPassword).Lines.front();
const std::string kMessage5 = ClientMessageBox(ClientMessage::OnlyEntry).Lines.front();
const std::string kMessage6 = ClientMessageBox(ClientMessage::CorrectName).Lines.front();

std::string Choice(const std::string& name) {
  return ClientMessageBox(ClientMessage::ChooseEngineer, name).Lines.front();
}

TEST_F(FrmCLientTest, WithoutAListTheScreenClosesAtOnce) {
  state.CurrentEngineer = "Κ. Νικολάου";
  EXPECT_TRUE(Open().Closed());
  EXPECT_EQ(form->Lbl_Client.Text, "Κ. Νικολάου");
  EXPECT_FALSE(std::filesystem::exists(folder / kClientsFile));
}

TEST_F(FrmCLientTest, NoToTheAdditionLeavesTheFileAndStillAsksForTheChoice) {
  MakeList({"Α. Αλεξίου"});
  const std::string before = Bytes();
  FrmCLient& f = Open();
  f.Cmd_New_Click();
  f.Controls().at("Txt_Client").Type("Ε. Ευαγγέλου");
  prompter.QueueAnswer(Answer::No);
  prompter.QueueAnswer(Answer::No);
  f.Cmd_OK_Click();
  EXPECT_EQ(Boxes(), (std::vector<std::string>{kMessage1, Choice("Ε. Ευαγγέλου")}));
  EXPECT_EQ(Bytes(), before);
  EXPECT_FALSE(f.Closed());
  EXPECT_TRUE(f.Txt_Client.Visible);  // the entry stays for another try
  EXPECT_EQ(state.CurrentEngineer, "");
}

TEST_F(FrmCLientTest, AnEmptyNameIsNotAdded) {
  MakeList({"Α. Αλεξίου"});
  const std::string before = Bytes();
  FrmCLient& f = Open();
  f.Cmd_New_Click();
  f.Controls().at("Txt_Client").Type("   ");
  f.Cmd_OK_Click();
  EXPECT_EQ(Boxes(),
            std::vector<std::string>{ClientMessageBox(ClientMessage::NoName).Lines.front()});
  EXPECT_EQ(Bytes(), before);
}

TEST_F(FrmCLientTest, ACorrectedNameIsRewrittenInItsPlaceAndTheEngineerFollows) {
  MakeList({"Α. Αλεξίου", "Β. Βασιλείου"}, "κλειδί");
  state.CurrentEngineer = "Β. Βασιλείου";
  const std::string before = Bytes();
  FrmCLient& f = Open();
  f.Cmd_COR_Click();
  EXPECT_EQ(f.Lbl_Entry.Text, FrmCLient::kCorrectionCaption);
  EXPECT_EQ(f.Txt_Client.Text, "Β. Βασιλείου");
  EXPECT_EQ(f.LblNoChars.Text, "< 12 > Χαρακτήρες");
  f.Controls().at("Txt_Client").Type("Β. Βασιλείου, Μηχ/γος Μηχ/κός");
  prompter.QueueAnswer(Answer::Yes);
  prompter.QueueAnswer(Answer::No);
  f.Cmd_OK_Click();
  EXPECT_EQ(Boxes(),
            (std::vector<std::string>{kMessage6, Choice("Β. Βασιλείου, Μηχ/γος Μηχ/κός")}));
  EXPECT_EQ(state.CurrentEngineer, "Β. Βασιλείου, Μηχ/γος Μηχ/κός");
  EXPECT_EQ(f.Lbl_Client.Text, state.CurrentEngineer);
  EXPECT_EQ(f.Lst_Names.Items[1], state.CurrentEngineer);
  EXPECT_FALSE(f.Txt_Client.Visible);
  const std::string bytes = Bytes();
  EXPECT_EQ(bytes.substr(0, 100), before.substr(0, 100));
  EXPECT_EQ(bytes.substr(100, 2), before.substr(100, 2));    // ClientNo
  EXPECT_EQ(bytes.substr(180, 20), before.substr(180, 20));  // ClientPass
  EXPECT_EQ(bytes.substr(102, 78), StoredField(state.CurrentEngineer, kClientNameWidth));
}

TEST_F(FrmCLientTest, ANameOf200CharactersStopsAtTheFieldAndTheCounterShowsIt) {
  MakeList({"Α. Αλεξίου"});
  FrmCLient& f = Open();
  f.Cmd_New_Click();
  f.Controls().at("Txt_Client").Type(std::string(200, 'N'));
  EXPECT_EQ(f.LblNoChars.Text, "< 78 > Χαρακτήρες");
  f.Controls().at("Txt_Client").Type("Ω€🙂x");  // the emoji has no byte in the code page
  EXPECT_EQ(f.Txt_Client.Text, "Ω€x");
  f.Controls().at("Txt_Client").Type(std::string(60, 'M'));
  f.Cmd_OK_Click();  // more than 50 characters: no command refuses it
  EXPECT_EQ(Boxes(), (std::vector<std::string>{kMessage1, Choice(std::string(60, 'M'))}));
  EXPECT_EQ(ReadClients(ws).Names.back(), std::string(60, 'M'));
}

TEST_F(FrmCLientTest, ANameAddedAfterADeletionSurvivesTheRewriteAtClosing) {
  MakeList({"Α. Αλεξίου", "Β. Βασιλείου"});
  FrmCLient& f = Open();
  Highlight("Α. Αλεξίου");
  prompter.QueueAnswer(Answer::Yes);
  f.Cmd_Del_Click();
  Highlight("Β. Βασιλείου");
  f.Cmd_COR_Click();
  f.Controls().at("Txt_Client").Type("Β. Βασιλείου-Δήμου");
  prompter.QueueAnswer(Answer::Yes);
  prompter.QueueAnswer(Answer::No);
  f.Cmd_OK_Click();
  // The correction lands on the record that holds the name, not on the deleted one.
  EXPECT_EQ(ReadClients(ws).Names, (std::vector<std::string>{"Α. Αλεξίου", "Β. Βασιλείου-Δήμου"}));
  f.Cmd_New_Click();
  f.Controls().at("Txt_Client").Type("Γ. Γεωργίου");
  prompter.QueueAnswer(Answer::Yes);
  prompter.QueueAnswer(Answer::No);
  f.Cmd_OK_Click();
  f.CloseBox();
  EXPECT_EQ(ReadClients(ws).Names, (std::vector<std::string>{"Β. Βασιλείου-Δήμου", "Γ. Γεωργίου"}));
}

TEST_F(FrmCLientTest, APasswordChangeStopsAtTheFirstCheckThatFails) {
  MakeList({"Α. Αλεξίου"}, "παλιό");
  const std::string before = Bytes();
  FrmCLient& f = Open();
  // A wrong entry in the hidden box: message 3, no password screen.
  f.Controls().at("Txt_Pass").Type("άλλο");
  f.Cmd_Lock_Click();
  EXPECT_EQ(Boxes(), std::vector<std::string>{kMessage3});
  EXPECT_TRUE(screens.Shown.empty());
  f.Controls().at("Txt_Pass").Type("παλιό");
  // A wrong existing password: the pass screen's message 3, and it stays until closed.
  screens.Queue([](ScriptScreen& s) {
    s.Controls().at("TxtPass").Type("λάθος");
    s.Controls().at("CmdOK").Press();
    EXPECT_FALSE(s.Closed());
  });
  f.Cmd_Lock_Click();
  EXPECT_EQ(Boxes(),
            std::vector<std::string>{PassMessageBox(PassMessage::PasswordTrouble).Lines.front()});
  // Two new entries that differ: pass message 1.
  screens.Queue(Passwords("παλιό"));
  screens.Queue([](ScriptScreen& s) {
    s.Controls().at("TxtPass").Type("ένα");
    s.Controls().at("TxtPassOK").Type("δύο");
    s.Controls().at("CmdOK").Press();
    EXPECT_FALSE(s.Closed());
  });
  f.Cmd_Lock_Click();
  EXPECT_EQ(Boxes(),
            std::vector<std::string>{PassMessageBox(PassMessage::PasswordsDiffer).Lines.front()});
  EXPECT_EQ(Bytes(), before);
  EXPECT_EQ(f.Txt_Pass.Text, "παλιό");
}

TEST_F(FrmCLientTest, AnEmptyNewPasswordUnlocksOnlyOnYes) {
  MakeList({"Α. Αλεξίου"}, "παλιό");
  FrmCLient& f = Open();
  screens.Queue(Passwords("παλιό"));
  screens.Queue([this](ScriptScreen& s) {
    s.Controls().at("CmdOK").Press();  // both empty, the question's default is No
    EXPECT_FALSE(s.Closed());
    prompter.QueueAnswer(Answer::Yes);
    s.Controls().at("CmdOK").Press();
  });
  f.Cmd_Lock_Click();
  EXPECT_EQ(Boxes(),
            (std::vector<std::string>{PassMessageBox(PassMessage::NoProtection).Lines.front(),
                                      PassMessageBox(PassMessage::NoProtection).Lines.front()}));
  EXPECT_EQ(ReadClients(ws).Password, "");
  EXPECT_EQ(f.Txt_Pass.Text, "");
}

TEST_F(FrmCLientTest, BadListsOpenWithoutHarm) {
  WriteAllBytes(folder / kClientsFile, "");
  FrmCLient& f = Open();
  EXPECT_FALSE(f.Closed());
  EXPECT_TRUE(f.Lst_Names.Items.empty());
  f.Cmd_OK_Click();  // nothing to choose
  f.Cmd_Del_Click();
  EXPECT_EQ(Boxes(), std::vector<std::string>{kMessage5});
  f.Cmd_New_Click();
  f.Controls().at("Txt_Client").Type("Α. Αλεξίου");
  f.Cmd_OK_Click();
  EXPECT_EQ(ReadClients(ws).Names, std::vector<std::string>{"Α. Αλεξίου"});
  // A garbage password field locks the list: the name can still be chosen, not added.
  std::string bytes = Bytes();
  for (std::size_t i = 80; i < 100; ++i) bytes[i] = static_cast<char>(0x90 + i);
  WriteAllBytes(folder / kClientsFile, bytes);
  FrmCLient& g = Open();
  g.Cmd_New_Click();
  g.Controls().at("Txt_Client").Type("Β");
  g.Controls().at("Txt_Pass").Type("");
  g.Cmd_OK_Click();
  EXPECT_EQ(Boxes(), std::vector<std::string>{kMessage2});
  EXPECT_EQ(Bytes(), bytes);
}

}  // namespace
