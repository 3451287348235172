// Ravolinette: one-pipe hot-water central heating design.
#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <iostream>
#include <optional>

#include "FrmRavolinView.h"
#include "Options.h"
#include "Program.h"
#include "QtGreek.h"
#include "QtPlatform.h"
#include "QtPrompter.h"
#include "QtScreens.h"
#include "Recalculate.h"
#include "ScriptRun.h"

namespace {

// The old screen came up centred, a little below the middle (200 twips).
void Centre(QWidget& window) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen) return;
  const QRect area = screen->availableGeometry();
  window.move(area.x() + (area.width() - window.width()) / 2,
              area.y() + (area.height() - window.height()) / 2 + 13);
}

int RunDesktop(int argc, char** argv, const Options& options) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("ravolinette"));
  InstallQtGreek(app);
  QtPrompter prompter;
  std::optional<InstanceLock> lock;
  auto ws = OpenOwnProgramFolder(options, argv[0], prompter, lock);
  if (!ws) return 2;
  // The pauses of the file operations repaint the screens; what the engineer types meanwhile
  // waits for the command to end.
  Workspace::SetEventPump(
      [] { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); });
  QtPlatform platform;
  const ViewRegistry views = ProgramViews();
  QtScreens screens(views);
  Program program(*ws, prompter, platform, screens);
  const auto window = views.Make(program.Main, program.Boundary, nullptr);
  auto& view = static_cast<FrmRavolinView&>(*window);
  prompter.SetParent(&view);
  screens.Attach(program.Boundary, &view);
  view.Kit().Run([&] { program.Main.Form_Load(); });
  Centre(view);
  view.show();
  view.Kit().ApplyFocus();
  return app.exec();
}

// A script run needs no display: the prompter records and the messages are printed.
class StderrPrompter : public Prompter {
 public:
  Answer Show(const Message& message) override {
    std::cerr << message.OneLine() << '\n';
    return message.Default;
  }
};

}  // namespace

int main(int argc, char** argv) {
  const Options options = ParseOptions(std::vector<std::string>(argv + 1, argv + argc));
  if (!options.Error.empty()) {
    std::cerr << "ravolinette: " << options.Error << "\n\n" << kUsage;
    return 2;
  }
  if (options.Help) {
    std::cout << kUsage;
    return 0;
  }
  if (options.Recalculate) {
    StderrPrompter prompter;
    auto ws = OpenProgramFolder(options, argv[0], prompter);
    if (!ws) return 2;
    return Recalculate(options, *ws, std::cout, std::cerr);
  }
  if (options.Script) {
    StderrPrompter prompter;
    std::optional<InstanceLock> lock;
    auto ws = OpenOwnProgramFolder(options, argv[0], prompter, lock);
    if (!ws) return 2;
    return RunScript(options, *ws, std::cout, std::cerr);
  }
  return RunDesktop(argc, argv, options);
}
