#include "Workspace.h"

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <system_error>
#include <thread>
#include <utility>

#include "DiskSteps.h"
#include "FileNames.h"
#include "RuntimeFault.h"

namespace fs = std::filesystem;

using namespace disk;

namespace {

// The old program waited a tenth of a second before each file operation.
constexpr int kDefaultPauseMs = 100;
// A pause sleeps in slices this long and lets the window breathe between them.
constexpr std::chrono::milliseconds kPauseSlice{10};
// No wait of the system is meant to last longer than this; a bigger one is a slip of a caller.
constexpr double kLongestWaitMs = 3'600'000.0;
constexpr const char* kSeededList = ".seeded";

std::function<void()>& EventPump() {
  static std::function<void()> pump;
  return pump;
}

int& PauseNesting() {
  static int depth = 0;
  return depth;
}

int PauseFromEnvironment() {
  const char* text = std::getenv("RAVOLINETTE_PAUSE_MS");
  if (!text) return kDefaultPauseMs;
  const std::string_view view(text);
  int ms = 0;
  const auto [end, error] = std::from_chars(view.data(), view.data() + view.size(), ms);
  if (error != std::errc() || end != view.data() + view.size() || ms < 0) return kDefaultPauseMs;
  return ms;
}

void WaitMilliseconds(double ms) {
  if (!(ms > 0)) return;
  ms = std::min(ms, kLongestWaitMs);
  ++PauseNesting();
  struct Leave {
    ~Leave() { --PauseNesting(); }
  } leave;
  using Clock = std::chrono::steady_clock;
  const auto deadline =
      Clock::now() + std::chrono::microseconds(static_cast<int64_t>(std::llround(ms * 1000.0)));
  for (auto now = Clock::now(); now < deadline; now = Clock::now()) {
    std::this_thread::sleep_for(std::min<Clock::duration>(kPauseSlice, deadline - now));
    if (const auto& pump = EventPump()) pump();
  }
}

void MakeFolder(const fs::path& folder) {
  std::error_code ec;
  fs::create_directories(folder, ec);
  std::error_code statusError;
  if (fs::is_directory(folder, statusError)) return;
  if (!ec) ec = std::make_error_code(std::errc::not_a_directory);
  throw RuntimeFault(FaultOf(ec, FaultCode::PathNotFound), "Φάκελος " + ToUtf8(folder));
}

// What a file holds now, or nullopt when there is none.
std::optional<std::string> SnapshotOf(const fs::path& file) {
  if (!PathPresent(file)) return std::nullopt;
  // In one read: the journal keeps whole working files before every command that writes.
  return ReadRegularFile(file);
}

// Writes the old bytes back over the file where it stands and cuts it to their length: the
// blocks they need are the file's own, so a full disk does not stop it. Not atomic, so only for
// when a second file cannot be had.
bool RestoreInPlace(const fs::path& file, const std::string& bytes) {
  const int fd = ::open(file.c_str(), O_WRONLY | O_CLOEXEC);
  if (fd < 0) return false;
  bool whole = true;
  for (std::size_t done = 0; whole && done < bytes.size();) {
    const ssize_t n =
        ::pwrite(fd, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
    whole = n > 0;
    if (whole) done += static_cast<std::size_t>(n);
  }
  whole = whole && ::ftruncate(fd, static_cast<off_t>(bytes.size())) == 0 && ::fsync(fd) == 0;
  ::close(fd);
  return whole;
}

// False when the file could not be put back.
bool RestoreFile(const fs::path& file, const std::optional<std::string>& bytes) {
  try {
    std::error_code ec;
    if (!bytes) {
      fs::remove(file, ec);
      return !ec;
    }
    fs::create_directories(file.parent_path(), ec);
    WriteThroughSecondFile(file, *bytes);
    return true;
  } catch (...) {
    // A full disk has no room for the second file; the file's own room still holds its past.
    // Kept on purpose: a rollback puts back what it can; one file that resists must not keep
    // the others from being restored.
    return IsFile(file) && RestoreInPlace(file, *bytes);
  }
}

fs::path JournalKey(const fs::path& file) {
  std::error_code ec;
  const fs::path absolute = fs::absolute(file, ec);
  return (ec ? file : absolute).lexically_normal();
}

fs::path UserHome() {
  if (const char* home = std::getenv("HOME"); home && *home) return home;
  if (const passwd* entry = ::getpwuid(::getuid()); entry && entry->pw_dir) return entry->pw_dir;
  return fs::current_path();
}

std::string EnvironmentText(const char* name) {
  const char* value = std::getenv(name);
  return value ? std::string(value) : std::string();
}

// ---- The list of seeded files ---------------------------------------------------------------

std::vector<std::string> ReadSeededList(const fs::path& file) {
  std::vector<std::string> names;
  std::ifstream in(file, std::ios::binary);
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) names.push_back(line);
  }
  return names;
}

