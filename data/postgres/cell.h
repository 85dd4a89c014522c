#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/postgres/catalogue.h"
#include "data/postgres/result.h"
#include "data/store.h"
#include "data/value.h"

namespace veyra::postgres {

/// How many characters of `text`, from its first one on, a server can hold: it holds texts of any
/// length, but no zero byte, and no byte that belongs to no character.
std::size_t StorableCharacters(std::string_view text);

/// The value as text for a statement, as the column holds it; nothing for null. Throws
/// ValueRefusedError, which names `file`, when the column cannot hold it.
std::optional<std::string> AsStored(const std::string& file, const Column& column,
                                    const Value& value);

/// What stands after a value's "$1": "::bigint".
std::string CastFor(const Column& column);

/// The shortest text that reads back as the same number.
std::string NumberText(double number);

/// Reads the rows of a result as a store gives them.
class RowReader {
 public:
  explicit RowReader(Result result);

  int RowCount() const { return result_.RowCount(); }

  /// Without kRowColumn and kFoundColumn, as the rows' values are.
  const std::vector<std::string>& ColumnNames() const { return names_; }

  /// Whether the row satisfies its query: false only where kFoundColumn says so.
  bool IsFound(int row) const { return found_column_ < 0 || result_.IsTrue(row, found_column_); }

  /// The row's number is 0 where the result has no kRowColumn.
  Row At(int row) const;

 private:
  Value Cell(int row, int column) const;

  Result result_;
  std::vector<std::string> names_;
  std::vector<ColumnType> types_;  ///< Of every column of the result.
  int row_column_ = -1;
  int found_column_ = -1;
};

}  // namespace veyra::postgres
