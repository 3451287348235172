#pragma once
// The steps of the program folder's file operations that more than one routine needs: names in
// UTF-8, the run-time's fault numbers for the file system's errors, flushing to the disk, and
// the rewrite of a file through a second file. Each step that changes the disk reports itself
// to the rewrite hook, where a test can stop the process as a crash would.
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "RuntimeFault.h"

namespace disk {

// The second file of a rewrite sits beside the file it replaces, so that the rename stays on the
// same file system and is atomic.
inline constexpr const char* kSecondFileSuffix = ".@@@";

std::filesystem::path FromUtf8(std::string_view name);
std::string ToUtf8(const std::filesystem::path& path);
std::string NameOf(const std::filesystem::path& path);
// The old run-time's error number for a failure of the file system.
FaultCode FaultOf(const std::error_code& ec, FaultCode whenMissing);
// Something stands at the path (a dangling link counts: a copy must not write through it).
bool PathPresent(const std::filesystem::path& path);
bool IsFile(const std::filesystem::path& path);

// Why the path is not a regular file: not there, out of reach (a folder on the way that cannot
// be searched), or something else stands there. Internal when it is one.
FaultCode WhyNotAFile(const std::filesystem::path& path);
// Throws that fault, naming `detail`, unless the path is a regular file.
void RequireFile(const std::filesystem::path& path, const std::string& detail);

// The names of the regular files of a folder (none when there is no such folder), unordered.
// A folder that cannot be read is a fault.
std::vector<std::string> FilesOf(const std::filesystem::path& folder);

// The whole of a file, or nothing when there is none. What is not a regular file (a pipe, a
// device, a folder) is refused at once instead of being waited on.
std::optional<std::string> ReadRegularFile(const std::filesystem::path& file);

// Flushes a file's bytes, or a folder's entries, to the disk.
void SyncFile(const std::filesystem::path& file);
void SyncFolder(const std::filesystem::path& folder);

// A copy carries the permission bits of its source; the engineer's own files stay his to write.
void MakeWritable(const std::filesystem::path& file);
// The file is there and marked read-only for its owner.
bool WriteProtected(const std::filesystem::path& file);

std::filesystem::path SecondFileOf(const std::filesystem::path& file);
// Puts the second file in the place of `file`, flushed to the disk first.
void ReplaceWithSecondFile(const std::filesystem::path& second, const std::filesystem::path& file);
// Writes `bytes` as the whole content of `file`, through a second file and a rename.
void WriteThroughSecondFile(const std::filesystem::path& file, const std::string& bytes);

// A step that changed the disk has been made.
void RewriteStep(int step);
std::function<void(int)>& RewriteStepHook();
// The failure a test asked for, once.
std::error_code& InjectedFailure();
std::error_code TakeInjectedFailure();

}  // namespace disk
