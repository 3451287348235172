#include "ScriptRun.h"

#include <ostream>

#include "CommandBoundary.h"
#include "FrmRavolin.h"
#include "ScriptDriver.h"
#include "StudyState.h"
#include "SystemSeparators.h"

namespace {

// The desktop of a script run: the display it is told to pretend, the user's locale, and a
// viewer that only says what it would have opened.
class ScriptPlatform : public Platform {
 public:
  ScriptPlatform(DisplaySize display, std::ostream& out) : display_(display), out_(out) {}
  DisplaySize Display() const override { return display_; }
  Separators NumberSeparators() const override { return SystemSeparators(); }
  void OpenDocument(const std::filesystem::path& file) override {
    out_ << "[open] " << file.filename().string() << '\n';
  }

 private:
  DisplaySize display_;
  std::ostream& out_;
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
  ScriptPlatform platform({options.ScreenWidth, options.ScreenHeight}, out);
  StudyState state;
  CommandBoundary boundary(workspace, prompter);
  ScriptScreens screens(driver);
  FrmRavolin main(workspace, state, prompter, platform, boundary, screens);
  driver.SetMainScreen(&main);
  driver.SetCommandRunner([&](const std::function<void()>& action) { boundary.Run(action); });
  boundary.Run([&] { main.Form_Load(); });
  return driver.RunFile(*options.Script, err);
}
