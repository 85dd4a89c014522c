#include "data/sqlite/salvage/salvage_file.h"

#include <algorithm>
#include <map>
#include <utility>

#include "data/names.h"
#include "data/sqlite/salvage/table_shapes.h"
#include "data/sqlite/salvage/tree_walk.h"

namespace veyra::sqlite {

namespace {

constexpr std::uint32_t kSchemaPage = 1;

/// A line of the file's list of tables and indexes.
struct SchemaItem {
  std::string Type;
  std::string Name;
  std::string Table;
  std::uint32_t Root = 0;
  std::string Sql;
};

/// A table while its rows are gathered.
struct OpenTable {
  TableShape Shape;
  std::vector<LeafRow> Rows;
  std::vector<TreePart> Lost;
  bool IsInSchema = true;  ///< The file's list of tables has it.
};

Phrase RowsNotRead(std::size_t count) {
  return count == 1 ? Phrase::Tr("1 row cannot be read.")
                    : Phrase::Tr("%1 rows cannot be read.", count);
}

bool IsWithin(std::int64_t number, const TreePart& part) {
  return (!part.After || number > *part.After) && (!part.UpTo || number <= *part.UpTo);
}

std::vector<std::string> NamesOf(const TableShape& shape) {
  std::vector<std::string> names;
  for (const ColumnDescription& column : shape.Table.Columns) {
    names.push_back(column.Name);
  }
  return names;
}

class FileSalvager {
 public:
  FileSalvager(const SalvagePages& pages, const SalvageModels& models)
      : pages_(pages), models_(models), free_(pages.FreePages()) {}

  Salvage Run() {
    NoteFile();
    const bool is_whole = ReadSchema();
    for (const SchemaItem& item : schema_) {
      if (item.Type == "table") {
        AddTable(item);
      }
    }
    for (const SchemaItem& item : schema_) {
      if (item.Type == "index") {
        WalkOther(
            item, false,
            Phrase::Tr("The page is damaged; it belongs to an index, so no row is lost by that."));
      }
    }
    ReadStrayLeaves(is_whole);
    Finish();
    return std::move(salvage_);
  }

 private:
  void Lose(const std::string& table, std::optional<std::int64_t> page, const Phrase& what) {
    salvage_.Losses.push_back({table, page, what});
  }

  void NoteFile() {
    salvage_.Kind = FileKind::Sqlite;
    if (!pages_.HasHeader()) {
      Lose({}, 1, Phrase::Tr("The header of the file is damaged; no row is lost by that."));
    }
    if (pages_.EndsWithinPage()) {
      Lose({}, pages_.PageCount() + 1, Phrase::Tr("The file ends within this page."));
    }
    if (pages_.HasOtherLog()) {
      Lose({}, std::nullopt,
           Phrase::Tr("A log lies beside the file that is older than the file; it was not read."));
    }
  }

  /// Reads the list of tables and indexes; returns whether it is whole.
  bool ReadSchema() {
    const TreeYield tree = WalkTree(pages_, kSchemaPage, true, {});
    bool is_whole = tree.Lost.empty();
    taken_.insert(tree.Reached.begin(), tree.Reached.end());
    for (const TreePart& leaf : tree.Leaves) {
      const LeafYield yield = ReadLeaf(pages_, leaf.Page);
      taken_.insert(yield.Overflow.begin(), yield.Overflow.end());
      is_whole = is_whole && yield.LostRows == 0;
      for (const LeafRow& row : yield.Rows) {
        is_whole = AddSchemaItem(row.Record) && is_whole;
      }
    }
    // Without its page the file may have had any tables; an empty list is one of no tables.
    if (!is_whole) {
      Lose({}, kSchemaPage,
           Phrase::Tr("The list of tables is damaged; those missing in it were known again by "
                      "their rows."));
    }
    return is_whole;
  }

  bool AddSchemaItem(const std::vector<Value>& record) {
    if (record.size() != 5) {
      return false;
    }
    const std::int64_t root = ToInteger(record[3]).value_or(0);
    if (root < 0 || root > INT32_MAX) {
      return false;
    }
    schema_.push_back({ToText(record[0]), ToText(record[1]), ToText(record[2]),
                       static_cast<std::uint32_t>(root), ToText(record[4])});
    return true;
  }

  const TableDefinition* Model(const std::string& name) const {
    const auto found = std::find_if(models_.Tables.begin(), models_.Tables.end(),
                                    [&](const auto& each) { return SameName(each.Name, name); });
    return found == models_.Tables.end() ? nullptr : &*found;
  }

