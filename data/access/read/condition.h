#pragma once

#include <compare>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "data/access/read/table_layout.h"
#include "data/query.h"

namespace veyra::access {

/// How one value compares with another; nothing when either is null or their kinds do not compare.
/// Numbers compare with numbers and with texts that stand for one, dates with dates and with ISO
/// texts, texts byte by byte.
std::optional<std::partial_ordering> CompareValues(const Value& one, const Value& other);

/// The order of sorting: as CompareValues, null first, then numbers, dates and texts.
bool SortsBefore(const Value& one, const Value& other);

/// A side of a comparison: a column by its place in the table, or a value.
using Side = std::variant<std::size_t, Value>;

/// A comparison of a row's columns, by their places in the table.
struct RowComparison {
  Side Left;
  Relation Test = Relation::Equal;
  Side Right;

  /// Whether values of that order satisfy it; nothing when they do not compare.
  bool Satisfies(std::optional<std::partial_ordering> order) const;

  template <typename ValueOf>
  bool Holds(const ValueOf& value_of) const {
    const auto value = [&](const Side& side) {
      const auto* place = std::get_if<std::size_t>(&side);
      return place == nullptr ? std::get<Value>(side) : value_of(*place);
    };
    return Satisfies(CompareValues(value(Left), value(Right)));
  }
};

class RowCondition;

struct RowJunction {
  Junction::Kind By = Junction::Kind::And;
  std::vector<RowCondition> Parts;

  template <typename ValueOf>
  bool Holds(const ValueOf& value_of) const;
};

/// A condition over the columns of one table, by their places.
class RowCondition {
 public:
  /// Throws FileProblem when the condition names a column that the table lacks.
  RowCondition(const Condition& condition, const TableLayout& table);

  /// Whether a row satisfies the condition; `value_of(place)` gives its columns.
  template <typename ValueOf>
  bool Holds(const ValueOf& value_of) const {
    return std::visit([&](const auto& one) { return one.Holds(value_of); }, condition_);
  }

  /// The columns that must equal a value wherever the condition holds, with those values.
  std::vector<std::pair<std::size_t, Value>> NeededEquals() const;

 private:
  std::variant<RowComparison, RowJunction> condition_;
};

template <typename ValueOf>
bool RowJunction::Holds(const ValueOf& value_of) const {
  const bool ends_it = By == Junction::Kind::Or;
  for (const RowCondition& part : Parts) {
    if (part.Holds(value_of) == ends_it) {
      return ends_it;
    }
  }
  return !ends_it;
}

/// The place of a column. Throws FileProblem when the table has none of that name.
std::size_t PlaceOfColumn(const TableLayout& table, std::string_view name);

}  // namespace veyra::access
