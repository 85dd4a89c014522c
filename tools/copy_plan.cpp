#include "tools/copy_plan.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <optional>
#include <utility>

#include "data/errors.h"
#include "data/names.h"
#include "data/schema.h"
#include "data/text.h"

namespace veyra {
namespace {

constexpr std::int64_t kMostExact = std::int64_t{1} << 53;
constexpr std::size_t kIsoDateSize = 10;

/// The sizes that a text column is made with; a longer text needs one without limit.
constexpr std::array kTextSizes = {16, 50, 255};
constexpr int kUsualTextSize = 50;

/// What all values of a column have in common.
struct ColumnFacts {
  bool HasValue = false;
  bool AreWhole = true;    ///< Whole numbers, in the range of the target's.
  bool AreNumbers = true;  ///< Numbers that a double holds exactly.
  bool AreDays = true;     ///< Dates without a time of day.
  bool AreTexts = true;
  int Longest = 0;  ///< The UTF-16 units of the longest, as Access counts them.
};

bool IsWholeIn(std::int64_t number, FileKind target) {
  return target == FileKind::Sqlite || (number >= std::numeric_limits<std::int32_t>::min() &&
                                        number <= std::numeric_limits<std::int32_t>::max());
}

bool IsDay(const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  return (text == nullptr || text->size() == kIsoDateSize) && ToDate(value).has_value();
}

int LengthOf(const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  return static_cast<int>(Utf16Length(text == nullptr ? ToText(value) : *text));
}

void Note(const Value& value, FileKind target, ColumnFacts& facts) {
  if (IsNull(value)) {
    return;
  }
  const auto* whole = std::get_if<std::int64_t>(&value);
  facts.HasValue = true;
  facts.AreWhole = facts.AreWhole && whole != nullptr && IsWholeIn(*whole, target);
  facts.AreNumbers =
      facts.AreNumbers && (std::holds_alternative<double>(value) ||
                           (whole != nullptr && *whole >= -kMostExact && *whole <= kMostExact));
  facts.AreDays = facts.AreDays && IsDay(value);
  facts.AreTexts = facts.AreTexts && std::holds_alternative<std::string>(value);
  facts.Longest = std::max(facts.Longest, LengthOf(value));
}

bool Fits(ColumnType type, const ColumnFacts& facts) {
  switch (type) {
    case ColumnType::WholeNumber:
      return facts.AreWhole;
    case ColumnType::Double:
      return facts.AreNumbers;
    case ColumnType::Day:
      return facts.AreDays;
    case ColumnType::Text:
      return facts.AreTexts;
  }
  return false;
}

ColumnType TypeFor(const std::optional<ColumnType>& declared, const ColumnFacts& facts) {
  if (!facts.HasValue) {
    return declared.value_or(ColumnType::Text);
  }
  if (declared && Fits(*declared, facts)) {
    return *declared;
  }
  for (const ColumnType type : {ColumnType::WholeNumber, ColumnType::Double, ColumnType::Day}) {
    if (Fits(type, facts)) {
      return type;
    }
  }
  return ColumnType::Text;
}

int TextSize(int wanted, int longest) {
  for (const int size : kTextSizes) {
    if (size >= std::max(wanted, longest)) {
      return size;
    }
  }
  return 0;
}

/// A column that no calendar of this program has.
ColumnDefinition Inferred(const ColumnDescription& column, const ColumnFacts& facts) {
  ColumnDefinition made;
  made.Type = TypeFor(column.Type, facts);
  made.AutoIncrement = column.AutoNumber && made.Type == ColumnType::WholeNumber;
  if (made.Type == ColumnType::Text) {
    made.Size = column.Type == ColumnType::Text ? column.Size : kUsualTextSize;
  }
  return made;
}

ColumnDefinition DefinitionOf(const ColumnDescription& column, const ColumnDefinition* known,
                              const ColumnFacts& facts, FileKind target) {
  ColumnDefinition made = known == nullptr ? Inferred(column, facts) : *known;
  made.Name = column.Name;
  // Names have no limit here; in an Access file they are texts rather than memos.
  const bool is_name = known != nullptr && made.Type == ColumnType::Text && made.Size == 0;
  if (is_name && target == FileKind::Access) {
    made.Size = kTextSizes.back();
  }
  if (made.Size > 0) {
    made.Size = TextSize(made.Size, facts.Longest);
  }
  return made;
}

/// The member of that name, or nullptr.
template <typename Named>
const Named* Find(const std::vector<Named>& all, const std::string& name) {
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const Named& one) { return SameName(one.Name, name); });
  return found == all.end() ? nullptr : &*found;
}