  void AddTable(const SchemaItem& item) {
    if (item.Name.starts_with("sqlite_")) {
      WalkOther(item, true, Phrase::Tr("The page is damaged; no row is lost by that."));
      return;
    }
    auto shape = ShapeOf(item.Name, item.Sql);
    if (!shape) {
      const TableDefinition* const model = Model(item.Name);
      Lose(
          item.Name, kSchemaPage,
          model != nullptr
              ? Phrase::Tr("The definition of the table is damaged; its rows were read as this "
                           "program makes "
                           "them.")
              : Phrase::Tr(
                    "The definition of the table is damaged, or of a kind that is not read here."));
      if (model == nullptr) {
        return;
      }
      shape = ShapeOf(*model);
    }
    tables_.push_back({.Shape = std::move(*shape), .Rows = {}, .Lost = {}});
    ReadTree(tables_.back(), item.Root);
  }

  void ReadTree(OpenTable& table, std::uint32_t root) {
    TreeYield tree = WalkTree(pages_, root, true, taken_);
    for (const TreePart& leaf : tree.Leaves) {
      LeafYield yield = ReadLeaf(pages_, leaf.Page);
      if (IsStrange(table.Shape, leaf, yield)) {
        tree.Lost.push_back(leaf);
        tree.Reached.erase(leaf.Page);
      } else {
        TakeLeaf(table, leaf.Page, std::move(yield));
      }
    }
    taken_.insert(tree.Reached.begin(), tree.Reached.end());
    for (const TreePart& part : tree.Lost) {
      reported_.insert(part.Page);
      Lose(table.Shape.Table.Name, part.Page,
           part.Page <= pages_.PageCount()
               ? Phrase::Tr("The page is damaged; what was on it is lost.")
               : Phrase::Tr("The page is missing: the file ends before it."));
    }
    table.Lost = std::move(tree.Lost);
  }

  /// Whether most rows of a leaf are not such as the table has there: then what led to it is wrong.
  static bool IsStrange(const TableShape& shape, const TreePart& place, const LeafYield& leaf) {
    const auto strange = std::count_if(leaf.Rows.begin(), leaf.Rows.end(), [&](const LeafRow& row) {
      return !FitsShape(shape, row.Record) || !IsWithin(row.Number, place);
    });
    return static_cast<std::size_t>(strange) * 2 > leaf.Rows.size();
  }

  void TakeLeaf(OpenTable& table, std::uint32_t page, LeafYield yield) {
    taken_.insert(page);
    taken_.insert(yield.Overflow.begin(), yield.Overflow.end());
    auto lost = static_cast<std::size_t>(yield.LostRows);
    for (LeafRow& row : yield.Rows) {
      if (row.Record.size() <= table.Shape.Table.Columns.size()) {
        table.Rows.push_back(std::move(row));
      } else {
        ++lost;
      }
    }
    if (lost > 0) {
      Lose(table.Shape.Table.Name, page, RowsNotRead(lost));
    }
  }

  /// Goes through what holds no rows of a user's table.
  void WalkOther(const SchemaItem& item, bool is_table, const Phrase& what) {
    if (item.Root == 0) {
      return;
    }
    const TreeYield tree = WalkTree(pages_, item.Root, is_table, taken_);
    taken_.insert(tree.Reached.begin(), tree.Reached.end());
    for (const TreePart& part : tree.Lost) {
      if (reported_.insert(part.Page).second) {
        Lose(item.Table, part.Page, what);
      }
    }
  }

  /// Leaves that no tree leads to any more.
  void ReadStrayLeaves(bool is_whole) {
    const bool has_lost_part = std::any_of(tables_.begin(), tables_.end(),
                                           [](const auto& table) { return !table.Lost.empty(); });
    if (is_whole && !has_lost_part) {
      return;
    }
    if (!is_whole) {
      AddModels();
    }
    for (std::uint32_t page = 2; page <= pages_.PageCount(); ++page) {
      if (taken_.contains(page) || free_.contains(page)) {
        continue;
      }
      try {
        ReadStrayLeaf(page);
      } catch (const NotWhole&) {
        NoteStrayPage(page, is_whole);
      }
    }
  }

  /// The tables that are not in the list may still be in the file.
  void AddModels() {
    for (const TableDefinition& model : models_.Tables) {
      if (std::none_of(tables_.begin(), tables_.end(), [&](const OpenTable& table) {
            return SameName(table.Shape.Table.Name, model.Name);
          })) {
        tables_.push_back({.Shape = ShapeOf(model), .Rows = {}, .Lost = {{}}, .IsInSchema = false});
      }
    }
  }

