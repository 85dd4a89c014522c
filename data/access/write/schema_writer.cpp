#include "data/access/write/schema_writer.h"

#include <algorithm>
#include <chrono>

#include "data/access/read/catalogue.h"
#include "data/access/read/cell.h"
#include "data/access/read/condition.h"
#include "data/access/read/table_image.h"
#include "data/access/read/table_rows.h"
#include "data/access/write/column_properties.h"
#include "data/access/write/definition_writer.h"
#include "data/access/write/index_key.h"
#include "data/access/write/long_writer.h"
#include "data/access/write/new_table.h"
#include "data/access/write/row_changes.h"
#include "data/access/write/system_tables.h"
#include "data/access/write/table_writer.h"
#include "data/access/write/text_key.h"
#include "data/access/write/usage_map_writer.h"

namespace veyra::access {

namespace {

constexpr std::uint16_t kMostColumns = 255;

IndexLayout IndexOn(const std::string& name, std::uint16_t column, std::uint8_t flags) {
  IndexLayout index;
  index.Name = name;
  index.Columns.push_back({column, false});
  index.Flags = flags;
  return index;
}

void AddIndexes(TableLayout& table, const TableDefinition& definition) {
  for (const ColumnLayout& column : table.Columns) {
    if (column.IsAutoNumber()) {
      table.Indexes.push_back(IndexOn(std::string(kPrimaryKey), column.Number, kIndexUnique));
    }
  }
  for (const IndexDefinition& wanted : definition.Indexes) {
    IndexLayout index;
    index.Name = wanted.Name;
    for (const std::string& name : wanted.Columns) {
      index.Columns.push_back({table.Columns.at(table.FindColumn(name)).Number, false});
    }
    if (HasKnownKeys(index, table)) {
      table.Indexes.push_back(std::move(index));
    }
  }
}

/// The format has no names with these signs, with blanks around them, or longer than that.
bool IsTableName(const std::string& name) {
  constexpr std::size_t kMostUnits = 64;
  return !name.empty() && name.find_first_of(".!`[]\"") == std::string::npos &&
         name.front() != ' ' && name.back() != ' ' && Utf16FromUtf8(name).size() <= kMostUnits &&
         HasTextKey(name);
}

/// The places of a column that comes after all others.
void PlaceLast(ColumnLayout& column, const TableLayout& table) {
  column.Number = table.ColumnsEver;
  column.VariablePlace = table.VariableColumns;
  for (const ColumnLayout& other : table.Columns) {
    if (column.IsFixed() && other.IsFixed() && other.Kind != ColumnKind::YesNo) {
      const std::size_t length = FixedLength(other.Kind);
      const std::size_t end = other.FixedOffset + (length == 0 ? other.Length : length);
      column.FixedOffset = std::max(column.FixedOffset, static_cast<std::uint16_t>(end));
    }
  }
}

/// What a new column holds in a row: its default, or what it copies.
Value ValueInRow(const ColumnDefinition& column, const TableLayout& table,
                 const std::vector<Value>& row) {
  if (column.Copied &&
      ToInteger(row[PlaceOfColumn(table, column.Copied->RowKey)]) == column.Copied->Row) {
    return row[PlaceOfColumn(table, column.Copied->From)];
  }
  return column.Default;
}

void FillColumn(PageChanges& pages, PageNumber definition, const ColumnLayout& layout,
                const ColumnDefinition& column) {
  TableWriter writer(pages, definition);
  const TableLayout& table = writer.Layout();
  const TableImage image(pages, definition);
  const std::size_t place = table.FindColumn(layout.Name);
  for (std::size_t i = 0; i < image.RowCount(); ++i) {
    const RowView view = image.View(i);
    RawRow row = RawColumns(view, table);
    row[place] =
        EncodeValue(ValueInRow(column, table, ReadValues(CellReader(pages), view, table)), layout);
    if (row[place] && layout.IsLong()) {
      row[place] = StoreLong(pages, table, layout, *row[place]);
    }
    writer.Update(HomeOf(image.Key(i)), row);
  }
}

void AddFirstRows(PageChanges& pages, PageNumber table, const std::vector<FieldValues>& rows) {
  for (const FieldValues& fields : rows) {
    TableWriter writer(pages, table);
    InsertRow(pages, writer, fields);
  }
}

}  // namespace

void CreateTable(PageChanges& pages, const TableDefinition& definition) {
  if (FindTable(ReadCatalogue(pages), definition.Name) != nullptr) {
    throw StoreProblem(Refusal::TableExists, definition.Name);
  }
  if (!IsTableName(definition.Name)) {
    throw FileProblem(
        Phrase::Tr("An Access file of this program cannot have a table of the name %1.",
                   definition.Name),
        Phrase::Tr("Use western letters, digits and signs like _ and - only, with no blank at "
                   "either end."));
  }
  TableLayout table;
  for (const ColumnDefinition& column : definition.Columns) {
    table.Columns.push_back(LayoutOf(column));
  }
  LayOut(table);
  AddIndexes(table, definition);
  table.Page = TakePage(pages);
  WriteTable(pages, table);
  EnterInCatalogue(pages, definition.Name, table.Page,
                   WithColumnProperties({}, definition.Columns));
  AddFirstRows(pages, table.Page, definition.FirstRows);
}

void AddColumn(PageChanges& pages, PageNumber definition, const ColumnDefinition& column) {
  const TableLayout table = ReadTableLayout(pages, definition);
  if (table.FindColumn(column.Name) != table.Columns.size()) {
    throw StoreProblem(Refusal::ColumnExists, column.Name);
  }
  if (table.ColumnsEver >= kMostColumns) {
    throw FileProblem(Phrase::Tr("The table has as many columns as an Access file allows."),
                      Phrase::Tr("Compact the database in Access."));
  }
  ColumnLayout layout = LayoutOf(column);
  PlaceLast(layout, table);
  if (layout.IsLong()) {
    MapMaker maps(pages);
    const RowPointer owned = maps.Make();
    const LongColumnMaps long_maps{layout.Number, owned, maps.Make()};
    AppendColumn(pages, table, layout, &long_maps);
  } else {
    AppendColumn(pages, table, layout, nullptr);
  }
  AddPropertiesToCatalogue(pages, definition, column);
  if (!IsNull(column.Default) || column.Copied) {
    FillColumn(pages, definition, layout, column);
  }
}

}  // namespace veyra::access
