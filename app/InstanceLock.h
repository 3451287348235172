#pragma once
// One copy of the program per program folder: two copies would overwrite each other's working
// files. The lock is the system's lock on a small file of the folder, which the system lets go
// when the copy that held it ends, however it ends: only a live copy holds the folder. The file
// names the machine and the process, so that a copy on another machine sharing the folder is
// named, and the engineer may take the folder over when he knows that copy is gone. Whatever
// stands in the file's place (garbage, a folder, a pipe, a dangling link) is cleared away.
#include <filesystem>
#include <string>

#include "Message.h"

class InstanceLock {
 public:
  static constexpr const char* kLockFile = ".ravolinette.lock";
  enum class State {
    Held,           // this copy holds the folder
    HeldHere,       // a live copy on this machine holds it
    HeldElsewhere,  // a copy on the machine OtherMachine() holds it, or did
    DiskFull,       // the lock cannot be made: the disk is full
    Unusable,       // something stands in the lock's place that cannot be cleared
  };
  explicit InstanceLock(const std::filesystem::path& programFolder);
  ~InstanceLock();
  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;

  bool Held() const { return state_ == State::Held; }
  State Status() const { return state_; }
  const std::string& OtherMachine() const { return otherMachine_; }
  // The engineer says the copy on the other machine is gone: the folder is taken over.
  bool TakeOver();

 private:
  void Take(bool clearFirst);
  std::filesystem::path file_;
  int fd_ = -1;
  State state_ = State::Unusable;
  std::string otherMachine_;
};

// The message of a second copy on the same folder.
Message SecondCopyMessage();
// The question when a copy on another machine holds the folder; Yes takes it over.
Message OtherMachineQuestion(const std::string& machine);
// The message when the lock cannot be had for a full disk, or for what stands in its place.
Message LockDiskFullMessage();
Message LockUnusableMessage(const std::filesystem::path& file);
