#include "RecordFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <utility>

#include "RuntimeFault.h"

namespace {

// The run-time error an engineer would have seen for the same failure of the file system.
FaultCode FaultOfErrno(int error) {
  switch (error) {
    case ENOENT:
      return FaultCode::FileNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return FaultCode::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
      return FaultCode::DiskFull;
    case EIO:
      return FaultCode::DeviceIo;
    default:
      return FaultCode::PathFileAccess;
  }
}

[[noreturn]] void ThrowFileFault(FaultCode code, const std::filesystem::path& path,
                                 std::string_view what) {
  throw RuntimeFault(code, path.string() + " (" + std::string(what) + ")");
}

[[noreturn]] void ThrowErrno(int error, const std::filesystem::path& path, std::string_view what) {
  ThrowFileFault(FaultOfErrno(error), path, std::string(what) + ": " + std::strerror(error));
}

int OpenRetrying(const std::filesystem::path& path, int flags) {
  int fd;
  do {
    // Never waits: a pipe in a file's place is opened at once and refused as not a file.
    fd = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666);
  } while (fd < 0 && errno == EINTR);
  return fd;
}

uint64_t OffsetOf(int32_t n, std::size_t recordLength, const std::filesystem::path& path) {
  if (n < 1) ThrowFileFault(FaultCode::BadRecordNumber, path, "record " + std::to_string(n));
  return static_cast<uint64_t>(n - 1) * recordLength;
}

}  // namespace

RawRecordFile::RawRecordFile(std::filesystem::path path, std::size_t recordLength,
                             RecordFileMode mode, FileJournal* journal)
    : path_(std::move(path)), recordLength_(recordLength), mode_(mode), journal_(journal) {
  if (recordLength_ == 0) ThrowFileFault(FaultCode::InvalidCall, path_, "record length 0");
  const int flags = mode_ == RecordFileMode::ReadOnly ? O_RDONLY : O_RDWR;
  fd_ = OpenRetrying(path_, flags);
  if (fd_ < 0 && errno == ENOENT) {
    if (mode_ == RecordFileMode::ReadOnly) return;  // read as an empty file, left absent
    // The journal must learn that the file did not exist before it is made.
    if (journal_) journal_->BeforeModify(path_);
    fd_ = OpenRetrying(path_, flags | O_CREAT);
    // Still missing after O_CREAT: the folder is what is missing.
    if (fd_ < 0 && errno == ENOENT) ThrowFileFault(FaultCode::PathNotFound, path_, "create");
  }
  if (fd_ < 0) ThrowErrno(errno, path_, "open");
  struct stat st {};
  if (::fstat(fd_, &st) != 0) {
    const int error = errno;
    ::close(std::exchange(fd_, -1));
    ThrowErrno(error, path_, "stat");
  }
  if (!S_ISREG(st.st_mode)) {
    ::close(std::exchange(fd_, -1));
    ThrowFileFault(FaultCode::PathFileAccess, path_, "not a regular file");
  }
}

RawRecordFile::~RawRecordFile() {
  if (fd_ >= 0) ::close(fd_);
}

RawRecordFile::RawRecordFile(RawRecordFile&& other) noexcept
    : path_(std::move(other.path_)),
      recordLength_(other.recordLength_),
      mode_(other.mode_),
      journal_(other.journal_),
      fd_(std::exchange(other.fd_, -1)),
      journaled_(other.journaled_) {}

RawRecordFile& RawRecordFile::operator=(RawRecordFile&& other) noexcept {
  if (this != &other) {
    if (fd_ >= 0) ::close(fd_);
    path_ = std::move(other.path_);
    recordLength_ = other.recordLength_;
    mode_ = other.mode_;
    journal_ = other.journal_;
    fd_ = std::exchange(other.fd_, -1);
    journaled_ = other.journaled_;
  }
  return *this;
}

uint64_t RawRecordFile::Length() const {
  if (fd_ < 0) return 0;
  struct stat st {};
  if (::fstat(fd_, &st) != 0) ThrowErrno(errno, path_, "stat");
  return static_cast<uint64_t>(st.st_size);
}

int32_t RawRecordFile::Count() const {
  const uint64_t length = Length();
  uint64_t whole = length / recordLength_;
  const uint64_t rest = length % recordLength_;
  // Nearest whole number; an exact half goes to the even neighbour.
  if (2 * rest > recordLength_ || (2 * rest == recordLength_ && whole % 2 == 1)) ++whole;
  constexpr auto kMax = static_cast<uint64_t>(std::numeric_limits<int32_t>::max());
  return static_cast<int32_t>(whole < kMax ? whole : kMax);
}

bool RawRecordFile::ReadBytes(int32_t n, unsigned char* bytes) const {
  const uint64_t offset = OffsetOf(n, recordLength_, path_);
  if (fd_ < 0) return false;
  std::size_t done = 0;
  while (done < recordLength_) {
    const ssize_t got =
        ::pread(fd_, bytes + done, recordLength_ - done, static_cast<off_t>(offset + done));
    if (got < 0) {
      if (errno == EINTR) continue;
      ThrowErrno(errno, path_, "read of record " + std::to_string(n));
    }
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  if (done == 0) return false;
  // A record cut short by the end of the file: the missing bytes read as zeros.
  std::memset(bytes + done, 0, recordLength_ - done);
  return true;
}

std::string RawRecordFile::ReadAllBytes(int32_t count) const {
  return ReadRangeBytes(1, count);
}

std::string RawRecordFile::ReadRangeBytes(int32_t first, int32_t count) const {
  std::string bytes(static_cast<std::size_t>(std::max(count, 0)) * recordLength_, '\0');
  if (fd_ < 0 || bytes.empty()) return bytes;
  const off_t start = static_cast<off_t>(OffsetOf(first, recordLength_, path_));
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t got =
        ::pread(fd_, bytes.data() + done, bytes.size() - done, start + static_cast<off_t>(done));
    if (got < 0) {
      if (errno == EINTR) continue;
      ThrowErrno(errno, path_, "read of the records");
    }
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return bytes;
}

void RawRecordFile::WriteBytes(int32_t n, const unsigned char* bytes) {
  const uint64_t offset = OffsetOf(n, recordLength_, path_);
  if (mode_ == RecordFileMode::ReadOnly) {
    ThrowFileFault(FaultCode::PathFileAccess, path_, "write to a file opened for reading");
  }
  if (fd_ < 0) ThrowFileFault(FaultCode::PathFileAccess, path_, "write to a closed file");
  EnsureJournal();
  // Writing past the end leaves a hole before the record, which reads as zeros.
  std::size_t done = 0;
  while (done < recordLength_) {
    const ssize_t put =
        ::pwrite(fd_, bytes + done, recordLength_ - done, static_cast<off_t>(offset + done));
    if (put < 0) {
      if (errno == EINTR) continue;
      ThrowErrno(errno, path_, "write of record " + std::to_string(n));
    }
    if (put == 0) ThrowErrno(ENOSPC, path_, "write of record " + std::to_string(n));
    done += static_cast<std::size_t>(put);
  }
}

void RawRecordFile::Flush() {
  if (fd_ < 0) return;
  if (::fsync(fd_) != 0) ThrowErrno(errno, path_, "flush");
}

void RawRecordFile::Close() {
  if (fd_ < 0) return;
  const int fd = std::exchange(fd_, -1);
  if (::close(fd) != 0 && errno != EINTR) ThrowErrno(errno, path_, "close");
}

void RawRecordFile::EnsureJournal() {
  if (journaled_) return;
  if (journal_) journal_->BeforeModify(path_);
  journaled_ = true;
}
