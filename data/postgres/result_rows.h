#pragma once

#include <optional>
#include <string>

#include "data/postgres/booking_days.h"
#include "data/postgres/cell.h"
#include "data/postgres/seen_rows.h"
#include "data/store.h"

namespace veyra::postgres {

/// The rows of a result. Those that are bookings count as seen when they are given; those that were
/// looked at and do not satisfy the query, at once.
class ResultRows : public RowSource {
 public:
  /// `seen` must outlive it.
  ResultRows(RowReader rows, const std::string& table, SeenRows& seen);

  bool Next(Row& row) override;

 private:
  void Note(const Row& row);

  RowReader rows_;
  std::optional<BookingColumns> booking_;
  SeenRows& seen_;
  int next_ = 0;
};

}  // namespace veyra::postgres
