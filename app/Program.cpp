#include "Program.h"

#include "FrmCLient.h"
#include "RuntimeFault.h"

Program::Program(Workspace& workspace, Prompter& prompter, Platform& platform, Screens& screens)
    : Files(workspace),
      Boundary(workspace, prompter, State),
      Main(workspace, State, prompter, platform, Boundary, screens) {
  // The names list is a subsystem of its own, which the sheets do not know.
  screens.Wire(FrmCLient::kName, [this, &prompter, &screens] {
    FrmCLient names(Files, State, prompter, screens);
    names.Open(screens);
  });
}

namespace {

std::filesystem::path Executable(const char* argv0) {
  std::error_code ec;
  auto self = std::filesystem::read_symlink("/proc/self/exe", ec);
  return ec ? std::filesystem::absolute(argv0) : self;
}

}  // namespace

std::unique_ptr<Workspace> OpenProgramFolder(const Options& options, const char* argv0,
                                             Prompter& prompter) {
  std::unique_ptr<Workspace> ws;
  const auto folder = Workspace::ResolveProgramFolder(options.Home);
  try {
    ws = std::make_unique<Workspace>(folder);
  } catch (const RuntimeFault& fault) {
    // A batch run that writes nothing only reads the program folder: it works in one that is
    // read-only, as it stands.
    if (!options.Recalculate || options.Write) {
      prompter.Show(FaultMessage(fault));
      return nullptr;
    }
    try {
      return std::make_unique<Workspace>(folder, Workspace::Access::ReadOnly);
    } catch (const RuntimeFault& again) {
      prompter.Show(FaultMessage(again));
      return nullptr;
    }
  }
  // A failure of the seeding is told and the program goes on with what the folder holds.
  try {
    ws->SeedFrom(Workspace::InstalledDataFolder(Executable(argv0)));
  } catch (const RuntimeFault& fault) {
    prompter.Show(FaultMessage(fault));
  }
  return ws;
}

std::unique_ptr<Workspace> OpenOwnProgramFolder(const Options& options, const char* argv0,
                                                Prompter& prompter,
                                                std::optional<InstanceLock>& lock) {
  auto ws = OpenProgramFolder(options, argv0, prompter);
  if (!ws) return nullptr;
  lock.emplace(ws->Folder());
  switch (lock->Status()) {
    case InstanceLock::State::Held:
      return ws;
    case InstanceLock::State::HeldHere:
      prompter.Show(SecondCopyMessage());
      return nullptr;
    case InstanceLock::State::HeldElsewhere:
      if (prompter.Show(OtherMachineQuestion(lock->OtherMachine())) == Answer::Yes &&
          lock->TakeOver())
        return ws;
      return nullptr;
    case InstanceLock::State::DiskFull:
      prompter.Show(LockDiskFullMessage());
      return nullptr;
    case InstanceLock::State::Unusable:
      prompter.Show(LockUnusableMessage(ws->Folder() / InstanceLock::kLockFile));
      return nullptr;
  }
  return nullptr;
}
