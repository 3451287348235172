#pragma once
// The program folder and every file operation on it. The study lives in working files of this
// folder; this class is the one owner of their deletes, copies, renames and rewrites, each
// preceded by the system's pause, and of the journal that lets a failed command put the files
// back (BeginCommand / CommitCommand / RollbackCommand).
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "FileJournal.h"
#include "RecordFile.h"
#include "WorkingFile.h"

class Workspace : public FileJournal {
 public:
  // The two folders every program folder has: the studies, and the pictures of the network.
  static constexpr const char* kStudiesFolder = "RVLFiles";
  static constexpr const char* kPicturesFolder = "GMI";

  // Opens (and creates when missing) the program folder, with its two folders.
  // A folder only read (a batch run that writes nothing) is neither made nor tried for writing.
  enum class Access { ReadWrite, ReadOnly };
  explicit Workspace(std::filesystem::path programFolder, Access access = Access::ReadWrite);

  // --home DIR, else $RAVOLINETTE_HOME, else $XDG_DATA_HOME/ravolinette, else
  // ~/.local/share/ravolinette.
  static std::filesystem::path ResolveProgramFolder(const std::optional<std::string>& home);
  // The installed data folder: $RAVOLINETTE_DATA if set, else <folder of the executable>/
  // ../share/ravolinette (both the installed layout and the build tree's).
  static std::filesystem::path InstalledDataFolder(const std::filesystem::path& executable);

  // Copies each shipped file of `dataFolder` that this folder never received, and records its
  // name in the list of seeded files (".seeded"). A file already here is never overwritten; a
  // file the engineer deleted or renamed is not brought back. Returns the names copied.
  std::vector<std::string> SeedFrom(const std::filesystem::path& dataFolder);

  const std::filesystem::path& Folder() const { return folder_; }
  // A name of the program folder ("x.tmp", "sub/x.sht"), UTF-8, '/' as separator.
  std::filesystem::path PathOf(std::string_view name) const;

  // -1 when the file exists, else 0; file-system errors count as absent.
  int16_t FileExists(std::string_view name) const;
  // The same with the byte length (0 when absent).
  std::pair<int16_t, uint64_t> FileExistsAndSize(std::string_view name) const;
  // Throws the fault that says why a file is not there to read: missing, out of reach, or not
  // a file.
  void RequireFile(std::string_view name) const;

  // The last-write time of a file, and putting it back (a rewrite that must not look like an
  // edit). A missing file gives nullopt; setting the time of a missing file does nothing.
  std::optional<std::filesystem::file_time_type> LastWriteTime(std::string_view name) const;
  void SetLastWriteTime(std::string_view name, std::filesystem::file_time_type time) const;

  // Each of these waits the pause first. Delete of an absent file does nothing.
  // With ignoreErrors the failure is swallowed, as the system does where it says so;
  // otherwise it throws RuntimeFault.
  void Delete(std::string_view name, bool ignoreErrors = true);
  void Copy(std::string_view from, std::string_view to, bool ignoreErrors = false);
  void Rename(std::string_view from, std::string_view to, bool ignoreErrors = false);

  // Rewrites a file through a second file: `write` fills the second file (its path given),
  // which is flushed to disk and renamed over `name`. A failure leaves `name` as it was.
  void Rewrite(std::string_view name,
               const std::function<void(const std::filesystem::path&)>& write);

  // Copies `from` over `to` (either may be a path outside the folder) through a second file
  // beside `to`, flushed and renamed: `to` is at every moment either what it was or the whole
  // copy. A missing `from` is FileNotFound.
  void CopySafely(std::string_view from, std::string_view to);
  // Called at each step of a rewrite through a second file (1 written, 2 flushed, 3 renamed):
  // a test stops a process there to prove that a crash never leaves half a file.
  // Copies each file to its target as one step: a crash at any instant leaves all the old
  // targets or all the new ones, once CompleteFileSets has looked at their folder. The targets
  // share one folder.
  void CopyAsOneSet(const std::vector<std::pair<std::string, std::string>>& copies);
  // Puts in place a set whose new files were all made, throws away one whose were not, and
  // removes what a rewrite that never ended left in `folder`.
  void CompleteFileSets(std::string_view folder);

