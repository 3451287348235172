#pragma once
// Small screens of the kit for the driver's tests: a main screen with one control of each kind,
// and a modal screen that can open another one.
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Message.h"
#include "ScreenKit.h"
#include "ScriptDriver.h"

namespace fake {

inline Message Box(std::string title, std::vector<std::string> lines, bool asks = false) {
  Message m;
  m.Title = std::move(title);
  m.Lines = std::move(lines);
  if (asks) m.Buttons = MessageButtons::YesNo;
  return m;
}

// A modal screen: a name box, an OK command that closes it, and a command that opens the
// screen below it (when it has one) and goes on when that one has closed.
class FakeChild : public Screen<FakeChild> {
 public:
  static const ControlTable<FakeChild>& Table() {
    static const ControlTable<FakeChild> table = {
        kit::TextBox("TxtName", &FakeChild::TxtName),
        kit::Command("CmdOK", &FakeChild::CmdOK,
                     [](FakeChild& s) {
                       s.Result = s.TxtName.Text;
                       s.Close();
                     }),
        kit::Command("CmdOpen", &FakeChild::CmdOpen, [](FakeChild& s) {
          s.child_->Open();
          s.Result = "after " + s.child_->Result;
        })};
    return table;
  }
  FakeChild(std::string name, ScriptDriver& driver, std::vector<std::string>& log,
            FakeChild* child = nullptr)
      : Screen(std::move(name)), driver_(driver), log_(log), child_(child) {}
  void Open() {
    Reopen();
    driver_.RunModal(*this);
    log_.push_back(ScreenName() + " returned");
  }
  void CloseBox() override {
    log_.push_back(ScreenName() + " close box");
    Close();
  }

  Field TxtName, CmdOK{"OK"}, CmdOpen{"ΑΝΟΙΓΜΑ"};
  std::string Result;

 private:
  ScriptDriver& driver_;
  std::vector<std::string>& log_;
  FakeChild* child_;
};

// The main screen of the tests, with one control of each kind.
class FakeMain : public Screen<FakeMain> {
 public:
  static const ControlTable<FakeMain>& Table() {
    using M = FakeMain;
    static const ControlTable<M> table = {
        kit::TextBox("TxtValue", &M::TxtValue,
                     {nullptr, [](M&, char32_t ch) { return ch >= U'0' && ch <= U'9'; }, nullptr}),
        kit::Label("LblResult", &M::LblResult),
        kit::Command(
            "CmdGo", &M::CmdGo,
            [](M& s) {
              s.prompter_.Show(Box("... ΠΡΟΣΟΧΗ ...", {"... ΓΡΑΜΜΗ 1 ...", "... ΓΡΑΜΜΗ 2 ..."}));
            }),
        kit::Command("CmdAsk", &M::CmdAsk,
                     [](M& s) {
                       const Message question = Box("!! ΠΡΟΣΟΧΗ !!", {"... ΣΥΝΕΧΕΙΑ ; ..."}, true);
                       s.LblResult.Text = AnswerText(s.prompter_.Show(question));
                     }),
        kit::Command("CmdOpen", &M::CmdOpen,
                     [](M& s) {
                       s.child_.Open();
                       s.LblResult.Text = "after child: " + s.child_.Result;
                     }),
        kit::Command("CmdFile", &M::CmdFile,
                     [](M& s) {
                       const auto file = s.driver_.TakeFileAnswer();
                       const std::u8string text = file ? file->u8string() : u8"cancel";
                       s.LblResult.Text = std::string(text.begin(), text.end());
                     }),
        kit::Command("CmdOff", &M::CmdOff, [](M& s) { s.log_.push_back("off pressed"); }),
        kit::Command("CmdBoom", &M::CmdBoom, [](M&) { throw std::runtime_error("boom"); }),
        kit::Command("CmdOdd", &M::CmdBoom, [](M&) { throw 42; }),
        kit::Combo("CboPipes", &M::CboPipes, [](M& s) { s.log_.push_back("pipes clicked"); }),
        kit::List("LstFiles", &M::LstFiles),
        kit::List("LstEmpty", &M::LstEmpty),
        kit::Grid("Grid", &M::Grid,
                  {[](M& s, int r, int c, const std::string& t) {
                     s.Grid.SetActiveCell(r, c);
                     s.Grid.SetText(r, c, t);
                     s.log_.push_back("edit " + std::to_string(r) + " " + std::to_string(c));
                   },
                   [](M& s, int r, int c) { s.Grid.SetActiveCell(r, c); },
                   [](M& s, CellBlock b) { s.Grid.SetBlock(b); }})};
    return table;
  }
  FakeMain(Prompter& prompter, ScriptDriver& driver, FakeChild& child,
           std::vector<std::string>& log)
      : Screen("FrmFake"), prompter_(prompter), driver_(driver), child_(child), log_(log) {
    CmdOff.Enabled = false;
    LstFiles.SetItems({"a.sht", "b.sht", "c.sht"});
  }
  bool KeyDown(const KeyStroke& key) override {
    log_.push_back("key " + KeyName(key));
    if (key.Code == KeyCode::F5) prompter_.Show(Box("F5", {}));
    return true;
  }
  void CloseBox() override { log_.push_back("FrmFake close box"); }

  Field TxtValue{"85"}, LblResult;
  Field CmdGo{"ΥΠΟΛΟΓΙΣΜΟΣ"}, CmdAsk, CmdOpen, CmdFile, CmdOff, CmdBoom;
  ComboBox CboPipes{{"Φ14x1", "Φ16x1", "Φ18x1"}, 1};
  ListBox LstFiles, LstEmpty;
  TextGrid Grid{3, 4};

 private:
  Prompter& prompter_;
  ScriptDriver& driver_;
  FakeChild& child_;
  std::vector<std::string>& log_;
};

}  // namespace fake
