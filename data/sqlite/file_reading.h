#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "data/sqlite/reader.h"
#include "data/waiting.h"

namespace veyra::sqlite {

/// Another program's file, open for one question.
class FileReading {
 public:
  virtual ~FileReading() = default;

  /// What the question is put to.
  virtual Reader& reader() = 0;

  /// Whether another program can change the file under the reader. Then all rows must be read, and
  /// HasChanged asked, before any of them is used.
  virtual bool IsUnlocked() const = 0;

  /// Whether the files may have been changed, made or removed since they were opened, so that a
  /// failure, and what was read without a lock, counts for nothing.
  virtual bool HasChanged() const = 0;
};

/// Opens a SQLite file for reading in the way that leaves no trace, whatever state the file is in:
///
///   no write-ahead log in use          locked against changes for as long as it is read
///   a log, and its index               read with the other program through the index, which is
///                                      only looked at
///   a log that is empty or not there   read without locks, since a lock would make a log
///   a log without its index            read from a private copy
///
/// Throws as ThrowError does, DatabaseBusyError when the files are changed so often that they
/// cannot be read without locks until `deadline` or the end of `wait`. REQUIRES: the name is
/// absolute.
std::unique_ptr<FileReading> OpenForReading(const std::string& file, const Patience& patience,
                                            std::chrono::steady_clock::time_point deadline,
                                            Wait& wait);

}  // namespace veyra::sqlite
