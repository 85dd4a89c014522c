#include "data/sqlite/reader.h"

#include <utility>

#include "data/errors.h"
#include "data/sqlite/sql_text.h"
#include "data/sqlite/sqlite_errors.h"
#include "data/sqlite/trouble.h"

namespace veyra::sqlite {

namespace {

/// The rows of a statement that stands on its first row, if it has one.
class StatementRows : public RowSource {
 public:
  StatementRows(StatementCache::Handle statement, std::vector<Value> parameters, bool has_row)
      : parameters_(std::move(parameters)), statement_(std::move(statement)), has_row_(has_row) {
    if (!has_row_) {
      statement_->Reset();
    }
  }

  bool Next(Row& row) override {
    if (!std::exchange(has_row_, false)) {
      return false;
    }
    TakeRow(*statement_, row);
    has_row_ = statement_->Step();
    // Lets go of the file as soon as the last row is read, not when the caller is done with it.
    if (!has_row_) {
      statement_->Reset();
    }
    return true;
  }

 private:
  std::vector<Value> parameters_;
  StatementCache::Handle statement_;
  bool has_row_;
};

}  // namespace

Reader::Reader(std::unique_ptr<Database> database)
    : database_(std::move(database)),
      statements_(*database_),
      catalogue_(*database_, statements_) {}

std::unique_ptr<RowSource> Reader::Select(const Query& query) {
  try {
    return SelectNow(query);
  } catch (const PassingTrouble&) {
    return SelectNow(query);
  }
}

std::unique_ptr<RowSource> Reader::SelectNow(const Query& query) {
  while (true) {
    try {
      auto rows = Run(query);
      if (!catalogue_.Refresh()) {
        return rows;
      }
    } catch (const DatabaseBusyError&) {
      throw;
    } catch (const DatabaseError&) {
      // A table or column that is missing may have been there when the catalogue was last asked.
      if (!catalogue_.Refresh()) {
        throw;
      }
    }
  }
}

std::unique_ptr<RowSource> Reader::Run(const Query& query) {
  BoundSql sql = SelectSql(file(), catalogue_.Find(query.Table), query);
  auto statement = statements_.Take(std::move(sql.Text));
  statement->Bind(sql.Parameters);
  const bool has_row = statement->Step();
  return std::make_unique<StatementRows>(std::move(statement), std::move(sql.Parameters), has_row);
}

void TakeRow(const Statement& statement, Row& row) {
  row.Key = statement.Integer(0);
  const int columns = statement.ColumnCount() - 1;
  row.Values.clear();
  row.Values.reserve(static_cast<std::size_t>(columns));
  for (int column = 1; column <= columns; ++column) {
    row.Values.push_back(statement.Column(column));
  }
}

}  // namespace veyra::sqlite
