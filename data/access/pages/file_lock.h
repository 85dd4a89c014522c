#pragma once

#include "data/waiting.h"

namespace veyra::access {

/// A lock that copies of this program hold on a database file. It lies on a byte far behind the
/// largest file of the format, where no other program of the format locks anything, and ends with
/// the process at the latest.
class FileLock {
 public:
  enum class Kind {
    Reading,    ///< Of the file's pages, by any number of programs while none is
    Writing,    ///< them, which is for one.
    Open,       ///< Held by every program that has the file open to write to it, for as long,
    Exclusive,  ///< or by one that lets no other open it so.
  };

  /// Waits until the lock is free. Throws FileBusy when it is not as long as `policy` goes. On a
  /// file system that knows no locks nothing is locked.
  FileLock(int descriptor, Kind kind, const WaitPolicy& policy);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

 private:
  int descriptor_;
  Kind kind_;
};

}  // namespace veyra::access
