#pragma once
// A small disk of its own for a test (a tmpfs mounted on a folder), where the machine lets the
// test mount one; and filling it to its last block.
#include <sys/mount.h>

#include <filesystem>
#include <fstream>
#include <string>

// False where mounting is not allowed; the test then skips with a reason.
inline bool MountSmallDisk(const std::filesystem::path& at, const char* options) {
  return ::mount("tmpfs", at.c_str(), "tmpfs", 0, options) == 0;
}

inline void FillDisk(const std::filesystem::path& disk) {
  std::ofstream filler(disk / "filler", std::ios::binary);
  const std::string block(4096, 'x');
  while (filler.write(block.data(), static_cast<std::streamsize>(block.size()))) filler.flush();
}

inline constexpr const char* kNoSmallDisk =
    "no small disk can be mounted here (needs the right to mount)";
