// Several files replaced as one step. The new files are made and flushed beside their targets
// first; then a list of the set's names is put in place with a rename, which commits the set;
// then each new file takes its target's place and the list goes. A crash before the list
// stands leaves the old files, and the next look at the folder throws the new ones away; a crash
// after it leaves new files that the next look puts in place.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <fstream>

#include "DiskSteps.h"
#include "Workspace.h"

namespace fs = std::filesystem;
using namespace disk;

namespace {

constexpr const char* kNewSuffix = ".@@new";  // a file of a set, made beside its target
constexpr const char* kSetSuffix = ".@@set";  // the list of a set: where it stands, the set holds

fs::path WithSuffix(const fs::path& path, const char* suffix) {
  fs::path result = path;
  result += suffix;
  return result;
}

bool EndsWith(const std::string& text, std::string_view tail) {
  return text.size() >= tail.size() &&
         text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

void RemoveQuietly(const fs::path& path) {
  std::error_code ignored;
  fs::remove(path, ignored);
}

// One writer of sets per folder at a time, across processes: two batch runs writing one study,
// or a start finishing sets while another copy writes one. The system lets the lock go with the
// process that held it.
class FolderLock {
 public:
  explicit FolderLock(const fs::path& folder)
      : fd_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    held_ = fd_ >= 0 && ::flock(fd_, LOCK_EX | LOCK_NB) == 0;
  }
  ~FolderLock() {
    if (fd_ >= 0) ::close(fd_);
  }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;
  bool Held() const { return held_; }

 private:
  int fd_;
  bool held_ = false;
};

// Every new file of a committed set takes its place (one already there is skipped), then the
// list goes.
void FinishSet(const fs::path& list) {
  const fs::path folder = list.parent_path();
  std::ifstream in(list, std::ios::binary);
  for (std::string name; std::getline(in, name);) {
    if (name.empty()) continue;
    const fs::path target = folder / FromUtf8(name);
    const fs::path made = WithSuffix(target, kNewSuffix);
    if (!PathPresent(made)) continue;
    std::error_code ec;
    fs::rename(made, target, ec);
    if (ec) throw RuntimeFault(FaultOf(ec, FaultCode::PathNotFound), NameOf(target));
    RewriteStep(Workspace::kSetFileInPlace);
  }
  in.close();
  SyncFolder(folder);
  RewriteStep(Workspace::kSetFolderFlushed);
  std::error_code ec;
  fs::remove(list, ec);
  if (ec) throw RuntimeFault(FaultOf(ec, FaultCode::PathNotFound), NameOf(list));
  RewriteStep(Workspace::kSetListRemoved);
  SyncFolder(folder);
}

}  // namespace

void Workspace::CopyAsOneSet(const std::vector<std::pair<std::string, std::string>>& copies) {
  if (copies.empty()) return;
  std::vector<fs::path> targets;
  for (const auto& [from, to] : copies) targets.push_back(PathOf(to));
  const fs::path list = WithSuffix(targets.front(), kSetSuffix);
  CompleteFileSets(ToUtf8(list.parent_path()));
  // Another run writing in the folder: the run-time's answer to a file in use by another.
  const FolderLock lock(list.parent_path());
  if (!lock.Held()) throw RuntimeFault(FaultCode::PermissionDenied, NameOf(targets.front()));
  // A file the engineer has write-protected is not replaced behind his back.
  for (const fs::path& target : targets)
    if (WriteProtected(target)) throw RuntimeFault(FaultCode::PermissionDenied, NameOf(target));
  try {
    for (std::size_t i = 0; i < copies.size(); ++i) {
      Pause();
      const fs::path source = PathOf(copies[i].first);
      const std::string detail = copies[i].first + " → " + copies[i].second;
      disk::RequireFile(source, detail);
      BeforeModify(targets[i]);
      const fs::path made = WithSuffix(targets[i], kNewSuffix);
      RemoveQuietly(made);
      std::error_code ec = TakeInjectedFailure();
      if (!ec) fs::copy_file(source, made, fs::copy_options::overwrite_existing, ec);
      if (ec) throw RuntimeFault(FaultOf(ec, FaultCode::DeviceIo), detail);
      MakeWritable(made);
      RewriteStep(Workspace::kSetFileWritten);
      SyncFile(made);
      RewriteStep(Workspace::kSetFileFlushed);
    }
    std::string names;
    for (const fs::path& target : targets) names += NameOf(target) + '\n';
    WriteThroughSecondFile(list, names);
  } catch (...) {
    for (const fs::path& target : targets) RemoveQuietly(WithSuffix(target, kNewSuffix));
    RemoveQuietly(SecondFileOf(list));
    throw;
  }
  FinishSet(list);
}

void Workspace::CompleteFileSets(std::string_view folderName) {
  const fs::path folder = PathOf(folderName);
  // Another run is writing a set here: its files are not leftovers, and it finishes its own.
  const FolderLock lock(folder);
  if (!lock.Held()) return;
  for (const std::string& name : FilesOf(folder)) {
    if (!EndsWith(name, kSetSuffix)) continue;
    try {
      FinishSet(folder / FromUtf8(name));
    } catch (const RuntimeFault&) {
      // Kept on purpose: a set that cannot be finished now stays committed; the next look
      // finishes it.
    }
  }
  // What is left of a set that was never committed, or of a rewrite that never ended.
  for (const std::string& name : FilesOf(folder))
    if (EndsWith(name, kNewSuffix) || EndsWith(name, kSecondFileSuffix))
      RemoveQuietly(folder / FromUtf8(name));
}
