#include "tools/care/salvaged_store.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "data/names.h"
#include "data/store_errors.h"

namespace veyra {
namespace {

class SalvagedRows : public RowSource {
 public:
  explicit SalvagedRows(std::vector<const SalvagedRow*> rows) : rows_(std::move(rows)) {}

  bool Next(Row& row) override {
    if (next_ == rows_.size()) {
      return false;
    }
    row.Key = static_cast<RowKey>(next_);
    row.Values = rows_[next_++]->Values;
    return true;
  }

 private:
  std::vector<const SalvagedRow*> rows_;
  std::size_t next_ = 0;
};

class SalvagedStore : public Store {
 public:
  SalvagedStore(std::string file, const Salvage& salvage)
      : file_(std::move(file)), salvage_(salvage) {}

  const std::string& FileName() const override { return file_; }

  std::vector<std::string> TableNames() override {
    std::vector<std::string> names;
    for (const SalvagedTable& table : salvage_.Tables) {
      names.push_back(table.Table.Name);
    }
    return names;
  }

  std::vector<std::string> ColumnNames(const std::string& table) override {
    std::vector<std::string> names;
    for (const ColumnDescription& column : Find(table).Table.Columns) {
      names.push_back(column.Name);
    }
    return names;
  }

  std::size_t FittingCharacters(const std::string&, const std::string&,
                                std::string_view text) override {
    return text.size();
  }

  StoreDescription Describe() override {
    StoreDescription description{.Kind = salvage_.Kind};
    for (const SalvagedTable& table : salvage_.Tables) {
      description.Tables.push_back(table.Table);
      description.Tables.back().RowCount = static_cast<std::int64_t>(table.Rows.size());
    }
    return description;
  }

  std::unique_ptr<RowSource> Select(const Query& query) override {
    const SalvagedTable& table = Find(query.Table);
    std::vector<const SalvagedRow*> rows;
    for (const SalvagedRow& row : table.Rows) {
      rows.push_back(&row);
    }
    const std::vector<std::string> names = ColumnNames(query.Table);
    for (auto term = query.OrderBy.rbegin(); term != query.OrderBy.rend(); ++term) {
      const auto column = FindName(names, term->Column);
      if (!column) {
        throw MissingColumn(file_, query.Table, term->Column);
      }
      std::stable_sort(rows.begin(), rows.end(), [&](const auto* one, const auto* other) {
        return ToInteger(one->Values[*column]) < ToInteger(other->Values[*column]);
      });
    }
    return std::make_unique<SalvagedRows>(std::move(rows));
  }

  Row Insert(const std::string&, const FieldValues&) override { throw OpenedForReadingOnly(file_); }
  Row Update(const std::string&, const Row&, const FieldValues&) override {
    throw OpenedForReadingOnly(file_);
  }
  void Delete(const std::string&, const Row&) override { throw OpenedForReadingOnly(file_); }
  void ChangeAll(const std::vector<RowChange>&, const std::vector<QueryResult>&) override {
    throw OpenedForReadingOnly(file_);
  }
  bool KeepsJournal() override { return false; }
  void CreateTable(const TableDefinition&) override { throw OpenedForReadingOnly(file_); }
  void AddColumn(const std::string&, const ColumnDefinition&) override {
    throw OpenedForReadingOnly(file_);
  }

 private:
  const SalvagedTable& Find(const std::string& name) const {
    const auto found =
        std::find_if(salvage_.Tables.begin(), salvage_.Tables.end(),
                     [&](const auto& each) { return SameName(each.Table.Name, name); });
    if (found == salvage_.Tables.end()) {
      throw MissingTable(file_, name);
    }
    return *found;
  }

  std::string file_;
  const Salvage& salvage_;
};

}  // namespace

std::unique_ptr<Store> MakeSalvagedStore(std::string file_name, const Salvage& salvage) {
  return std::make_unique<SalvagedStore>(std::move(file_name), salvage);
}

}  // namespace veyra
