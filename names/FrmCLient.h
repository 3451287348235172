#pragma once
// The names list: picks the engineer whose name the printouts carry, and keeps the list of
// names, locked by a password of its own.
#include <string>
#include <vector>

#include "ClientMessages.h"
#include "Message.h"
#include "ScreenKit.h"
#include "StudyState.h"
#include "Workspace.h"

class FrmCLient : public Dialog<FrmCLient> {
 public:
  static constexpr const char* kName = "FrmCLient";
  static const ControlTable<FrmCLient>& Table();
  static constexpr const char* kCaption = "ΕΠΙΛΟΓΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ";
  static constexpr const char* kNewCaption = "ΔΩΣΕ ΤΟ ΟΝΟΜΑ ΤΟΥ ΝΕΟΥ ΜΕΛΕΤΗΤΗ";
  static constexpr const char* kCorrectionCaption = "ΔΙΟΡΘΩΣΗ ΤΟΥ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ";

  FrmCLient(Workspace& workspace, StudyState& state, Prompter& prompter, Screens& screens);

  // Shows the current engineer and reads the list; without a list the screen closes at once.
  void Form_Load() override;

  Field Caption{kCaption};
  Field LblCurrent{"ΤΡΕΧΟΝ ΟΝΟΜΑ ΜΕΛΕΤΗΤΗ"}, Lbl_Client;
  ListBox Lst_Names;
  Field Lbl_Entry, Txt_Client, LblNoChars;
  Field Lbl_Pass{"Password :"}, Txt_Pass;
  Field Cmd_New{"Νέο Όνομα"}, Cmd_COR{"Διόρθωση"}, Cmd_Copy{"Αντιγραφή"}, Cmd_OK{"OK"},
      Cmd_Del{"Διαγραφή"}, Cmd_Lock{" Αλλαγή Password "}, Cmd_Exit{"Έξοδος"};

  void Cmd_New_Click();
  void Cmd_COR_Click();
  void Cmd_Copy_Click();
  void Cmd_OK_Click();
  void Cmd_Del_Click();
  void Cmd_Lock_Click();
  void Cmd_Exit_Click() { CloseScreen(); }
  // Every change of Txt_Client, typed or set by a command: the counter follows.
  void Txt_Client_Change();
  // Only what the file's code page can hold is typed into a name or a password.
  static bool Txt_KeyPress(char32_t ch);

  // The entry is open for a new name, or for the correction of a name of the list.
  bool NewNameMode() const { return Txt_Client.Visible && correctedEntry_ < 0; }
  bool CorrectionMode() const { return Txt_Client.Visible && correctedEntry_ >= 0; }

  // The close box writes the list anew when names left it.
  void CloseBox() override { CloseScreen(); }

 private:
  void OpenEntry(const std::string& caption, const std::string& text);
  void CloseEntry();
  void SetEntryText(const std::string& text);
  std::string HighlightedName() const;
  bool StoredPasswordMissing();
  void KeepEntryInList(const std::string& name);
  void AppendToFile(const std::string& name);
  void CorrectInFile(int record, const std::string& name);
  void ChooseEngineer(const std::string& name);
  void ShowCurrentEngineer();
  // Asks and leaves the answer, emptied from the shared state.
  std::string Ask(ClientMessage code, const std::string& name = {});
  void CloseScreen();
  std::function<void()> KeepOwnState() override;

  Workspace& ws_;
  StudyState& st_;
  Prompter& prompter_;
  Screens& screens_;
  std::string kept_;          // the password of the list, as read at opening or set since
  std::vector<int> records_;  // the file record of each list entry
  int correctedEntry_ = -1;   // the list entry being corrected, -1 for a new name
  bool deleted_ = false;      // a name left the list: the file is written anew on closing
};
