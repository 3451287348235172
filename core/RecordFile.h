#pragma once
// A random-access file of fixed-length records, numbered from 1, without header.
//   Count(): file length / record length, rounded to the nearest whole number (halves to even).
//   Read(n) past the end: an empty record (zero numbers, blank texts); a record cut short by
//     the end of the file reads the bytes that are there and zeros for the rest.
//   Write(n) past the end: the file grows, and any gap before record n is zero-filled.
// Every failure of the file system throws RuntimeFault.
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "FileJournal.h"
#include "RecordLayout.h"

enum class RecordFileMode {
  ReadWrite,  // created when missing, as the old run-time's Open For Random did
  ReadOnly,   // a missing file reads as empty and is not created
};

class RawRecordFile {
 public:
  RawRecordFile(std::filesystem::path path, std::size_t recordLength, RecordFileMode mode,
                FileJournal* journal);
  ~RawRecordFile();
  RawRecordFile(RawRecordFile&& other) noexcept;
  RawRecordFile& operator=(RawRecordFile&& other) noexcept;
  RawRecordFile(const RawRecordFile&) = delete;
  RawRecordFile& operator=(const RawRecordFile&) = delete;

  int32_t Count() const;
  uint64_t Length() const;
  // Fills `bytes` (record length) with record n; false when n lies wholly past the end.
  bool ReadBytes(int32_t n, unsigned char* bytes) const;
  void WriteBytes(int32_t n, const unsigned char* bytes);
  // Records 1 to `count` in one read, the bytes past the end zeros.
  std::string ReadAllBytes(int32_t count) const;
  // Records `first` to first + count - 1 in one read, the bytes past the end zeros.
  std::string ReadRangeBytes(int32_t first, int32_t count) const;
  // Flushes to the disk (fsync).
  void Flush();
  void Close();
  const std::filesystem::path& Path() const { return path_; }
  std::size_t RecordLength() const { return recordLength_; }

 private:
  void EnsureJournal();
  std::filesystem::path path_;
  std::size_t recordLength_;
  RecordFileMode mode_;
  FileJournal* journal_;
  int fd_ = -1;
  bool journaled_ = false;
};

template <class T>
class RecordFile {
 public:
  static constexpr std::size_t Length = RecordLengthOf<T>();

  explicit RecordFile(std::filesystem::path path, RecordFileMode mode = RecordFileMode::ReadWrite,
                      FileJournal* journal = nullptr)
      : raw_(std::move(path), Length, mode, journal) {}

  int32_t Count() const { return raw_.Count(); }

  T Read(int32_t n) const {
    unsigned char bytes[Length];
    T record{};
    if (raw_.ReadBytes(n, bytes)) DecodeRecord(bytes, record);
    return record;
  }
  void Write(int32_t n, const T& record) {
    unsigned char bytes[Length];
    EncodeRecord(record, bytes);
    raw_.WriteBytes(n, bytes);
  }
  // The bytes of every record, read in one piece; record n starts at (n - 1) * Length.
  std::string ReadAllBytes() const {
    const int32_t count = Count();
    return count > 0 ? raw_.ReadAllBytes(count) : std::string();
  }
  // The bytes of records `first` to first + count - 1, read in one piece.
  std::string ReadRangeBytes(int32_t first, int32_t count) const {
    return raw_.ReadRangeBytes(first, count);
  }
  // Every record, read in one piece.
  std::vector<T> ReadAll() const {
    std::vector<T> all;
    const int32_t count = Count();
    if (count <= 0) return all;
    const std::string bytes = raw_.ReadAllBytes(count);
    all.resize(static_cast<std::size_t>(count));
    for (int32_t n = 0; n < count; ++n)
      DecodeRecord(reinterpret_cast<const unsigned char*>(bytes.data()) + n * Length, all[n]);
    return all;
  }
  void Flush() { raw_.Flush(); }
  void Close() { raw_.Close(); }

 private:
  RawRecordFile raw_;
};