void WriteSeededList(const fs::path& file, const std::vector<std::string>& names) {
  std::string bytes;
  for (const std::string& name : names) bytes += name + "\n";
  WriteThroughSecondFile(file, bytes);
}

// Where a seeding copy failed, and why.
struct SeedFailure {
  FaultCode Code;
  std::string Name;
};

}  // namespace

// ---- The program folder -----------------------------------------------------------------------

Workspace::Workspace(fs::path programFolder, Access access) : pauseMs_(PauseFromEnvironment()) {
  std::error_code ec;
  const fs::path absolute = fs::absolute(programFolder, ec);
  folder_ = (ec ? programFolder : absolute).lexically_normal();
  if (access == Access::ReadOnly) {
    if (!fs::is_directory(folder_, ec))
      throw RuntimeFault(ec ? FaultOf(ec, FaultCode::PathNotFound) : FaultCode::PathNotFound,
                         "Φάκελος " + ToUtf8(folder_));
    return;
  }
  MakeFolder(folder_);
  MakeFolder(folder_ / kStudiesFolder);
  MakeFolder(folder_ / kPicturesFolder);
  if (TakeInjectedFailure() || ::access(folder_.c_str(), W_OK) != 0) {
    throw RuntimeFault(FaultCode::PermissionDenied, "Φάκελος " + ToUtf8(folder_));
  }
}

fs::path Workspace::ResolveProgramFolder(const std::optional<std::string>& home) {
  if (home && !home->empty()) return FromUtf8(*home);
  if (const std::string env = EnvironmentText("RAVOLINETTE_HOME"); !env.empty()) {
    return FromUtf8(env);
  }
  // A relative XDG_DATA_HOME is invalid and ignored, as the base-directory rules ask.
  if (const std::string xdg = EnvironmentText("XDG_DATA_HOME");
      !xdg.empty() && fs::path(xdg).is_absolute()) {
    return FromUtf8(xdg) / "ravolinette";
  }
  return UserHome() / ".local" / "share" / "ravolinette";
}

fs::path Workspace::InstalledDataFolder(const fs::path& executable) {
  if (const std::string env = EnvironmentText("RAVOLINETTE_DATA"); !env.empty()) {
    return FromUtf8(env);
  }
  return (executable.parent_path() / ".." / "share" / "ravolinette").lexically_normal();
}

std::vector<std::string> Workspace::SeedFrom(const fs::path& dataFolder) {
  const fs::path listFile = folder_ / kSeededList;
  std::vector<std::string> listed = ReadSeededList(listFile);
  const std::set<std::string> known(listed.begin(), listed.end());
  std::vector<std::string> shipped = FilesOf(dataFolder);
  std::sort(shipped.begin(), shipped.end());

  std::vector<std::string> copied;
  std::optional<SeedFailure> failure;
  const std::size_t listedBefore = listed.size();
  for (const std::string& name : shipped) {
    if (name == kSeededList || known.count(name)) continue;
    const fs::path target = folder_ / FromUtf8(name);
    if (!PathPresent(target)) {
      std::error_code ec = TakeInjectedFailure();
      if (!ec) fs::copy_file(dataFolder / FromUtf8(name), target, fs::copy_options::none, ec);
      if (!ec) MakeWritable(target);
      if (ec) {
        // The target was not there before: whatever the failed copy left of it goes.
        std::error_code ignored;
        fs::remove(target, ignored);
        failure = SeedFailure{FaultOf(ec, FaultCode::FileNotFound), name};
        break;
      }
      copied.push_back(name);
    }
    listed.push_back(name);
  }
  if (listed.size() != listedBefore) {
    try {
      WriteSeededList(listFile, listed);
    } catch (const RuntimeFault&) {
      if (!failure) throw;
    }
  }
  if (failure) throw RuntimeFault(failure->Code, failure->Name);
  return copied;
}

