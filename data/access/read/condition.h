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

/// A condition over the columns of one table, by their places.
class RowCondition {
 public:
  /// Throws FileProblem when the condition names a column that the table lacks.
  RowCondition(const Condition& condition, const TableLayout& table);

  /// Whether a row satisfies the condition; `value_of(place)` gives its columns.
  template <typename ValueOf>
  bool Holds(const ValueOf& value_of) const {
    if (what_ == Condition::Kind::Compare) {
      const auto side = [&](const Side& from) {
        const auto* place = std::get_if<std::size_t>(&from);
        return place == nullptr ? std::get<Value>(from) : value_of(*place);
      };
      return Satisfies(CompareValues(side(left_), side(right_)));
    }
    for (const RowCondition& part : parts_) {
      if (part.Holds(value_of) == (what_ == Condition::Kind::Or)) {
        return what_ == Condition::Kind::Or;
      }
    }
    return what_ == Condition::Kind::And;
  }

  /// The columns that must equal a value wherever the condition holds, with those values.
  std::vector<std::pair<std::size_t, Value>> NeededEquals() const;

 private:
  bool Satisfies(std::optional<std::partial_ordering> order) const;

  Condition::Kind what_;
  Comparison test_;
  Side left_;
  Side right_;
  std::vector<RowCondition> parts_;
};

/// The place of a column. Throws FileProblem when the table has none of that name.
std::size_t PlaceOfColumn(const TableLayout& table, std::string_view name);

}  // namespace veyra::access