  // The steps that change the disk, as the rewrite hook hears of them.
  enum RewriteStepKind : int {
    kSecondFileWritten = 1,  // a rewrite's second file, before it is flushed
    kSecondFileFlushed = 2,  // ... flushed, before the rename
    kSecondFileInPlace = 3,  // ... renamed over the file it replaces
    kSetFileInPlace = 4,     // a set's new file renamed over its target
    kSetFolderFlushed = 5,   // the set's folder flushed after the renames
    kSetListRemoved = 6,     // the set's list removed: the set is done
    kSetFileWritten = 7,     // a set's new file copied beside its target
    kSetFileFlushed = 8,     // ... and flushed
  };
  static void SetRewriteStepHook(std::function<void(int step)> hook);
  // Makes the next change of a program folder (its opening for writing, a seeding copy) fail
  // with `error`, as a read-only folder or file system would even for the superuser; a test's
  // stand-in for one. Used once, then forgotten.
  static void FailNextChange(std::error_code error);

  // The names of the files of a folder of the program folder ("" for the folder itself) that
  // match a pattern such as "*.ths", without regard to case, in the order of a file list.
  // The whole of a file of the folder, or nothing when there is none; what is not a regular
  // file is refused at once, never waited on.
  std::optional<std::string> ReadWholeFile(std::string_view name) const;
  std::vector<std::string> ListFiles(std::string_view folder, std::string_view pattern) const;

  // A record file of the program folder, reporting to the journal.
  template <class T>
  RecordFile<T> Records(std::string_view name, RecordFileMode mode = RecordFileMode::ReadWrite) {
    return RecordFile<T>(PathOf(name), mode, this);
  }
  // A working file, opened with the record its owner declared for it.
  template <class T>
  RecordFile<T> Open(const WorkingFile<T>& file, RecordFileMode mode = RecordFileMode::ReadWrite) {
    return Records<T>(file.Name, mode);
  }

  // The system's pause before a file operation: 0.1 s, RAVOLINETTE_PAUSE_MS milliseconds when
  // that is set (0 in tests and on the command line). The event pump runs meanwhile.
  void Pause() const;
  // The system's waits, scaled like the pause: with the pause at its 100 ms a second is a
  // second, with the pause at 0 nothing is waited.
  void WaitSeconds(double seconds) const;
  static void SetEventPump(std::function<void()> pump);
  // True while a pause is running: events that arrive then must not start another command.
  static bool InPause();
  int PauseMilliseconds() const { return pauseMs_; }
  void SetPauseMilliseconds(int ms) { pauseMs_ = ms; }

  // The journal of one command. Commands may nest (a modal screen's command inside the command
  // that opened it): each BeginCommand opens a frame, which the matching Commit or Rollback
  // closes. A committed frame hands what it kept to the frame around it, for the files that
  // frame has not kept yet; the outermost commit forgets.
  void BeginCommand();
  void CommitCommand();
  // Puts every file changed since the matching BeginCommand back as it was (or removes it if it
  // was absent). Best effort: never throws.
  // Returns the names of the files that could not be put back.
  std::vector<std::string> RollbackCommand();
  // Keeps, in the innermost open frame, what the file holds now, unless that frame keeps it
  // already. Outside any command it does nothing.
  void BeforeModify(const std::filesystem::path& file) override;

 private:
  // What each changed file held before the frame opened; nullopt when it did not exist.
  using JournalFrame = std::map<std::filesystem::path, std::optional<std::string>>;

  std::filesystem::path folder_;
  int pauseMs_;
  std::vector<JournalFrame> frames_;
};

// The path with one trailing separator ('/' here where the old program had a backslash).
std::string WithBackslash(std::string_view path);