fs::path Workspace::PathOf(std::string_view name) const {
  return folder_ / FromUtf8(name);
}

int16_t Workspace::FileExists(std::string_view name) const {
  return IsFile(PathOf(name)) ? -1 : 0;
}

std::pair<int16_t, uint64_t> Workspace::FileExistsAndSize(std::string_view name) const {
  const fs::path path = PathOf(name);
  if (!IsFile(path)) return {0, 0};
  std::error_code ec;
  const uint64_t size = fs::file_size(path, ec);
  if (ec) return {0, 0};
  return {-1, size};
}

void Workspace::RequireFile(std::string_view name) const {
  disk::RequireFile(PathOf(name), std::string(name));
}

std::optional<fs::file_time_type> Workspace::LastWriteTime(std::string_view name) const {
  std::error_code ec;
  const fs::file_time_type time = fs::last_write_time(PathOf(name), ec);
  if (ec) return std::nullopt;
  return time;
}

void Workspace::SetLastWriteTime(std::string_view name, fs::file_time_type time) const {
  std::error_code ec;
  fs::last_write_time(PathOf(name), time, ec);  // a date that cannot be kept is no failure
}

// ---- File operations --------------------------------------------------------------------------

void Workspace::Delete(std::string_view name, bool ignoreErrors) {
  Pause();
  const fs::path path = PathOf(name);
  if (!PathPresent(path)) return;
  try {
    std::error_code ec;
    if (fs::is_directory(fs::symlink_status(path, ec))) {
      throw RuntimeFault(FaultCode::PathFileAccess, std::string(name));
    }
    BeforeModify(path);
    fs::remove(path, ec);
    if (ec) throw RuntimeFault(FaultOf(ec, FaultCode::FileNotFound), std::string(name));
  } catch (const RuntimeFault&) {
    if (!ignoreErrors) throw;
  }
}

void Workspace::Copy(std::string_view from, std::string_view to, bool ignoreErrors) {
  Pause();
  const std::string detail = std::string(from) + " → " + std::string(to);
  try {
    const fs::path source = PathOf(from);
    const fs::path target = PathOf(to);
    disk::RequireFile(source, detail);
    BeforeModify(target);
    std::error_code ec;
    fs::copy_file(source, target, fs::copy_options::overwrite_existing, ec);
    if (ec) throw RuntimeFault(FaultOf(ec, FaultCode::PathNotFound), detail);
    MakeWritable(target);
  } catch (const RuntimeFault&) {
    if (!ignoreErrors) throw;
  }
}

void Workspace::Rename(std::string_view from, std::string_view to, bool ignoreErrors) {
  Pause();
  const std::string detail = std::string(from) + " → " + std::string(to);
  try {
    const fs::path source = PathOf(from);
    const fs::path target = PathOf(to);
    if (!PathPresent(source)) throw RuntimeFault(FaultCode::FileNotFound, detail);
    // The old run-time's rename never replaced a file; a name taken is a failure.
    if (PathPresent(target)) throw RuntimeFault(FaultCode::PathFileAccess, detail);
    BeforeModify(source);
    BeforeModify(target);
    std::error_code ec;
    fs::rename(source, target, ec);
    if (ec) throw RuntimeFault(FaultOf(ec, FaultCode::PathNotFound), detail);
  } catch (const RuntimeFault&) {
    if (!ignoreErrors) throw;
  }
}

