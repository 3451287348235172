#pragma once
// One copy of the program per program folder: two copies would overwrite each other's working
// files. A lock left by a copy that crashed is taken over, not obeyed.
#include <QLockFile>
#include <filesystem>
#include <memory>

#include "Message.h"

class InstanceLock {
 public:
  static constexpr const char* kLockFile = ".ravolinette.lock";
  explicit InstanceLock(const std::filesystem::path& programFolder);
  // True when this copy holds the folder.
  bool Held() const { return held_; }

 private:
  std::unique_ptr<QLockFile> lock_;
  bool held_ = false;
};

// The message of a second copy on the same folder.
Message SecondCopyMessage();