/// Those indexes of a table whose columns it has.
std::vector<IndexDefinition> PossibleIndexes(const TableDefinition& known,
                                             const std::vector<ColumnDefinition>& columns) {
  std::vector<IndexDefinition> possible;
  for (const IndexDefinition& index : known.Indexes) {
    if (std::all_of(index.Columns.begin(), index.Columns.end(),
                    [&](const auto& name) { return Find(columns, name) != nullptr; })) {
      possible.push_back(index);
      std::erase_if(possible.back().Held,
                    [&](const auto& name) { return Find(columns, name) == nullptr; });
    }
  }
  return possible;
}

void RequireReadable(const Store& source, const TableDescription& table) {
  for (const ColumnDescription& column : table.Columns) {
    if (column.IsReadable) {
      continue;
    }
    throw DatabaseError({source.FileName(),
                         Phrase::Tr("The column %1 of the table %2 holds pictures or other "
                                    "objects, which cannot be converted.",
                                    column.Name, table.Name),
                         Phrase::Tr("Nothing was changed. Delete the column in Access, and try "
                                    "again.")});
  }
}

class Planner {
 public:
  Planner(Store& source, FileKind target, const CopyObserver& observer)
      : source_(source), target_(target), observer_(observer) {}

  CopyPlan Plan() {
    for (TableDescription& table : source_.Describe().Tables) {
      if (table.IsView) {
        continue;
      }
      step_.Of += table.RowCount;
      tables_.push_back(std::move(table));
    }
    CopyPlan plan{.Tables = {}, .RowCount = step_.Of};
    for (const TableDescription& table : tables_) {
      plan.Tables.push_back(PlanTable(table));
    }
    return plan;
  }

 private:
  TablePlan PlanTable(const TableDescription& table) {
    RequireReadable(source_, table);
    TablePlan plan;
    plan.Rows.Table = table.Name;
    plan.Rows.WithTimes = true;
    plan.Table = Definition(table, Facts(plan.Rows, table.Columns.size()));
    OrderByKey(plan);
    return plan;
  }

  std::vector<ColumnFacts> Facts(const Query& query, std::size_t columns) {
    std::vector<ColumnFacts> facts(columns);
    const auto rows = source_.Select(query);
    for (Row row; rows->Next(row);) {
      for (std::size_t i = 0; i < columns; ++i) {
        Note(row.Values[i], target_, facts[i]);
      }
      ++step_.Rows;
      observer_(step_);
    }
    return facts;
  }

  TableDefinition Definition(const TableDescription& table,
                             const std::vector<ColumnFacts>& facts) const {
    const std::vector<TableDefinition> all_known = CalendarTables();
    const TableDefinition* known = Find(all_known, table.Name);
    TableDefinition made{.Name = table.Name, .Columns = {}};
    for (std::size_t i = 0; i < table.Columns.size(); ++i) {
      const ColumnDescription& column = table.Columns[i];
      const ColumnDefinition* same = known == nullptr ? nullptr : Find(known->Columns, column.Name);
      made.Columns.push_back(DefinitionOf(column, same, facts[i], target_));
    }
    if (known != nullptr) {
      made.Indexes = PossibleIndexes(*known, made.Columns);
    }
    return made;
  }

  /// A SQLite table with a key gives its rows in the key's order, whatever order they came in.
  void OrderByKey(TablePlan& plan) const {
    if (target_ != FileKind::Sqlite) {
      return;
    }
    for (const ColumnDefinition& column : plan.Table.Columns) {
      if (column.AutoIncrement) {
        plan.Rows.OrderBy.push_back({column.Name});
      }
    }
  }

  Store& source_;
  FileKind target_;
  const CopyObserver& observer_;
  std::vector<TableDescription> tables_;
  CopyStep step_{.Verb = "Read"};
};

}  // namespace

CopyPlan PlanCopy(Store& source, FileKind target, const CopyObserver& observer) {
  return Planner(source, target, observer).Plan();
}

}  // namespace veyra
