#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "data/value.h"

namespace veyra {

/// A column named in a condition.
struct ColumnName {
  std::string Name;
};

/// One side of a comparison.
using Operand = std::variant<ColumnName, Value>;

enum class Comparison { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

/// What a row must satisfy: a comparison, or several conditions joined by And or by Or. A
/// comparison with a null on either side is not satisfied.
struct Condition {
  enum class Kind { Compare, And, Or };

  Kind What = Kind::Compare;
  Comparison Test = Comparison::Equal;  ///< Compare only.
  Operand Left;                         ///< Compare only.
  Operand Right;                        ///< Compare only.
  std::vector<Condition> Parts;         ///< And, Or only: two or more.
};

struct OrderTerm {
  std::string Column;
  bool Descending = false;
};

/// Every column of the rows of one table that satisfy a condition, in an order. Rows that the
/// order leaves equal, and all rows when it is empty, come in the order they were added.
struct Query {
  std::string Table;
  std::vector<Condition> Where;  ///< None, or exactly one.
  std::vector<OrderTerm> OrderBy;
  bool WithTimes = false;  ///< A date with a time of day is given as text, "2014-04-06 13:30:00",
                           ///< not as a date only, in files that keep times of day.
};

/// Reads an SQL text of the form that this program writes:
///
///   SELECT * FROM table [WHERE condition] [ORDER BY column [ASC|DESC] {, column ...}] [;]
///
///   condition   conjunction {OR conjunction}
///   conjunction primary {AND primary}
///   primary     ( condition ) | operand (= | <> | < | <= | > | >=) operand
///   operand     column | whole or decimal number | #month/day/year# | 'text'
///
/// Key words in any letter case. A quote inside a text is doubled. Names are letters, digits and
/// underscores, or anything inside square brackets.
/// Throws DatabaseError, with the text in it, when the text has another form or a date in it does
/// not exist.
Query ParseQuery(std::string_view sql);

}  // namespace veyra
