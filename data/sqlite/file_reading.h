#pragma once

#include <memory>
#include <string>

#include "data/sqlite/reader.h"
#include "data/waiting.h"

namespace veyra::sqlite {

/// Whether a log and its index lie beside a database file.
struct FilesBeside {
  explicit FilesBeside(const std::string& file);

  bool operator==(const FilesBeside&) const = default;

  bool HasLog;
  bool HasIndex;
};

/// Another program's file, open for one question, in the way that leaves no trace:
///
///   locked     where the file is kept without a log, or its log and the log's index are there,
///              which is only looked at. What is read is of one moment.
///   unlocked   where a log is kept but the index, or both are missing, since a lock on a log would
///              make them. The file is held so that a program that begins to write to it meanwhile
///              cannot take its log away again before the question is answered: HasChanged tells.
class FileReading {
 public:
  /// Throws as ThrowError does. REQUIRES: the name is absolute.
  FileReading(const std::string& file, const WaitPolicy& policy);

  /// What the question is put to.
  Reader& reader() { return *reader_; }

  /// Then all rows must be read, and HasChanged asked, before any of them is used.
  bool IsUnlocked() const { return hold_ != nullptr; }

  /// Whether another program may have changed the file while it was read without a lock.
  bool HasChanged() const;

 private:
  void Open(const std::string& location, const WaitPolicy& policy);
  void OpenUnlocked(const WaitPolicy& policy);

  std::string file_;
  FilesBeside beside_;
  std::unique_ptr<Database> hold_;  ///< Keeps the log from being taken away; else nothing.
  std::unique_ptr<Reader> reader_;
};

}  // namespace veyra::sqlite
