#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "data/access/read/condition.h"
#include "data/access/read/table_image.h"
#include "data/store.h"

namespace veyra::access {

/// The rows of a query over one table, read from its image one after another.
class TableRows {
 public:
  /// Throws FileProblem when the query names a column that the table lacks.
  TableRows(PageSource& file, std::shared_ptr<TableImage> image, const Query& query);

  /// Reads the next row into `row` and returns true; returns false after the last.
  bool Next(Row& row);

 private:
  void Narrow();
  void Sort(const std::vector<OrderTerm>& terms);
  std::size_t Candidates() const { return chosen_ ? chosen_->size() : image_->RowCount(); }
  std::size_t RowAt(std::size_t candidate) const {
    return chosen_ ? (*chosen_)[candidate] : candidate;
  }
  bool Holds(std::size_t index) const;
  Value ValueAt(std::size_t index, std::size_t column) const;

  std::shared_ptr<TableImage> image_;
  CellReader cells_;
  std::optional<RowCondition> condition_;
  std::optional<std::vector<std::size_t>> chosen_;  ///< The rows to look at, if not all.
  std::size_t next_ = 0;
};

/// All columns of a row.
std::vector<Value> ReadValues(const CellReader& cells, const RowView& row,
                              const TableLayout& layout);

}  // namespace veyra::access
