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

using Lines = std::vector<std::string>;

// The first line of a box of the list, or of the password screen.
std::string Line(ClientMessage code, const std::string& name = {}) {
  return ClientMessageBox(code, name).Lines.front();
}
std::string Line(PassMessage code) {
  return PassMessageBox(code).Lines.front();
}

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
  void Type(const char* control, const std::string& text) {
    form->Controls().at(control).Type(text);
  }
  void Highlight(const std::string& name) { form->Controls().at("Lst_Names").Select({name}); }
  // A name typed into the entry, then OK with these answers to its questions.
  void Enter(const std::string& name, const std::vector<Answer>& answers) {
    Type("Txt_Client", name);
    for (Answer a : answers) prompter.QueueAnswer(a);
    form->Cmd_OK_Click();
  }
  // The first lines of every box shown since the last call.
  Lines Boxes() {
    Lines lines;
    for (const auto& shown : prompter.History()) lines.push_back(shown.Box.Lines.front());
    prompter.Clear();
    return lines;
  }
  std::string Bytes() const { return ReadAllBytes(folder / kClientsFile); }
  // A FrmCLPass worked by the user: the entry typed, then OK; refused, it stays open.
  static ScriptedScreens::Action Password(std::string entry, bool refused = false) {
    return [=](ScriptScreen& screen) {
      screen.Controls().at("TxtPass").Type(entry);
      screen.Controls().at("CmdOK").Press();
      EXPECT_EQ(screen.Closed(), !refused) << entry;
    };
  }

  StudyState state;
  ScriptedPrompter prompter;
  ScriptedScreens screens;
  std::unique_ptr<FrmCLient> form;
};

TEST_F(FrmCLientTest, WithoutAListTheScreenClosesAtOnce) {
  state.CurrentEngineer = "Κ. Νικολάου";
  EXPECT_TRUE(Open().Closed());
  EXPECT_EQ(form->Lbl_Client.Text, "Κ. Νικολάου");
  EXPECT_FALSE(std::filesystem::exists(folder / kClientsFile));
}

// No to the addition still asks for the choice; an empty name is not added. Either way the file
// stays as it was and the entry stays for another try.
TEST_F(FrmCLientTest, ANameNotAddedLeavesTheFileAndTheEntry) {
  const struct {
    const char* Name;
    std::vector<Answer> Answers;
    Lines Shown;
  } cases[] = {
      {"Ε. Ευαγγέλου",
       {Answer::No, Answer::No},
       {Line(ClientMessage::AddName), Line(ClientMessage::ChooseEngineer, "Ε. Ευαγγέλου")}},
      {"   ", {}, {Line(ClientMessage::NoName)}},
  };
  MakeList({"Α. Αλεξίου"});
  const std::string before = Bytes();
  for (const auto& c : cases) {
    Open().Cmd_New_Click();
    Enter(c.Name, c.Answers);
    EXPECT_EQ(Boxes(), c.Shown);
    EXPECT_EQ(Bytes(), before);
    EXPECT_FALSE(form->Closed());
    EXPECT_TRUE(form->Txt_Client.Visible);
    EXPECT_EQ(state.CurrentEngineer, "");
  }
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
  const std::string corrected = "Β. Βασιλείου, Μηχ/γος Μηχ/κός";
  Enter(corrected, {Answer::Yes, Answer::No});
  EXPECT_EQ(Boxes(), (Lines{Line(ClientMessage::CorrectName),
                            Line(ClientMessage::ChooseEngineer, corrected)}));
  EXPECT_EQ(state.CurrentEngineer, corrected);
  EXPECT_EQ(f.Lbl_Client.Text, corrected);
  EXPECT_EQ(f.Lst_Names.Items[1], corrected);
  EXPECT_FALSE(f.Txt_Client.Visible);
  // Only the name of the second record changes: its number and the password stay.
  const std::string bytes = Bytes();
  EXPECT_EQ(bytes.substr(0, 102), before.substr(0, 102));
  EXPECT_EQ(bytes.substr(102, 78), StoredField(corrected, kClientNameWidth));
  EXPECT_EQ(bytes.substr(180, 20), before.substr(180, 20));
}

