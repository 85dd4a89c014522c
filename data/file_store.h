#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/store.h"

namespace veyra {

/// What whoever looks after a database file needs beyond a Store: every kind of file provides it.
/// Throws as Store does.
class FileStore : public Store {
 public:
  /// Makes a new file that holds what this one does at one moment, while others may have it open.
  /// Whoever needs it to survive a loss of power flushes it. `new_file` is written as this platform
  /// writes it. Throws DatabaseError when something bears that name, or when the copy cannot be
  /// made; then no part of it is left behind.
  virtual void CopyTo(const std::string& new_file) = 0;

  /// What is wrong with the file's own structure, one sentence each, whatever its tables mean;
  /// nothing when it is sound. What an engine says itself stays in its words. Reads the whole file.
  virtual std::vector<Phrase> Verify() = 0;

  /// The highest number that the table has given to a row, one that was deleted since included; 0
  /// when it gives none, or has given none. The next row gets a higher one.
  virtual std::int64_t LastNumber(const std::string& table) = 0;

  /// Adds rows to a table of a new file as InsertAll does, faster: an index may lack them until
  /// EndFilling, except for one that allows each value once.
  virtual void Fill(const std::string& table, const std::vector<FieldValues>& rows) {
    InsertAll(table, rows);
  }

  /// To be called after the last Fill of a table, also when it has thrown and the file is used on;
  /// without effect when there was none.
  virtual void EndFilling(const std::string& table) { static_cast<void>(table); }

  /// Begins or ends the journal of changes; what it holds stays. Throws DatabaseError when a table
  /// of another program bears the journal's name.
  virtual void KeepJournal(bool keep) = 0;
};

}  // namespace veyra