  void ReadStrayLeaf(std::uint32_t page) {
    LeafYield yield = ReadLeaf(pages_, page);
    if (yield.Rows.empty() || IsOfNumbers(yield)) {
      return;
    }
    if (OpenTable* const table = OwnerOf(yield)) {
      TakeLeaf(*table, page, std::move(yield));
      return;
    }
    Lose({}, page,
         yield.Rows.size() == 1
             ? Phrase::Tr("The page holds 1 row, but of which table cannot be told.")
             : Phrase::Tr("The page holds %1 rows, but of which table cannot be told.",
                          yield.Rows.size()));
  }

  /// The one table that all rows of a leaf can belong to: of those that lack rows of their numbers,
  /// or of all that lack any.
  OpenTable* OwnerOf(const LeafYield& leaf) {
    OpenTable* const owner = OwnerOf(leaf, true);
    return owner == nullptr ? OwnerOf(leaf, false) : owner;
  }

  OpenTable* OwnerOf(const LeafYield& leaf, bool by_number) {
    OpenTable* owner = nullptr;
    int found = 0;
    for (OpenTable& table : tables_) {
      if (!table.Lost.empty() && MayOwn(table, leaf, by_number)) {
        owner = &table;
        ++found;
      }
    }
    return found == 1 ? owner : nullptr;
  }

  bool MayOwn(const OpenTable& table, const LeafYield& leaf, bool by_number) const {
    const TableShape& shape = table.Shape;
    return std::all_of(leaf.Rows.begin(), leaf.Rows.end(), [&](const LeafRow& row) {
      return FitsShape(shape, row.Record) &&
             (table.IsInSchema || row.Record.size() == shape.Table.Columns.size()) &&
             (!by_number || IsMissing(table, row.Number)) &&
             models_.IsPlausible(shape.Table.Name, NamesOf(shape),
                                 RowOf(shape, row.Record, row.Number));
    });
  }

  static bool IsMissing(const OpenTable& table, std::int64_t number) {
    return std::any_of(table.Lost.begin(), table.Lost.end(),
                       [number](const TreePart& part) { return IsWithin(number, part); });
  }

  /// Whether a leaf holds the last numbers given, by table.
  bool IsOfNumbers(const LeafYield& leaf) const {
    return std::all_of(leaf.Rows.begin(), leaf.Rows.end(), [&](const LeafRow& row) {
      return row.Record.size() == 2 && Model(ToText(row.Record[0])) != nullptr;
    });
  }

  /// A page without rows that nothing leads to: an inner page, one of an index, or a damaged one.
  void NoteStrayPage(std::uint32_t page, bool is_whole) {
    try {
      const PageBytes bytes = pages_.Read(page);
      const TreePage tree(bytes, HeadOf(page));
      if (tree.IsInner() || !is_whole) {
        return;
      }
    } catch (const NotWhole&) {
      // Reported below.
    }
    if (reported_.insert(page).second) {
      Lose({}, page, Phrase::Tr("The page is damaged; what it held cannot be told."));
    }
  }

  /// Hands over what was gathered, in the order of the rows' numbers, each number once.
  void Finish() {
    for (OpenTable& table : tables_) {
      if (!table.IsInSchema && table.Rows.empty()) {
        continue;
      }
      std::stable_sort(table.Rows.begin(), table.Rows.end(),
                       [](const auto& one, const auto& next) { return one.Number < next.Number; });
      SalvagedTable made{.Table = std::move(table.Shape.Table)};
      const TableShape shape{.Table = made.Table, .Defaults = std::move(table.Shape.Defaults)};
      std::optional<std::int64_t> last;
      for (LeafRow& row : table.Rows) {
        if (last == row.Number) {
          Lose(made.Table.Name, row.Page,
               Phrase::Tr("A row has the number of another, and was left out."));
          continue;
        }
        last = row.Number;
        made.Rows.push_back({row.Page, RowOf(shape, std::move(row.Record), row.Number)});
      }
      salvage_.Tables.push_back(std::move(made));
    }
  }

  const SalvagePages& pages_;
  const SalvageModels& models_;
  std::set<std::uint32_t> free_;
  std::set<std::uint32_t> taken_;     ///< Pages that are known to belong somewhere.
  std::set<std::uint32_t> reported_;  ///< Damaged pages that are in the list of losses.
  std::vector<SchemaItem> schema_;
  std::vector<OpenTable> tables_;
  Salvage salvage_;
};

}  // namespace

Salvage SalvageSqliteFile(const std::string& file_name, const SalvageModels& models) {
  const SalvagePages pages(file_name);
  return FileSalvager(pages, models).Run();
}

}  // namespace veyra::sqlite
