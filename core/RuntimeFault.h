#pragma once
// Run-time failures that the old run-time died of. They are thrown by the checked helpers
// and caught at the command boundary (CommandBoundary.h), which reports them in Greek and
// puts the working files back as they were before the command.
#include <stdexcept>
#include <string>
#include <string_view>

// The codes are the old run-time's error numbers, so that a report names the same failure
// an engineer may remember from the old program.
enum class FaultCode : int {
  InvalidCall = 5,  // invalid procedure call or argument
  Overflow = 6,     // a value outside the range of its integer type
  OutOfMemory = 7,
  DivisionByZero = 11,
  TypeMismatch = 13,
  FileNotFound = 53,
  DeviceIo = 57,
  DiskFull = 61,
  BadRecordNumber = 63,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
  Internal = 1000,  // anything else that escaped a command (a fault of this program)
};

class RuntimeFault : public std::runtime_error {
 public:
  explicit RuntimeFault(FaultCode code, std::string detail = {});
  FaultCode Code() const { return code_; }
  // What failed, in the words of the place that threw: a file name, an operation.
  const std::string& Detail() const { return detail_; }

 private:
  FaultCode code_;
  std::string detail_;
};

// The Greek text of a fault code: one table for every failure of the program.
std::string_view FaultText(FaultCode code);
