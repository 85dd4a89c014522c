#include "data/access/write/definition_writer.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "data/access/read/cell.h"
#include "data/access/write/row_writer.h"
#include "data/access/write/usage_map_writer.h"

namespace veyra::access {

namespace {

constexpr std::uint32_t kVersionMark = 1625;  // stands in each part that Access writes
constexpr std::uint32_t kIndexMark = 1923;
constexpr std::uint16_t kGeneralOrder = 1033;  // the sort order of all texts
constexpr std::size_t kPageHead = 8;
constexpr std::size_t kLengthAt = 8;
constexpr std::size_t kColumnsEverAt = 41;
constexpr std::size_t kVariableAt = 43;
constexpr std::size_t kColumnsAt = 45;
constexpr std::size_t kIndexesAt = 51;
constexpr std::size_t kHeadBytes = 63;
constexpr std::size_t kIndexCountBytes = 12;
constexpr std::size_t kColumnBytes = 25;
constexpr std::size_t kIndexColumns = 10;
constexpr std::uint16_t kNone = 0xFFFF;
constexpr std::uint8_t kIndexAlways = 0x80;
constexpr std::uint8_t kIndexRequired = 0x08;

void AppendName(Bytes& bytes, const std::string& name) {
  const Bytes text = EncodeText(name, false);
  Append(bytes, static_cast<std::uint16_t>(text.size()));
  bytes.insert(bytes.end(), text.begin(), text.end());
}

bool HasOrder(ColumnKind kind) {
  return kind == ColumnKind::Text || kind == ColumnKind::Memo;
}

Bytes EncodeColumn(const ColumnLayout& column) {
  Bytes bytes(kColumnBytes);
  bytes[0] = static_cast<Byte>(column.Kind);
  Put(bytes, 1, kVersionMark);
  Put(bytes, 5, column.Number);
  Put(bytes, 7, column.VariablePlace);
  Put(bytes, 9, column.Number);
  if (HasOrder(column.Kind)) {
    Put(bytes, 11, kGeneralOrder);
  }
  bytes[15] = column.Flags;
  bytes[16] = column.MayCompress ? 1 : 0;
  Put(bytes, 21, column.FixedOffset);
  Put(bytes, 23, column.Length);
  return bytes;
}

Bytes EncodeIndex(const IndexLayout& index) {
  Bytes bytes;
  Append(bytes, kIndexMark);
  for (std::size_t i = 0; i < kIndexColumns; ++i) {
    const bool used = i < index.Columns.size();
    Append(bytes, used ? index.Columns[i].Number : kNone);
    bytes.push_back(!used ? 0 : index.Columns[i].Descending ? 2 : 1);
  }
  Append(bytes, PointerNumber(index.Pages));
  Append(bytes, index.Root);
  Append(bytes, std::uint32_t{0});
  const bool primary = index.Name == kPrimaryKey;
  bytes.push_back(static_cast<Byte>(index.Flags | kIndexAlways | (primary ? kIndexRequired : 0)));
  bytes.resize(52);
  return bytes;
}

Bytes EncodeIndexName(std::uint32_t number, const IndexLayout& index, bool is_system) {
  Bytes bytes;
  Append(bytes, kVersionMark);
  Append(bytes, number);
  Append(bytes, number);
  bytes.push_back(0);
  Append(bytes, std::int32_t{-1});
  Append(bytes, std::uint32_t{0});
  bytes.push_back(is_system ? 4 : 0);
  bytes.push_back(is_system ? 4 : 0);
  bytes.push_back(index.Name == kPrimaryKey ? 1 : 0);
  Append(bytes, std::uint32_t{0});
  return bytes;
}

void AppendAll(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

Bytes EncodeHead(const TableLayout& table) {
  Bytes bytes(kHeadBytes);
  bytes[0] = static_cast<Byte>(PageKind::TableDefinition);
  bytes[1] = 1;
  Put(bytes, 12, kVersionMark);
  Put(bytes, 16, table.RowCount);
  Put(bytes, 20, table.LastAutoNumber);
  bytes[24] = 1;
  bytes[40] = table.IsSystem ? 'S' : 'N';
  Put(bytes, kColumnsEverAt, table.ColumnsEver);
  Put(bytes, kVariableAt, table.VariableColumns);
  Put(bytes, kColumnsAt, static_cast<std::uint16_t>(table.Columns.size()));
  Put(bytes, 47, static_cast<std::uint32_t>(table.Indexes.size()));
  Put(bytes, kIndexesAt, static_cast<std::uint32_t>(table.Indexes.size()));
  Put(bytes, 55, PointerNumber(table.Owned));
  Put(bytes, 59, PointerNumber(table.Free));
  return bytes;
}

/// The indexes by name, which is the order in which their names are listed.
std::vector<std::uint32_t> IndexesByName(const TableLayout& table) {
  std::vector<std::uint32_t> order(table.Indexes.size());
  std::iota(order.begin(), order.end(), 0);
  std::sort(order.begin(), order.end(), [&](std::uint32_t one, std::uint32_t other) {
    return table.Indexes[one].Name < table.Indexes[other].Name;
  });
  return order;
}

void AppendIndexes(Bytes& bytes, const TableLayout& table) {
  for (const IndexLayout& index : table.Indexes) {
    AppendAll(bytes, EncodeIndex(index));
  }
  const std::vector<std::uint32_t> order = IndexesByName(table);
  for (const std::uint32_t number : order) {
    AppendAll(bytes, EncodeIndexName(number, table.Indexes[number], table.IsSystem));
  }
  for (const std::uint32_t number : order) {
    AppendName(bytes, table.Indexes[number].Name);
  }
}

Bytes EncodeMaps(const LongColumnMaps& maps) {
  Bytes bytes;
  Append(bytes, maps.Number);
  Append(bytes, PointerNumber(maps.Owned));
  Append(bytes, PointerNumber(maps.Free));
  return bytes;
}

/// Inserts bytes at a place that may lie up to the end.
void Insert(Bytes& bytes, std::size_t at, const Bytes& more) {
  if (at > bytes.size()) {
    throw DamagedFile();
  }
  bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(at), more.begin(), more.end());
}

/// Where the names of the columns end.
std::size_t EndOfNames(ByteView definition, std::size_t at, std::size_t columns) {
  for (std::size_t i = 0; i < columns; ++i) {
    at += std::size_t{2} + definition.U16(at);
  }
  return at;
}

}  // namespace

void LayOut(TableLayout& table) {
  std::uint16_t number = 0;
  std::uint16_t fixed = 0;
  std::uint16_t variable = 0;
  for (ColumnLayout& column : table.Columns) {
    column.Number = number++;
    column.VariablePlace = variable;
    column.FixedOffset = 0;
    if (column.Kind == ColumnKind::YesNo) {
      continue;
    }
    if (column.IsFixed()) {
      column.FixedOffset = fixed;
      fixed = static_cast<std::uint16_t>(fixed + column.Length);
    } else {
      ++variable;
    }
  }
  table.ColumnsEver = number;
  table.VariableColumns = variable;
}

Bytes EncodeDefinition(const TableLayout& table) {
  Bytes bytes = EncodeHead(table);
  bytes.resize(bytes.size() + table.Indexes.size() * kIndexCountBytes);
  for (const ColumnLayout& column : table.Columns) {
    AppendAll(bytes, EncodeColumn(column));
  }
  for (const ColumnLayout& column : table.Columns) {
    AppendName(bytes, column.Name);
  }
  AppendIndexes(bytes, table);
  for (const LongColumnMaps& maps : table.LongColumns) {
    AppendAll(bytes, EncodeMaps(maps));
  }
  Append(bytes, kNone);
  return bytes;
}

void WriteDefinition(PageChanges& pages, PageNumber first_page, Bytes definition) {
  Put(definition, kLengthAt, static_cast<std::uint32_t>(definition.size()));
  std::vector<PageNumber> numbers{first_page};
  if (pages.ReadPage(first_page)->front() == static_cast<Byte>(PageKind::TableDefinition)) {
    numbers = DefinitionPages(pages, first_page);
  }
  const std::size_t each = pages.PageSize() - kPageHead;
  const std::size_t body = definition.size() - kPageHead;
  while (numbers.size() * each < body) {
    numbers.push_back(TakePage(pages));
  }
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const std::size_t begin = kPageHead + std::min(i * each, body);
    const std::size_t length = std::min(each, definition.size() - begin);
    Bytes& page = pages.Edit(numbers[i]);
    page.assign(pages.PageSize(), 0);
    page[0] = static_cast<Byte>(PageKind::TableDefinition);
    page[1] = 1;
    Put(page, 2, static_cast<std::uint16_t>(each - length));
    Put(page, 4, i + 1 < numbers.size() ? numbers[i + 1] : PageNumber{0});
    std::copy_n(definition.begin() + static_cast<std::ptrdiff_t>(begin), length,
                page.begin() + kPageHead);
  }
}

