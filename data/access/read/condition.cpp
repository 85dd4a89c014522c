#include "data/access/read/condition.h"

#include <string>

namespace veyra::access {

namespace {

bool IsNumber(const Value& value) {
  return std::holds_alternative<std::int64_t>(value) || std::holds_alternative<double>(value);
}

bool IsText(const Value& value) {
  return std::holds_alternative<std::string>(value);
}

bool IsDate(const Value& value) {
  return std::holds_alternative<Date>(value);
}

std::optional<std::partial_ordering> CompareNumbers(const Value& one, const Value& other) {
  const auto* first = std::get_if<std::int64_t>(&one);
  const auto* second = std::get_if<std::int64_t>(&other);
  if (first != nullptr && second != nullptr) {
    return *first <=> *second;
  }
  const std::optional<double> left = ToDouble(one);
  const std::optional<double> right = ToDouble(other);
  return left && right ? std::optional(*left <=> *right) : std::nullopt;
}

std::optional<std::partial_ordering> CompareDates(const Value& one, const Value& other) {
  const std::optional<Date> left = ToDate(one);
  const std::optional<Date> right = ToDate(other);
  if (!left || !right) {
    return std::nullopt;
  }
  return *left <=> *right;
}

/// Null, numbers, dates, texts.
int SortRank(const Value& value) {
  return IsNull(value) ? 0 : IsNumber(value) ? 1 : IsDate(value) ? 2 : 3;
}

Side SideOf(const Operand& operand, const TableLayout& table) {
  if (const auto* column = std::get_if<ColumnName>(&operand)) {
    return PlaceOfColumn(table, column->Name);
  }
  return std::get<Value>(operand);
}

}  // namespace

std::optional<std::partial_ordering> CompareValues(const Value& one, const Value& other) {
  if (IsNull(one) || IsNull(other)) {
    return std::nullopt;
  }
  if (IsDate(one) || IsDate(other)) {
    return CompareDates(one, other);
  }
  if (IsText(one) && IsText(other)) {
    return std::get<std::string>(one) <=> std::get<std::string>(other);
  }
  return CompareNumbers(one, other);
}

bool SortsBefore(const Value& one, const Value& other) {
  const int first = SortRank(one);
  const int second = SortRank(other);
  if (first != second) {
    return first < second;
  }
  return CompareValues(one, other) == std::partial_ordering::less;
}

RowCondition::RowCondition(const Condition& condition, const TableLayout& table) {
  if (const auto* comparison = std::get_if<Comparison>(&condition)) {
    condition_ = RowComparison{SideOf(comparison->Left, table), comparison->Test,
                               SideOf(comparison->Right, table)};
    return;
  }
  const auto& junction = std::get<Junction>(condition);
  RowJunction joined{junction.By, {}};
  for (const Condition& part : junction.Parts) {
    joined.Parts.emplace_back(part, table);
  }
  condition_ = std::move(joined);
}

bool RowComparison::Satisfies(std::optional<std::partial_ordering> order) const {
  if (!order || *order == std::partial_ordering::unordered) {
    return false;
  }
  switch (Test) {
    case Relation::Equal:
      return std::is_eq(*order);
    case Relation::NotEqual:
      return std::is_neq(*order);
    case Relation::Less:
      return std::is_lt(*order);
    case Relation::LessOrEqual:
      return std::is_lteq(*order);
    case Relation::Greater:
      return std::is_gt(*order);
    case Relation::GreaterOrEqual:
      return std::is_gteq(*order);
  }
  return false;
}

std::vector<std::pair<std::size_t, Value>> RowCondition::NeededEquals() const {
  std::vector<std::pair<std::size_t, Value>> equals;
  if (const auto* junction = std::get_if<RowJunction>(&condition_)) {
    if (junction->By == Junction::Kind::And) {
      for (const RowCondition& part : junction->Parts) {
        const auto more = part.NeededEquals();
        equals.insert(equals.end(), more.begin(), more.end());
      }
    }
    return equals;
  }
  const auto& [left, test, right] = std::get<RowComparison>(condition_);
  if (test == Relation::Equal && left.index() != right.index()) {
    const bool column_left = std::holds_alternative<std::size_t>(left);
    equals.emplace_back(std::get<std::size_t>(column_left ? left : right),
                        std::get<Value>(column_left ? right : left));
  }
  return equals;
}

std::size_t PlaceOfColumn(const TableLayout& table, std::string_view name) {
  const std::size_t place = table.FindColumn(name);
  if (place == table.Columns.size()) {
    throw StoreProblem(Refusal::NoColumn, std::string(name));
  }
  return place;
}

}  // namespace veyra::access