void Workspace::Rewrite(std::string_view name, const std::function<void(const fs::path&)>& write) {
  const fs::path target = PathOf(name);
  const fs::path second = SecondFileOf(target);
  BeforeModify(target);
  std::error_code ec;
  fs::remove(second, ec);
  try {
    write(second);
    if (!PathPresent(second)) {
      // A writer with nothing to write may not have made the file: the result is empty.
      std::ofstream empty(second, std::ios::binary);
      if (!empty) throw RuntimeFault(FaultCode::PermissionDenied, std::string(name));
    }
    Pause();
    ReplaceWithSecondFile(second, target);
  } catch (...) {
    fs::remove(second, ec);  // a second file never outlives a failed rewrite
    throw;
  }
}

void Workspace::CopySafely(std::string_view from, std::string_view to) {
  Pause();
  const fs::path source = PathOf(from);
  const std::string detail = std::string(from) + " → " + std::string(to);
  disk::RequireFile(source, detail);
  Rewrite(to, [&](const fs::path& second) {
    std::error_code ec;
    fs::copy_file(source, second, fs::copy_options::overwrite_existing, ec);
    if (ec) throw RuntimeFault(FaultOf(ec, FaultCode::DeviceIo), detail);
    MakeWritable(second);
  });
}

void Workspace::SetRewriteStepHook(std::function<void(int)> hook) {
  RewriteStepHook() = std::move(hook);
}

void Workspace::FailNextChange(std::error_code error) {
  InjectedFailure() = error;
}

std::optional<std::string> Workspace::ReadWholeFile(std::string_view name) const {
  return ReadRegularFile(PathOf(name));
}

std::vector<std::string> Workspace::ListFiles(std::string_view folder,
                                              std::string_view pattern) const {
  const fs::path where = folder.empty() ? folder_ : PathOf(folder);
  const std::u32string foldedPattern = FoldedName(pattern);
  std::vector<std::string> names;
  for (std::string& name : FilesOf(where)) {
    if (GlobMatches(FoldedName(name), foldedPattern)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end(), FileListOrder);
  return names;
}

// ---- The pause --------------------------------------------------------------------------------

void Workspace::Pause() const {
  WaitMilliseconds(pauseMs_);
}

void Workspace::WaitSeconds(double seconds) const {
  // seconds * 1000 ms, scaled by pauseMs_ / 100 ms.
  WaitMilliseconds(seconds * 10.0 * pauseMs_);
}

void Workspace::SetEventPump(std::function<void()> pump) {
  EventPump() = std::move(pump);
}

bool Workspace::InPause() {
  return PauseNesting() > 0;
}

// ---- The journal ------------------------------------------------------------------------------

void Workspace::BeginCommand() {
  frames_.emplace_back();
}

void Workspace::CommitCommand() {
  if (frames_.empty()) return;
  JournalFrame top = std::move(frames_.back());
  frames_.pop_back();
  if (frames_.empty()) return;
  JournalFrame& parent = frames_.back();
  for (auto& [file, bytes] : top) parent.try_emplace(file, std::move(bytes));
}

std::vector<std::string> Workspace::RollbackCommand() {
  std::vector<std::string> unrestored;
  if (frames_.empty()) return unrestored;
  const JournalFrame top = std::move(frames_.back());
  frames_.pop_back();
  for (const auto& [file, bytes] : top)
    if (!RestoreFile(file, bytes)) unrestored.push_back(NameOf(file));
  return unrestored;
}

void Workspace::BeforeModify(const fs::path& file) {
  if (frames_.empty()) return;
  JournalFrame& top = frames_.back();
  const fs::path key = JournalKey(file);
  if (top.count(key)) return;
  top.emplace(key, SnapshotOf(key));
}

std::string WithBackslash(std::string_view path) {
  std::string text(path);
  if (text.empty() || text.back() != '/') text += '/';
  return text;
}
