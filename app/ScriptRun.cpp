#include "ScriptRun.h"

#include <ostream>

#include "Program.h"
#include "ScriptDriver.h"
#include "SystemSeparators.h"

namespace {

// The desktop of a script run: the display it is told to pretend, the user's locale, and a
// viewer that only says what it would have opened.
class ScriptPlatform : public Platform {
 public:
  ScriptPlatform(DisplaySize display, std::ostream& out, ScriptDriver& driver,
                 std::filesystem::path folder)
      : display_(display), out_(out), driver_(driver), folder_(std::move(folder)) {}
  DisplaySize Display() const override { return display_; }
  Separators NumberSeparators() const override { return SystemSeparators(); }
  bool OpenDocument(const std::filesystem::path& file) override {
    out_ << "[open] " << file.filename().string() << '\n';
    return true;
  }
  // The answer queued by `answer file`, relative to the program folder; the script names the
  // whole file, so the proposed one plays no part.
  std::optional<std::filesystem::path> AskSaveFile(const std::filesystem::path&, const std::string&,
                                                   const std::filesystem::path&) override {
    const auto answer = driver_.TakeFileAnswer();
    if (!answer) return std::nullopt;
    return folder_ / *answer;
  }

 private:
  DisplaySize display_;
  std::ostream& out_;
  ScriptDriver& driver_;
  std::filesystem::path folder_;
};

// Modal screens of a script run: the lines that name the screen go to it until it closes.
class ScriptScreens : public Screens {
 public:
  explicit ScriptScreens(ScriptDriver& driver) : driver_(driver) {}
  void ShowModal(ScriptScreen& screen) override { driver_.RunModal(screen); }

 private:
  ScriptDriver& driver_;
};

}  // namespace

int RunScript(const Options& options, Workspace& workspace, std::ostream& out, std::ostream& err) {
  ScriptedPrompter prompter;
  ScriptDriver driver(prompter, workspace.Folder(), out);
  ScriptPlatform platform({options.ScreenWidth, options.ScreenHeight}, out, driver,
                          workspace.Folder());
  ScriptScreens screens(driver);
  Program program(workspace, prompter, platform, screens);
  driver.SetMainScreen(&program.Main);
  driver.SetCommandRunner([&](ScriptScreen& screen, const std::function<void()>& action) {
    program.Boundary.Run(screen, action);
  });
  driver.SetStartup([&] { program.Main.Form_Load(); });
  return driver.RunFile(*options.Script, err);
}
