#pragma once
// The script driver: runs the screens' logic without a display. Each line of a script is an
// action of a user or an expectation; every message box shown is printed; questions are
// answered from the script. The syntax (one line each, "#" starts a comment outside quotes):
//   set FORM.Txt "text"            choose FORM.Cbo "entry" | #k     select FORM.Lst "a" ...
//   press FORM.Ctl                 key FORM NAME                    close FORM
//   cell FORM.Grid r c "text"      click FORM.Grid r c              mark FORM.Grid r1 c1 r2 c2
//   answer YES | NO                answer file "RVLFiles/x.sht"     answer cancel
//   expect FORM.Ctl "text"         expect FORM.Lst "a" "b" ...      expect FORM.Grid r c "text"
//   expect FORM.Ctl enabled|disabled|visible|hidden|checked|unchecked
//   expect screen FORM             expect message "line"            expect no message
//   expect file "NAME" size N      expect no file "NAME"
// The first expectation that fails stops the script: file, line, what was expected and what
// was found, exit status 1.
#include <deque>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "Controls.h"
#include "Message.h"

// One line of a script, split into words; quoted words keep their blanks.
struct ScriptLine {
  int Number = 0;
  std::vector<std::string> Words;
  std::vector<bool> Quoted;  // per word: it was written in quotes
};
// Splits a script into lines of words. Words are separated by blanks; a word in double quotes
// may hold blanks and \" (a quote) or \\ (a backslash). "#" outside quotes starts a comment,
// except a whole word "#k" of digits after the first word (choose FORM.Cbo #2). Lines without
// words are left out. Throws ScriptError on an unclosed quote.
std::vector<ScriptLine> ParseScript(const std::string& text);

// Why a script stopped: a line that could not be understood or an expectation that failed.
// The driver throws it to unwind out of the commands and modal screens open at the time;
// the command boundary lets it pass.
struct ScriptError {
  int Line = 0;
  std::string What;
};

class ScriptDriver {
 public:
  // `folder` is the program folder (expect file), `out` receives the printed boxes.
  ScriptDriver(ScriptedPrompter& prompter, std::filesystem::path folder, std::ostream& out);

  // The main screen: lines go to it when no modal screen is open.
  void SetMainScreen(ScriptScreen* screen) { main_ = screen; }
  // Every user action runs through this (the command boundary), with the screen it acts on.
  // Default: run it directly.
  using CommandRunner = std::function<void(ScriptScreen&, const std::function<void()>&)>;
  void SetCommandRunner(CommandRunner runner);
  // The start of the program (the main screen's load), run once the script is read, so that a
  // screen the start opens (the recovery of a study left behind) takes the first lines.
  void SetStartup(std::function<void()> startup) { startup_ = std::move(startup); }

  // Runs a script file. Returns the exit status: 0 all passed, 1 an expectation failed or a
  // line could not be understood (the reason printed to `err`).
  int RunFile(const std::filesystem::path& file, std::ostream& err);
  int RunText(const std::string& text, const std::string& fileName, std::ostream& err);

  // Called by the script's Screens when a command opens a modal screen: the following lines
  // that name it run against it until it closes. Returns when it has closed (or the script
  // ended, in which case the screen is closed through its close box).
  void RunModal(ScriptScreen& screen);

  // The next queued answer of an open or save dialog: a path relative to the program folder,
  // or nullopt for cancel. With nothing queued the dialog is cancelled.
  std::optional<std::filesystem::path> TakeFileAnswer();

 private:
  void Execute(const ScriptLine& line);
  void ControlAction(const ScriptLine& line);
  void Choose(const ScriptLine& line, ScriptScreen& screen, const Control& control);
  void GridAction(const ScriptLine& line, ScriptScreen& screen, const Control& control);
  void ScreenAction(const ScriptLine& line);
  void AnswerLine(const ScriptLine& line);
  void Expect(const ScriptLine& line);
  void ExpectControl(const ScriptLine& line);
  void ExpectScreen(const ScriptLine& line);
  void ExpectMessage(const ScriptLine& line);
  void ExpectNoMessage(const ScriptLine& line);
  void ExpectFile(const ScriptLine& line, bool present);
  void PrintShown(const ScriptedPrompter::Shown& shown);
  int LineNumber() const;  // of the line running, or that ran last
  ScriptScreen& ScreenNamed(const std::string& name, int line);
  Control& ControlNamed(const std::string& dotted, int line, ScriptScreen** screen = nullptr);
  ScriptScreen* TopScreen();
  void Act(ScriptScreen& screen, const std::function<void()>& action);

  ScriptedPrompter& prompter_;
  std::filesystem::path folder_;
  std::ostream& out_;
  ScriptScreen* main_ = nullptr;
  std::vector<ScriptScreen*> modal_;
  CommandRunner runner_;
  std::deque<std::optional<std::filesystem::path>> fileAnswers_;
  std::vector<ScriptLine> lines_;
  std::size_t next_ = 0;          // the next line to run
  std::size_t expectedUpTo_ = 0;  // messages of the history already expected
  std::string fileName_;
  std::function<void()> startup_;
};
