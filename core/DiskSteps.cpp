#include "DiskSteps.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <utility>

namespace fs = std::filesystem;

namespace disk {

fs::path FromUtf8(std::string_view name) {
  return fs::path(std::u8string(name.begin(), name.end()));
}

std::string ToUtf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

std::string NameOf(const fs::path& path) {
  return ToUtf8(path.filename());
}

FaultCode FaultOf(const std::error_code& ec, FaultCode whenMissing) {
  if (ec == std::errc::no_such_file_or_directory) return whenMissing;
  if (ec == std::errc::permission_denied || ec == std::errc::operation_not_permitted ||
      ec == std::errc::read_only_file_system) {
    return FaultCode::PermissionDenied;
  }
  if (ec == std::errc::no_space_on_device) return FaultCode::DiskFull;
  if (ec == std::errc::io_error) return FaultCode::DeviceIo;
  return FaultCode::PathFileAccess;
}

bool PathPresent(const fs::path& path) {
  std::error_code ec;
  return fs::exists(fs::symlink_status(path, ec));
}

bool IsFile(const fs::path& path) {
  std::error_code ec;
  return fs::is_regular_file(path, ec);
}

FaultCode WhyNotAFile(const fs::path& path) {
  std::error_code ec;
  const fs::file_status status = fs::status(path, ec);
  if (fs::is_regular_file(status)) return FaultCode::Internal;
  if (ec && status.type() != fs::file_type::not_found) return FaultOf(ec, FaultCode::FileNotFound);
  return fs::exists(status) ? FaultCode::PathFileAccess : FaultCode::FileNotFound;
}

void RequireFile(const fs::path& path, const std::string& detail) {
  if (IsFile(path)) return;
  const FaultCode why = WhyNotAFile(path);
  throw RuntimeFault(why, why == FaultCode::PathFileAccess ? detail + " (δεν είναι αρχείο)" : detail);
}

std::vector<std::string> FilesOf(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code ec;
  fs::directory_iterator it(folder, ec);
  // A folder that is not there holds no files; one that is there but cannot be read is a
  // fault of its own, not an empty folder.
  if (ec && ec != std::errc::no_such_file_or_directory)
    throw RuntimeFault(FaultOf(ec, FaultCode::PathNotFound), "Φάκελος " + ToUtf8(folder));
  for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
    std::error_code typeError;
    if (it->is_regular_file(typeError)) names.push_back(NameOf(it->path()));
  }
  return names;
}

std::optional<std::string> ReadRegularFile(const fs::path& file) {
  const int fd = ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) {
    if (errno == ENOENT) return std::nullopt;
    throw RuntimeFault(
        FaultOf(std::error_code(errno, std::generic_category()), FaultCode::FileNotFound),
        NameOf(file));
  }
  struct stat info {};
  if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
    ::close(fd);
    throw RuntimeFault(FaultCode::PathFileAccess, NameOf(file) + " (δεν είναι αρχείο)");
  }
  std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = ::read(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) {
      const int error = errno;
      ::close(fd);
      throw RuntimeFault(
          FaultOf(std::error_code(error, std::generic_category()), FaultCode::DeviceIo),
          NameOf(file));
    }
    if (n == 0) break;
    done += static_cast<std::size_t>(n);
  }
  ::close(fd);
  bytes.resize(done);
  return bytes;
}

void SyncFile(const fs::path& file) {
  const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  const int result = fd < 0 ? -1 : ::fsync(fd);
  const std::error_code error(result != 0 ? errno : 0, std::generic_category());
  if (fd >= 0) ::close(fd);
  // A full disk is said to be full, not a failure of the device.
  if (result != 0) throw RuntimeFault(FaultOf(error, FaultCode::DeviceIo), NameOf(file));
}

// Flushes a folder's entries (a rename just done in it). A folder that refuses is left as it
// is: the rename has happened and only its durability across a power cut is at stake.
void SyncFolder(const fs::path& folder) {
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

void MakeWritable(const fs::path& file) {
  std::error_code ignored;
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add,
                  ignored);
}

bool WriteProtected(const fs::path& file) {
  std::error_code ec;
  const fs::file_status status = fs::status(file, ec);
  return !ec && fs::is_regular_file(status) &&
         (status.permissions() & fs::perms::owner_write) == fs::perms::none;
}

fs::path SecondFileOf(const fs::path& file) {
  fs::path second = file;
  second += kSecondFileSuffix;
  return second;
}

std::function<void(int)>& RewriteStepHook() {
  static std::function<void(int)> hook;
  return hook;
}

std::error_code& InjectedFailure() {
  static std::error_code failure;
  return failure;
}

std::error_code TakeInjectedFailure() {
  return std::exchange(InjectedFailure(), std::error_code());
}

void RewriteStep(int step) {
  if (RewriteStepHook()) RewriteStepHook()(step);
}

void ReplaceWithSecondFile(const fs::path& second, const fs::path& file) {
  RewriteStep(1);  // the second file written
  SyncFile(second);
  RewriteStep(2);  // flushed
  std::error_code ec;
  fs::rename(second, file, ec);
  if (ec) {
    std::error_code ignored;
    fs::remove(second, ignored);
    throw RuntimeFault(FaultOf(ec, FaultCode::PathNotFound), NameOf(file));
  }
  SyncFolder(file.parent_path());
  RewriteStep(3);  // in place
}

void WriteThroughSecondFile(const fs::path& file, const std::string& bytes) {
  const fs::path second = SecondFileOf(file);
  {
    std::ofstream out(second, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) {
      std::error_code ignored;
      fs::remove(second, ignored);
      throw RuntimeFault(FaultCode::DeviceIo, NameOf(file));
    }
  }
  ReplaceWithSecondFile(second, file);
}

}  // namespace disk