void AppendColumn(PageChanges& pages, const TableLayout& table, const ColumnLayout& column,
                  const LongColumnMaps* maps) {
  Bytes definition = ReadDefinition(pages, table.Page);
  const ByteView view(definition);
  const std::size_t count = view.U16(kColumnsAt);
  const std::size_t columns_at = kHeadBytes + view.U32(kIndexesAt) * kIndexCountBytes;
  const std::size_t names_at = columns_at + count * kColumnBytes;
  const std::size_t names_end = EndOfNames(view, names_at, count);
  if (maps != nullptr) {
    if (definition.size() < 2 || view.U16(definition.size() - 2) != kNone) {
      throw DamagedFile();
    }
    Insert(definition, definition.size() - 2, EncodeMaps(*maps));
  }
  Bytes name;
  AppendName(name, column.Name);
  Insert(definition, names_end, name);
  Insert(definition, names_at, EncodeColumn(column));
  const bool is_variable = !column.IsFixed();
  Put(definition, kColumnsAt, static_cast<std::uint16_t>(count + 1));
  Put(definition, kColumnsEverAt, static_cast<std::uint16_t>(table.ColumnsEver + 1));
  Put(definition, kVariableAt,
      static_cast<std::uint16_t>(table.VariableColumns + (is_variable ? 1 : 0)));
  WriteDefinition(pages, table.Page, std::move(definition));
}

}  // namespace veyra::access
