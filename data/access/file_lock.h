#pragma once

#include <chrono>

namespace veyra::mdb {

/// A lock that copies of this program hold on a database file: several that read, or one that
/// writes. It lies on a byte far behind the largest file of the format, where no other program of
/// the format locks anything, and ends with the process at the latest.
class FileLock {
 public:
  enum class Kind { Reading, Writing };

  /// Waits until the lock is free. Throws FileBusy when it is not within `timeout`. On a file
  /// system that knows no locks nothing is locked.
  FileLock(int descriptor, Kind kind, std::chrono::milliseconds timeout);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

 private:
  int descriptor_;
};

}  // namespace veyra::mdb
