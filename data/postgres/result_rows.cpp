#include "data/postgres/result_rows.h"

#include <utility>

namespace veyra::postgres {

ResultRows::ResultRows(RowReader rows, const std::string& table, SeenRows& seen)
    : rows_(std::move(rows)),
      booking_(FindBookingColumns(table, rows_.ColumnNames())),
      seen_(seen) {
  for (int row = 0; row < rows_.RowCount(); ++row) {
    if (!rows_.IsFound(row)) {
      Note(rows_.At(row));
    }
  }
}

bool ResultRows::Next(Row& row) {
  while (next_ < rows_.RowCount() && !rows_.IsFound(next_)) {
    ++next_;
  }
  if (next_ >= rows_.RowCount()) {
    return false;
  }
  row = rows_.At(next_++);
  Note(row);
  return true;
}

void ResultRows::Note(const Row& row) {
  if (booking_) {
    seen_.Note(row, *booking_);
  }
}

}  // namespace veyra::postgres
