#include "InstanceLock.h"

InstanceLock::InstanceLock(const std::filesystem::path& programFolder)
    : lock_(std::make_unique<QLockFile>(
          QString::fromStdString((programFolder / kLockFile).string()))) {
  // No age makes a lock stale: only a lock whose process is gone is, and that one is taken.
  lock_->setStaleLockTime(0);
  held_ = lock_->tryLock(0);
}

Message SecondCopyMessage() {
  return NoticeBox("!! ΠΡΟΣΟΧΗ !!",
                   {"... Το Πρόγραμμα < Ravolinette > εκτελείται ήδη, με τον ίδιο φάκελο "
                    "εργασίας ...",
                    "... Δύο αντίγραφα θα κατέστρεφαν το ένα τα αρχεία εργασίας του άλλου ...",
                    "... Το Πρόγραμμα τερματίζεται ..."},
                   MessageIcon::Exclamation, kSystemBeeps);
}
