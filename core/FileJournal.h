#pragma once
// The memory of a command: before a command first changes a working file, the journal keeps
// what the file held (or that it was absent), so that a command that fails half-way can put
// every file back. Workspace owns the one journal; RecordFile and the file operations report
// to it before they change anything.
#include <filesystem>

class FileJournal {
 public:
  virtual ~FileJournal() = default;
  virtual void BeforeModify(const std::filesystem::path& file) = 0;
};
