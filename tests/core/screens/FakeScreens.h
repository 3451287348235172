#pragma once
// Small screens for the driver's tests: a main screen with one control of each kind, and a
// modal screen that can open another one.
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Controls.h"
#include "Message.h"
#include "ScriptDriver.h"

namespace fake {

inline bool DigitsOnly(char32_t ch) {
  return ch >= U'0' && ch <= U'9';
}

inline std::string Utf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

// A modal screen: a name box, an OK command that closes it, and a command that opens the
// screen below it (when it has one) and goes on when that one has closed.
class FakeChild : public ScriptScreen {
 public:
  FakeChild(std::string name, ScriptDriver& driver, std::vector<std::string>& log,
            FakeChild* child = nullptr)
      : name_(std::move(name)), driver_(driver), log_(log), child_(child) {
    controls_["TxtName"] = TextBoxControl(TxtName, {});
    controls_["CmdOK"] = CommandControl(CmdOK, [this] {
      Result = TxtName.Text;
      closed_ = true;
    });
    controls_["CmdOpen"] = CommandControl(CmdOpen, [this] {
      child_->Open();
      Result = "after " + child_->Result;
    });
  }
  void Open() {
    closed_ = false;
    driver_.RunModal(*this);
    log_.push_back(name_ + " returned");
  }
  std::string ScreenName() const override { return name_; }
  ControlMap& Controls() override { return controls_; }
  bool KeyDown(const KeyStroke& key) override {
    log_.push_back(name_ + " key " + KeyName(key));
    if (key.Code == KeyCode::Escape) closed_ = true;
    return true;
  }
  void CloseBox() override {
    log_.push_back(name_ + " close box");
    closed_ = true;
  }
  bool Closed() const override { return closed_; }

  Field TxtName, CmdOK{"OK"}, CmdOpen{"ΑΝΟΙΓΜΑ"};
  std::string Result;

 private:
  std::string name_;
  ScriptDriver& driver_;
  std::vector<std::string>& log_;
  FakeChild* child_;
  ControlMap controls_;
  bool closed_ = false;
};

inline Message Warning() {
  Message m;
  m.Title = "... ΠΡΟΣΟΧΗ ...";
  m.Lines = {"... ΓΡΑΜΜΗ 1 ...", "... ΓΡΑΜΜΗ 2 ..."};
  m.Beeps = 2;
  return m;
}

inline Message Question() {
  Message m;
  m.Title = "!! ΠΡΟΣΟΧΗ !!";
  m.Lines = {"... ΣΥΝΕΧΕΙΑ ; ..."};
  m.Buttons = MessageButtons::YesNo;
  m.Default = Answer::Yes;
  return m;
}

inline Message KeyBox() {
  Message m;
  m.Title = "F5";
  return m;
}

// The main screen of the tests, with one control of each kind.
class FakeMain : public ScriptScreen {
 public:
  FakeMain(Prompter& prompter, ScriptDriver& driver, FakeChild& child,
           std::vector<std::string>& log)
      : prompter_(prompter), driver_(driver), child_(child), log_(log) {
    CmdOff.Enabled = false;
    CmdGone.Visible = false;
    controls_["TxtValue"] = TextBoxControl(TxtValue, {nullptr, DigitsOnly, nullptr});
    controls_["TxtThema"] = TextBoxControl(TxtThema, {});
    controls_["LblResult"] = LabelControl(LblResult);
    AddCommands();
    controls_["CboPipes"] = ComboControl(CboPipes, [this] { log_.push_back("pipes clicked"); });
    AddListsAndGrid();
  }
  std::string ScreenName() const override { return "FrmFake"; }
  ControlMap& Controls() override { return controls_; }
  bool KeyDown(const KeyStroke& key) override {
    log_.push_back("key " + KeyName(key));
    if (key.Code == KeyCode::F5) prompter_.Show(KeyBox());
    return true;
  }
  void CloseBox() override { log_.push_back("FrmFake close box"); }
  bool Closed() const override { return false; }

  Field TxtValue{"85"}, TxtThema{"ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ"}, LblResult;
  Field CmdGo{"ΥΠΟΛΟΓΙΣΜΟΣ"}, CmdAsk, CmdOpen, CmdFile, CmdOff, CmdGone, CmdBoom;
  ComboBox CboPipes{{"Φ14x1", "Φ16x1", "Φ18x1"}, 1};
  std::vector<std::string> Files{"a.sht", "b.sht", "c.sht"}, Selected;
  bool Save = false;
  TextGrid Grid{3, 4};

 private:
  void AddCommands() {
    controls_["CmdGo"] = CommandControl(CmdGo, [this] { prompter_.Show(Warning()); });
    controls_["CmdAsk"] =
        CommandControl(CmdAsk, [this] { LblResult.Text = AnswerText(prompter_.Show(Question())); });
    controls_["CmdOpen"] = CommandControl(CmdOpen, [this] {
      child_.Open();
      LblResult.Text = "after child: " + child_.Result;
    });
    controls_["CmdFile"] = CommandControl(CmdFile, [this] {
      const auto file = driver_.TakeFileAnswer();
      LblResult.Text = file ? Utf8(*file) : "cancel";
    });
    controls_["CmdOff"] = CommandControl(CmdOff, [this] { log_.push_back("off pressed"); });
    controls_["CmdGone"] = CommandControl(CmdGone, [this] { log_.push_back("gone pressed"); });
    controls_["CmdBoom"] = CommandControl(CmdBoom, [] { throw std::runtime_error("boom"); });
    controls_["CmdOdd"] = CommandControl(CmdBoom, [] { throw 42; });
    Control check;
    check.Press = [this] { Save = !Save; };
    check.Checked = [this] { return Save; };
    controls_["ChkSave"] = check;
  }
  void AddListsAndGrid() {
    Control files;
    files.Entries = [this] { return Files; };
    files.Select = [this](const std::vector<std::string>& s) { Selected = s; };
    controls_["LstFiles"] = files;
    Control empty;
    empty.Entries = [] { return std::vector<std::string>{}; };
    controls_["LstEmpty"] = empty;
    Control grid;
    grid.Grid = &Grid;
    grid.EditCell = [this](int r, int c, const std::string& t) {
      Grid.SetActiveCell(r, c);
      Grid.SetText(r, c, t);
      log_.push_back("edit " + std::to_string(r) + " " + std::to_string(c));
    };
    grid.ClickCell = [this](int r, int c) { Grid.SetActiveCell(r, c); };
    grid.MarkBlock = [this](CellBlock b) { Grid.SetBlock(b); };
    controls_["Grid"] = grid;
  }

  Prompter& prompter_;
  ScriptDriver& driver_;
  FakeChild& child_;
  std::vector<std::string>& log_;
  ControlMap controls_;
};

}  // namespace fake
