#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "data/sqlite/database.h"
#include "data/sqlite/statement.h"

namespace veyra::sqlite {

/// A table as the file has it.
struct Table {
  std::string Name;                  ///< As the file spells it.
  std::vector<std::string> Columns;  ///< Those of "SELECT *", in that order.
  std::vector<bool> Computed;        ///< Of each column, whether the file works out its value.
  std::string Key;                   ///< The name by which a row's number is reached when no column
                                     ///< hides it; empty when the rows have no number.
};

/// What tables and columns the file has. Asked of the file once, and again when the file was read
/// since and its schema found changed, by this program or by another.
class Catalogue {
 public:
  Catalogue(Database& database, StatementCache& statements);

  /// The tables and views of the file, but for SQLite's own.
  std::vector<std::string> TableNames();

  /// The table, found without regard to ASCII letter case; stays where it is until the next call of
  /// a member. Throws DatabaseError when there is none.
  const Table& Find(const std::string& name);

  /// Whether triggers enter changes in the journal.
  bool KeepsJournal();

  /// Whether the table that they are entered in is there.
  bool HasJournalTable();

  /// Drops what was found before when the schema was changed since. Returns whether it was.
  bool Refresh();

 private:
  Table Read(const std::string& name);
  bool Known(std::optional<bool>& answer, const char* sql);

  Database& database_;
  StatementCache& statements_;
  std::optional<unsigned> file_version_;
  std::int64_t schema_version_ = -1;
  std::unordered_map<std::string, Table> tables_;
  std::optional<bool> keeps_journal_;
  std::optional<bool> has_journal_table_;
};

}  // namespace veyra::sqlite
