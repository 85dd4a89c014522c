#pragma once

#include <utility>
#include <vector>

#include "data/store.h"

namespace veyra::access {

/// Rows by the number that one of their columns holds.
class NumberOrder {
 public:
  /// A number, and the row that holds it.
  using Entry = std::pair<double, RowKey>;

  explicit NumberOrder(std::vector<Entry> entries);

  /// The rows that hold the number, rising.
  std::vector<RowKey> RowsOf(double number) const;

  /// Takes these entries out and puts those in. What is among both stays. REQUIRES: `gone` are
  /// there, `come` are not, but for what is among both.
  void Replace(std::vector<Entry> gone, std::vector<Entry> come);

 private:
  std::vector<Entry> entries_;  ///< Rising.
};

}  // namespace veyra::access
