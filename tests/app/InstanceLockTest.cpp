// One copy per program folder: only a live copy holds it, whatever was left in the lock's place.
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>
#include <fstream>
#include <functional>
#include <string>

#include "InstanceLock.h"
#include "SmallDisk.h"
#include "TempFolder.h"

namespace {

namespace fs = std::filesystem;

TEST(InstanceLockTest, ASecondCopyIsRefusedUntilTheFirstEnds) {
  TempFolder home;
  {
    InstanceLock first(home.Path());
    ASSERT_TRUE(first.Held());
    InstanceLock second(home.Path());
    EXPECT_EQ(second.Status(), InstanceLock::State::HeldHere);
  }
  InstanceLock again(home.Path());
  EXPECT_TRUE(again.Held());
}

// Nothing that stands in the lock's place keeps the engineer out, the lock of a copy that
// crashed included; only what cannot be cleared is refused.
TEST(InstanceLockTest, WhateverWasLeftInTheLocksPlaceIsNoCopy) {
  const std::vector<std::pair<const char*, std::function<void(const fs::path&)>>> leftovers = {
      {"a crashed copy's",
       [](const fs::path& f) {
         const pid_t child = fork();
         if (child == 0) _exit(InstanceLock(f.parent_path()).Held() ? 0 : 1);  // never let go
         int status = 1;
         waitpid(child, &status, 0);
         ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0 && fs::exists(f));
       }},
      {"empty", [](const fs::path& f) { std::ofstream{f}; }},
      {"garbage", [](const fs::path& f) { std::ofstream{f} << "\x01\xFFnot a lock\n"; }},
      {"10 MB", [](const fs::path& f) { std::ofstream{f} << std::string(10 << 20, 'x'); }},
      {"a folder", [](const fs::path& f) { fs::create_directory(f); }},
      {"a dangling link", [](const fs::path& f) { fs::create_symlink("/nonexistent/lock", f); }},
      {"a pipe", [](const fs::path& f) { ::mkfifo(f.c_str(), 0644); }},
      {"an unreadable file",
       [](const fs::path& f) {
         std::ofstream{f} << "x";
         fs::permissions(f, fs::perms::none);
       }},
  };
  for (const auto& [what, leave] : leftovers) {
    TempFolder home;
    leave(home / InstanceLock::kLockFile);
    InstanceLock lock(home.Path());
    EXPECT_TRUE(lock.Held()) << what;
    EXPECT_TRUE(fs::is_regular_file(home / InstanceLock::kLockFile)) << what;
  }
  TempFolder home;
  fs::create_directories(home / InstanceLock::kLockFile / "inside");
  EXPECT_EQ(InstanceLock(home.Path()).Status(), InstanceLock::State::Unusable);
}

// A copy on another machine sharing the folder is named, and the folder can be taken from it.
TEST(InstanceLockTest, ACopyOnAnotherMachineIsNamedAndCanBeTakenOver) {
  TempFolder home;
  const fs::path file = home / InstanceLock::kLockFile;
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t other = fork();
  ASSERT_GE(other, 0);
  if (other == 0) {
    const int fd = ::open(file.c_str(), O_RDWR | O_CREAT, 0644);
    const std::string text = "drafting-room\n4242\n";
    if (fd < 0 || ::write(fd, text.data(), text.size()) < 0 || ::flock(fd, LOCK_EX) != 0) _exit(1);
    if (::write(ready[1], "1", 1) != 1) _exit(1);
    ::pause();
    _exit(0);
  }
  char signal = 0;
  ASSERT_EQ(::read(ready[0], &signal, 1), 1);
  InstanceLock lock(home.Path());
  EXPECT_EQ(lock.Status(), InstanceLock::State::HeldElsewhere);
  EXPECT_EQ(lock.OtherMachine(), "drafting-room");
  EXPECT_NE(OtherMachineQuestion(lock.OtherMachine()).Lines.front().find("drafting-room"),
            std::string::npos);
  EXPECT_TRUE(lock.TakeOver());
  EXPECT_EQ(InstanceLock(home.Path()).Status(), InstanceLock::State::HeldHere);
  ::kill(other, SIGKILL);
  ::waitpid(other, nullptr, 0);
  ::close(ready[0]);
  ::close(ready[1]);
}

TEST(InstanceLockTest, AFullDiskIsToldAsFull) {
  TempFolder disk;
  // A disk with no room for one more file.
  if (!MountSmallDisk(disk.Path(), "size=64k,nr_inodes=1")) GTEST_SKIP() << kNoSmallDisk;
  const InstanceLock::State state = InstanceLock(disk.Path()).Status();
  ::umount(disk.Path().c_str());
  EXPECT_EQ(state, InstanceLock::State::DiskFull);
}

}  // namespace
