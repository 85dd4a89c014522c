#include "tools/copy_database.h"

#include <limits>
#include <optional>
#include <string>

#include "data/errors.h"

namespace veyra {
namespace {

std::optional<Value> Found(const auto& value) {
  return value ? std::optional<Value>(*value) : std::nullopt;
}

Phrase NotOf(ColumnType type, const std::string& column, const std::string& value) {
  switch (type) {
    case ColumnType::WholeNumber:
      return Phrase::Tr("%1 holds \"%2\", which is not a whole number.", column, value);
    case ColumnType::Double:
      return Phrase::Tr("%1 holds \"%2\", which is not a number.", column, value);
    case ColumnType::Day:
      return Phrase::Tr("%1 holds \"%2\", which is not a date.", column, value);
    case ColumnType::Text:
      return Phrase::Tr("%1 holds \"%2\", which is not a text.", column, value);
  }
  return Phrase::Tr("%1 holds \"%2\", which is not a value.", column, value);
}

/// Whether the value is one of the type as it is.
bool IsOf(ColumnType type, const Value& value) {
  switch (type) {
    case ColumnType::WholeNumber:
      return std::holds_alternative<std::int64_t>(value);
    case ColumnType::Double:
      return std::holds_alternative<double>(value);
    case ColumnType::Day:
      return std::holds_alternative<Date>(value);
    case ColumnType::Text:
      return std::holds_alternative<std::string>(value);
  }
  return false;
}

/// A table of the source while its rows are gone through.
class SourceTable {
 public:
  SourceTable(Store& source, const TablePlan& plan)
      : file_(source.FileName()), table_(plan.Table), rows_(source.Select(plan.Rows)) {}

  /// Goes to the next row, its values as the new columns hold them.
  bool Next() {
    if (!rows_->Next(row_)) {
      return false;
    }
    ++number_;
    for (std::size_t i = 0; i < row_.Values.size(); ++i) {
      row_.Values[i] = Converted(i);
    }
    return true;
  }

  const std::vector<Value>& Values() const { return row_.Values; }

  /// How many rows have been gone through.
  std::int64_t Number() const { return number_; }

  [[noreturn]] void Fail(const Phrase& cause) const { FailAt(number_, cause); }

  [[noreturn]] void FailAt(std::int64_t number, const Phrase& cause) const {
    throw DatabaseError(
        {file_,
         Phrase::Tr("Row %1 of the table %2 cannot be converted. %3", number, table_.Name, cause),
         Phrase::Tr("Nothing was changed. Correct the row, and convert again.")});
  }

 private:
  Value Converted(std::size_t i) {
    const ColumnDefinition& column = table_.Columns[i];
    if (IsOf(column.Type, row_.Values[i])) {
      return std::move(row_.Values[i]);
    }
    std::optional<Value> converted = ValueAs(column.Type, row_.Values[i]);
    if (converted) {
      return std::move(*converted);
    }
    Fail(NotOf(column.Type, column.Name, ToText(row_.Values[i])));
  }

  std::string file_;
  const TableDefinition& table_;
  std::unique_ptr<RowSource> rows_;
  Row row_;
  std::int64_t number_ = 0;
};

/// Rows that are added to the target many at a time.
class RowBatch {
 public:
  RowBatch(FileStore& target, const TableDefinition& table) : target_(target), table_(table) {}

  void Add(const SourceTable& from) {
    FieldValues fields;
    for (std::size_t i = 0; i < table_.Columns.size(); ++i) {
      fields.emplace_back(table_.Columns[i].Name, from.Values()[i]);
      const auto* text = std::get_if<std::string>(&from.Values()[i]);
      bytes_ += text == nullptr ? sizeof(Value) : text->size();
    }
    rows_.push_back(std::move(fields));
    if (rows_.size() >= kMostRows || bytes_ >= kMostBytes) {
      Write(from);
    }
  }

  /// Adds the rows to the target.
  void Write(const SourceTable& from) {
    try {
      target_.Fill(table_.Name, rows_);
    } catch (const ValueRefusedError&) {
      FailForOneOf(from);
    } catch (const DatabaseError& error) {
      throw DatabaseError({target_.FileName(), error.report().Cause,
                           Phrase::Tr("Nothing was changed. %1", error.report().Advice)});
    }
    rows_.clear();
    bytes_ = 0;
  }

 private:
  static constexpr std::size_t kMostRows = 20'000;
  static constexpr std::size_t kMostBytes = 16'000'000;

