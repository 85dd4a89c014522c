#pragma once

#include <optional>
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

enum class Relation { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

/// Not satisfied when there is a null on either side.
struct Comparison {
  Operand Left;
  Relation Test = Relation::Equal;
  Operand Right;
};

struct Condition;

struct Junction {
  enum class Kind { And, Or };

  Kind By = Kind::And;
  std::vector<Condition> Parts;  ///< Two or more.
};

/// What a row must satisfy.
struct Condition : std::variant<Comparison, Junction> {
  using variant::variant;
};

struct OrderTerm {
  std::string Column;
  bool Descending = false;
};

/// Every column of the rows of one table that satisfy a condition, in an order. Rows that the
/// order leaves equal, and all rows when it is empty, come in the order they were added.
struct Query {
  std::string Table;
  std::optional<Condition> Where;
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