TEST_F(FrmCLientTest, ANameOf200CharactersStopsAtTheFieldAndTheCounterShowsIt) {
  MakeList({"Α. Αλεξίου"});
  FrmCLient& f = Open();
  f.Cmd_New_Click();
  Type("Txt_Client", std::string(200, 'N'));
  EXPECT_EQ(f.LblNoChars.Text, "< 78 > Χαρακτήρες");
  Type("Txt_Client", "Ω€🙂x");  // the emoji has no byte in the code page
  EXPECT_EQ(f.Txt_Client.Text, "Ω€x");
  const std::string sixty(60, 'M');
  Enter(sixty, {});  // more than 50 characters: no command refuses it
  EXPECT_EQ(Boxes(),
            (Lines{Line(ClientMessage::AddName), Line(ClientMessage::ChooseEngineer, sixty)}));
  EXPECT_EQ(ReadClients(ws).Names.back(), sixty);
}

TEST_F(FrmCLientTest, ANameAddedAfterADeletionSurvivesTheRewriteAtClosing) {
  MakeList({"Α. Αλεξίου", "Β. Βασιλείου"});
  FrmCLient& f = Open();
  Highlight("Α. Αλεξίου");
  prompter.QueueAnswer(Answer::Yes);
  f.Cmd_Del_Click();
  Highlight("Β. Βασιλείου");
  f.Cmd_COR_Click();
  Enter("Β. Βασιλείου-Δήμου", {Answer::Yes, Answer::No});
  // The correction lands on the record that holds the name, not on the deleted one.
  EXPECT_EQ(ReadClients(ws).Names, (Lines{"Α. Αλεξίου", "Β. Βασιλείου-Δήμου"}));
  f.Cmd_New_Click();
  Enter("Γ. Γεωργίου", {Answer::Yes, Answer::No});
  f.CloseBox();
  EXPECT_EQ(ReadClients(ws).Names, (Lines{"Β. Βασιλείου-Δήμου", "Γ. Γεωργίου"}));
}

TEST_F(FrmCLientTest, APasswordChangeStopsAtTheFirstCheckThatFails) {
  MakeList({"Α. Αλεξίου"}, "παλιό");
  const std::string before = Bytes();
  FrmCLient& f = Open();
  // A wrong entry in the hidden box: message 3, no password screen.
  Type("Txt_Pass", "άλλο");
  f.Cmd_Lock_Click();
  EXPECT_EQ(Boxes(), Lines{Line(ClientMessage::WrongPassword)});
  EXPECT_TRUE(screens.Shown.empty());
  Type("Txt_Pass", "παλιό");
  // A wrong existing password: the pass screen's message 3, and it stays until closed.
  screens.Queue(Password("λάθος", true));
  f.Cmd_Lock_Click();
  EXPECT_EQ(Boxes(), Lines{Line(PassMessage::PasswordTrouble)});
  EXPECT_EQ(Bytes(), before);
  EXPECT_EQ(f.Txt_Pass.Text, "παλιό");
}

TEST_F(FrmCLientTest, AnEmptyNewPasswordUnlocksOnlyOnYes) {
  MakeList({"Α. Αλεξίου"}, "παλιό");
  FrmCLient& f = Open();
  screens.Queue(Password("παλιό"));
  screens.Queue([this](ScriptScreen& s) {
    s.Controls().at("CmdOK").Press();  // both empty, the question's default is No
    EXPECT_FALSE(s.Closed());
    prompter.QueueAnswer(Answer::Yes);
    s.Controls().at("CmdOK").Press();
  });
  f.Cmd_Lock_Click();
  EXPECT_EQ(Boxes(), Lines(2, Line(PassMessage::NoProtection)));
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
  EXPECT_EQ(Boxes(), Lines{Line(ClientMessage::OnlyEntry)});
  f.Cmd_New_Click();
  Enter("Α. Αλεξίου", {});
  EXPECT_EQ(ReadClients(ws).Names, Lines{"Α. Αλεξίου"});
  // A garbage password field locks the list: the name can still be chosen, not added.
  std::string bytes = Bytes();
  for (std::size_t i = 80; i < 100; ++i) bytes[i] = static_cast<char>(0x90 + i);
  WriteAllBytes(folder / kClientsFile, bytes);
  Open().Cmd_New_Click();
  Type("Txt_Pass", "");
  Enter("Β", {});
  EXPECT_EQ(Boxes(), Lines{Line(ClientMessage::NoPassword)});
  EXPECT_EQ(Bytes(), bytes);
}

}  // namespace