  /// Finds the row that the target cannot hold. REQUIRES: it has added none of them.
  [[noreturn]] void FailForOneOf(const SourceTable& from) {
    std::int64_t number = from.Number() - static_cast<std::int64_t>(rows_.size());
    for (const FieldValues& fields : rows_) {
      ++number;
      try {
        target_.Insert(table_.Name, fields);
      } catch (const ValueRefusedError& error) {
        from.FailAt(number, error.report().Cause);
      }
    }
    from.Fail(Phrase::Tr("The new file cannot hold it together with the rows before it."));
  }

  FileStore& target_;
  const TableDefinition& table_;
  std::vector<FieldValues> rows_;
  std::size_t bytes_ = 0;
};

void MakeTable(const Store& source, Store& target, const TableDefinition& table) {
  try {
    target.CreateTable(table);
  } catch (const DatabaseError& error) {
    throw DatabaseError(
        {source.FileName(),
         Phrase::Tr("The table %1 cannot be converted. %2", table.Name, error.report().Cause),
         Phrase::Tr("Nothing was changed. %1", error.report().Advice)});
  }
}

void FillFrom(Store& source, FileStore& target, const TablePlan& table,
              const std::function<void()>& tell) {
  SourceTable from(source, table);
  RowBatch batch(target, table.Table);
  while (from.Next()) {
    batch.Add(from);
    tell();
  }
  batch.Write(from);
}

/// What fails here may be left out of a file that is whole otherwise.
void CopyRows(Store& source, FileStore& target, const TablePlan& table,
              const std::function<void()>& tell) {
  try {
    FillFrom(source, target, table, tell);
  } catch (const DatabaseError&) {
    target.EndFilling(table.Table.Name);
    throw;
  }
  target.EndFilling(table.Table.Name);
}

void CompareRow(const SourceTable& from, const Row& row, const TableDefinition& table) {
  for (std::size_t i = 0; i < table.Columns.size(); ++i) {
    const ColumnDefinition& column = table.Columns[i];
    const Value& before = from.Values()[i];
    if (row.Values[i] == before || ValueAs(column.Type, row.Values[i]) == before) {
      continue;
    }
    from.Fail(Phrase::Tr("%1 is \"%2\" and would become \"%3\".", column.Name, ToText(before),
                         ToText(row.Values[i])));
  }
}

void CompareTable(Store& source, Store& target, const TablePlan& plan,
                  const std::function<void()>& tell) {
  SourceTable from(source, plan);
  Query all;
  all.Table = plan.Table.Name;
  all.WithTimes = true;
  const auto rows = target.Select(all);
  Row row;
  while (from.Next()) {
    if (!rows->Next(row)) {
      from.Fail(Phrase::Tr("It is missing in the new file."));
    }
    CompareRow(from, row, plan.Table);
    tell();
  }
  if (rows->Next(row)) {
    from.Fail(Phrase::Tr("The new file has more rows after it."));
  }
}

/// The new calendar gives the last number itself, and takes it back.
void KeepLastNumber(FileStore& source, FileStore& target, const TableDefinition& table) {
  for (const ColumnDefinition& column : table.Columns) {
    const std::int64_t last = column.AutoIncrement ? source.LastNumber(table.Name) : 0;
    if (last > target.LastNumber(table.Name) && last <= std::numeric_limits<std::int32_t>::max()) {
      target.Delete(table.Name, target.Insert(table.Name, {{column.Name, last}}));
    }
  }
}

}  // namespace

std::optional<Value> ValueAs(ColumnType type, const Value& value) {
  if (IsNull(value)) {
    return value;
  }
  switch (type) {
    case ColumnType::WholeNumber:
      return Found(ToInteger(value));
    case ColumnType::Double:
      return Found(ToDouble(value));
    case ColumnType::Day:
      return Found(ToDate(value));
    case ColumnType::Text:
      return ToText(value);
  }
  return std::nullopt;
}

void CopyTables(Store& source, FileStore& target, const CopyPlan& plan,
                const CopyObserver& observer) {
  CopyStep step{.Verb = "Copied", .Rows = 0, .Of = plan.RowCount};
  for (const TablePlan& table : plan.Tables) {
    MakeTable(source, target, table.Table);
    CopyRows(source, target, table, [&] {
      ++step.Rows;
      observer(step);
    });
  }
}

void CompareTables(Store& source, Store& target, const CopyPlan& plan,
                   const CopyObserver& observer) {
  CopyStep step{.Verb = "Compared", .Rows = 0, .Of = plan.RowCount};
  for (const TablePlan& table : plan.Tables) {
    CompareTable(source, target, table, [&] {
      ++step.Rows;
      observer(step);
    });
  }
}

void KeepNumbersAndJournal(FileStore& source, FileStore& target, const CopyPlan& plan) {
  for (const TablePlan& table : plan.Tables) {
    KeepLastNumber(source, target, table.Table);
  }
  if (source.KeepsJournal()) {
    target.KeepJournal(true);
  }
}

}  // namespace veyra
