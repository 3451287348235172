#include "InstanceLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <string>

namespace fs = std::filesystem;

namespace {

std::string ThisMachine() {
  char name[HOST_NAME_MAX + 1] = {};
  if (::gethostname(name, sizeof name - 1) != 0) return "localhost";
  return name;
}

// The machine named on the first line of the lock file.
std::string MachineOf(int fd) {
  char text[256] = {};
  const ssize_t n = ::pread(fd, text, sizeof text - 1, 0);
  if (n <= 0) return {};
  std::string first(text, static_cast<std::size_t>(n));
  return first.substr(0, first.find('\n'));
}

bool DiskIsFull(int error) {
  return error == ENOSPC || error == EDQUOT;
}

}  // namespace

InstanceLock::InstanceLock(const fs::path& programFolder) : file_(programFolder / kLockFile) {
  Take(false);
  // Not a regular file, or not ours to open: the name is cleared once, and taken again.
  if (state_ == State::Unusable) Take(true);
}

InstanceLock::~InstanceLock() {
  if (fd_ >= 0) ::close(fd_);
}

void InstanceLock::Take(bool clearFirst) {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
  if (clearFirst) {
    std::error_code ignored;
    fs::remove(file_, ignored);
  }
  // Never blocks: a pipe in the lock's place is opened without waiting for a writer.
  fd_ = ::open(file_.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0644);
  if (fd_ < 0) {
    state_ = DiskIsFull(errno) ? State::DiskFull : State::Unusable;
    return;
  }
  struct stat info {};
  if (::fstat(fd_, &info) != 0 || !S_ISREG(info.st_mode)) {
    state_ = State::Unusable;
    return;
  }
  if (::flock(fd_, LOCK_EX | LOCK_NB) != 0) {
    const std::string machine = MachineOf(fd_);
    state_ = machine.empty() || machine == ThisMachine() ? State::HeldHere : State::HeldElsewhere;
    otherMachine_ = machine;
    return;
  }
  state_ = State::Held;
  // Who holds the folder, for a copy on another machine to tell the engineer. A full disk
  // leaves the file empty; the lock holds all the same.
  const std::string text = ThisMachine() + '\n' + std::to_string(::getpid()) + '\n';
  if (::ftruncate(fd_, 0) != 0) return;
  [[maybe_unused]] const ssize_t written = ::pwrite(fd_, text.data(), text.size(), 0);
}

bool InstanceLock::TakeOver() {
  if (state_ != State::HeldElsewhere) return Held();
  Take(true);
  return Held();
}

Message SecondCopyMessage() {
  return NoticeBox("!! ΠΡΟΣΟΧΗ !!",
                   {"... Το Πρόγραμμα < Ravolinette > εκτελείται ήδη, με τον ίδιο φάκελο "
                    "εργασίας ...",
                    "... Δύο αντίγραφα θα κατέστρεφαν το ένα τα αρχεία εργασίας του άλλου ...",
                    "... Το Πρόγραμμα τερματίζεται ..."},
                   MessageIcon::Exclamation, kSystemBeeps);
}

Message OtherMachineQuestion(const std::string& machine) {
  return QuestionBox("!! ΠΡΟΣΟΧΗ !!",
                     {"... Ο φάκελος εργασίας χρησιμοποιείται από το Πρόγραμμα < Ravolinette >, "
                      "στον υπολογιστή < " +
                          machine + " > ...",
                      "... Αν το Πρόγραμμα δεν εκτελείται πια εκεί, μπορείτε να συνεχίσετε εδώ ...",
                      "... Να συνεχίσω ; ..."},
                     Answer::No);
}

Message LockDiskFullMessage() {
  return NoticeBox("!! ΠΡΟΣΟΧΗ !!",
                   {"... Ο δίσκος του φακέλου εργασίας είναι γεμάτος ...",
                    "... Ελευθερώστε χώρο και ξεκινήστε ξανά το Πρόγραμμα ..."},
                   MessageIcon::Exclamation, kSystemBeeps);
}

Message LockUnusableMessage(const fs::path& file) {
  return NoticeBox("!! ΠΡΟΣΟΧΗ !!",
                   {"... Το < " + file.string() + " > δεν είναι αρχείο και δεν διαγράφεται ...",
                    "... Διαγράψτε το και ξεκινήστε ξανά το Πρόγραμμα ..."},
                   MessageIcon::Exclamation, kSystemBeeps);
}
