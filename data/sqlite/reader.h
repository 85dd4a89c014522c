#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/sqlite/catalogue.h"
#include "data/sqlite/database.h"
#include "data/sqlite/statement.h"
#include "data/store.h"

namespace veyra::sqlite {

/// An open SQLite file and what reading it needs. Throws as Store does.
class Reader {
 public:
  explicit Reader(std::unique_ptr<Database> database);

  Database& database() { return *database_; }
  Catalogue& catalogue() { return catalogue_; }
  StatementCache& statements() { return statements_; }
  const std::string& file() const { return database_->file(); }

  /// The rows of the query, which must be dropped before the reader is. When the disk fails it is
  /// asked once more.
  std::unique_ptr<RowSource> Select(const Query& query);

 private:
  std::unique_ptr<RowSource> SelectNow(const Query& query);
  std::unique_ptr<RowSource> Run(const Query& query);

  std::unique_ptr<Database> database_;
  StatementCache statements_;
  Catalogue catalogue_;
};

/// Takes a row from a statement that gives its number first and then its columns.
void TakeRow(const Statement& statement, Row& row);

}  // namespace veyra::sqlite
