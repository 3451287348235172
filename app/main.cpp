// Ravolinette: one-pipe hot-water central heating design.
#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>

#include "CommandBoundary.h"
#include "FrmRavolin.h"
#include "FrmRavolinView.h"
#include "InstanceLock.h"
#include "Options.h"
#include "QtPlatform.h"
#include "QtPrompter.h"
#include "QtScreens.h"
#include "Recalculate.h"
#include "RuntimeFault.h"
#include "ScreenWiring.h"
#include "ScriptRun.h"
#include "StudyState.h"
#include "Workspace.h"

namespace {

std::filesystem::path Executable(const char* argv0) {
  std::error_code ec;
  auto self = std::filesystem::read_symlink("/proc/self/exe", ec);
  return ec ? std::filesystem::absolute(argv0) : self;
}

// The program folder, with the shipped files it has not received yet. A failure here is
// reported and the program goes on with what the folder holds.
std::unique_ptr<Workspace> OpenWorkspace(const Options& options, const char* argv0,
                                         Prompter& prompter) {
  std::unique_ptr<Workspace> ws;
  try {
    ws = std::make_unique<Workspace>(Workspace::ResolveProgramFolder(options.Home));
  } catch (const RuntimeFault& fault) {
    prompter.Show(FaultMessage(fault));
    return nullptr;
  }
  try {
    ws->SeedFrom(Workspace::InstalledDataFolder(Executable(argv0)));
  } catch (const RuntimeFault& fault) {
    prompter.Show(FaultMessage(fault));
  }
  return ws;
}

// The program folder for a run that works in it: none when it cannot be opened, or when another
// copy of the program holds it (the second copy is told so). `lock` keeps the hold.
std::unique_ptr<Workspace> OpenOwnWorkspace(const Options& options, const char* argv0,
                                            Prompter& prompter, std::optional<InstanceLock>& lock) {
  auto ws = OpenWorkspace(options, argv0, prompter);
  if (!ws) return nullptr;
  lock.emplace(ws->Folder());
  if (lock->Held()) return ws;
  prompter.Show(SecondCopyMessage());
  return nullptr;
}

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
  QtPrompter prompter;
  std::optional<InstanceLock> lock;
  auto ws = OpenOwnWorkspace(options, argv[0], prompter, lock);
  if (!ws) return 2;
  Workspace::SetEventPump([] { QCoreApplication::processEvents(); });
  QtPlatform platform;
  StudyState state;
  CommandBoundary boundary(*ws, prompter);
  QtScreens screens(boundary);
  FrmRavolin logic(*ws, state, prompter, platform, boundary, screens);
  WireScreens(logic, *ws, state, prompter, screens);
  FrmRavolinView view(logic, boundary);
  prompter.SetParent(&view);
  screens.SetParent(&view);
  boundary.Run([&] { logic.Form_Load(); });
  view.Render();
  Centre(view);
  view.show();
  view.ApplyFocus();
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
    auto ws = OpenWorkspace(options, argv[0], prompter);
    if (!ws) return 2;
    return Recalculate(options, *ws, std::cout, std::cerr);
  }
  if (options.Script) {
    StderrPrompter prompter;
    std::optional<InstanceLock> lock;
    auto ws = OpenOwnWorkspace(options, argv[0], prompter, lock);
    if (!ws) return 2;
    return RunScript(options, *ws, std::cout, std::cerr);
  }
  return RunDesktop(argc, argv, options);
}
