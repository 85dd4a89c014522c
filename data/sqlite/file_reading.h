#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "data/sqlite/reader.h"

namespace veyra::sqlite {

/// Another program's file, open for one question.
class FileReading {
 public:
  virtual ~FileReading() = default;

  /// What the question is put to.
  virtual Reader& reader() = 0;

  /// Whether another program can change the file under the reader. Then all rows must be read, and
  /// HasChanged asked, before any of them is used.
  virtual bool IsUnlocked() const { return false; }

  /// Whether the file may have been changed since it was opened, so that what was read, failures
  /// included, counts for nothing.
  virtual bool HasChanged() { return false; }
};

/// Opens a SQLite file for reading in the way that leaves no trace, whatever state the file is in:
///
///   no write-ahead log in use          locked against changes for as long as it is read
///   a log, and its index               read with the other program through the index, which is
///                                      only looked at
///   a log that is empty or not there   read without locks, since a lock would make a log
///   a log without its index            read from a private copy
///
/// Throws as ThrowError does. REQUIRES: the name is absolute.
std::unique_ptr<FileReading> OpenForReading(const std::string& file,
                                            std::chrono::milliseconds timeout);

}  // namespace veyra::sqlite
