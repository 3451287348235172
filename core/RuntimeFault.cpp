#include "RuntimeFault.h"

#include <utility>

namespace {

std::string WhatOf(FaultCode code, const std::string& detail) {
  std::string what(FaultText(code));
  if (!detail.empty()) what += ": " + detail;
  return what;
}

}  // namespace

RuntimeFault::RuntimeFault(FaultCode code, std::string detail)
    : std::runtime_error(WhatOf(code, detail)), code_(code), detail_(std::move(detail)) {}

std::string_view FaultText(FaultCode code) {
  switch (code) {
    case FaultCode::InvalidCall:
      return "Μη αποδεκτή κλήση διαδικασίας ή τιμή ορίσματος";
    case FaultCode::Overflow:
      return "Υπερχείλιση αριθμού";
    case FaultCode::OutOfMemory:
      return "Η μνήμη δεν επαρκεί";
    case FaultCode::DivisionByZero:
      return "Διαίρεση με το μηδέν";
    case FaultCode::TypeMismatch:
      return "Ασυμβατότητα τύπου δεδομένων";
    case FaultCode::FileNotFound:
      return "Το αρχείο δεν βρέθηκε";
    case FaultCode::DeviceIo:
      return "Σφάλμα εισόδου / εξόδου της συσκευής";
    case FaultCode::DiskFull:
      return "Ο δίσκος είναι γεμάτος";
    case FaultCode::BadRecordNumber:
      return "Λάθος αριθμός εγγραφής";
    case FaultCode::PermissionDenied:
      return "Δεν επιτρέπεται η πρόσβαση";
    case FaultCode::PathFileAccess:
      return "Σφάλμα πρόσβασης σε αρχείο ή φάκελο";
    case FaultCode::PathNotFound:
      return "Ο φάκελος δεν βρέθηκε";
    case FaultCode::Internal:
      return "Εσωτερικό σφάλμα του προγράμματος";
  }
  return "Άγνωστο σφάλμα";
}
