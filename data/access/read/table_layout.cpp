#include "data/access/read/table_layout.h"

#include <algorithm>

#include "data/names.h"

namespace veyra::access {

namespace {

constexpr std::ptrdiff_t kPageHead = 8;
constexpr std::size_t kMostDefinitionBytes = 1U << 20U;
constexpr std::uint16_t kNoColumn = 0xFFFF;
constexpr std::size_t kMostColumns = 255;
constexpr std::size_t kIndexColumns = 10;

/// Where the parts of a definition lie in one version of the format.
struct Places {
  std::size_t Rows, AutoNumber, TableType, ColumnsEver, VariableColumns, Columns, IndexNames,
      Indexes, Owned, Free, FirstIndex, IndexCountSize, ColumnSize, ColumnNumber,
      ColumnVariablePlace, ColumnFlags, ColumnFixedOffset, ColumnLength, IndexSize, IndexColumns,
      IndexMap, IndexRoot, IndexFlags, IndexNameSize, IndexNameOf;
};

constexpr Places kJet3{12, 16, 20, 21, 23, 25, 27, 31, 35, 39, 43, 8, 18,
                       1,  3,  13, 14, 16, 39, 0,  30, 34, 38, 20, 4};
constexpr Places kJet4{16, 20, 40, 41, 43, 45, 47, 51, 55, 59, 63, 12, 25,
                       5,  7,  15, 21, 23, 52, 4,  34, 38, 46, 28, 8};

/// Reads a definition from its beginning to its end.
class Reader {
 public:
  Reader(ByteView bytes, const FileHeader& header)
      : bytes_(bytes),
        version_(header.Version),
        places_(version_ == Format::Jet3 ? kJet3 : kJet4),
        code_page_(header.CodePage) {}

  TableLayout Read(PageNumber page) {
    TableLayout table;
    table.Page = page;
    ReadCounts(table);
    ReadColumns(table);
    ReadIndexes(table);
    ReadIndexNames(table);
    ReadLongColumns(table);
    std::stable_sort(table.Columns.begin(), table.Columns.end(),
                     [](const auto& a, const auto& b) { return a.Number < b.Number; });
    return table;
  }

 private:
  void ReadCounts(TableLayout& table) {
    table.RowCount = bytes_.U32(places_.Rows);
    table.LastAutoNumber = bytes_.U32(places_.AutoNumber);
    table.IsSystem = bytes_.U8(places_.TableType) == 'S';
    table.ColumnsEver = bytes_.U16(places_.ColumnsEver);
    table.VariableColumns = bytes_.U16(places_.VariableColumns);
    column_count_ = bytes_.U16(places_.Columns);
    name_count_ = bytes_.U32(places_.IndexNames);
    index_count_ = bytes_.U32(places_.Indexes);
    table.Owned = PointerFrom(bytes_.U32(places_.Owned));
    table.Free = PointerFrom(bytes_.U32(places_.Free));
    if (column_count_ > kMostColumns || table.ColumnsEver < column_count_ ||
        index_count_ > bytes_.size() || name_count_ > bytes_.size()) {
      throw DamagedFile();
    }
    if (column_count_ == 0) {
      throw DamagedFile(Phrase::Tr("A table of the database has no columns: it is damaged."));
    }
    at_ = places_.FirstIndex + index_count_ * places_.IndexCountSize;
  }

  void ReadColumns(TableLayout& table) {
    for (std::size_t i = 0; i < column_count_; ++i) {
      table.Columns.push_back(ReadColumn(Take(places_.ColumnSize)));
    }
    for (ColumnLayout& column : table.Columns) {
      column.Name = TakeName();
    }
  }

  ColumnLayout ReadColumn(ByteView bytes) const {
    ColumnLayout column;
    column.Kind = static_cast<ColumnKind>(bytes.U8(0));
    column.Number = bytes.U16(places_.ColumnNumber);
    column.VariablePlace = bytes.U16(places_.ColumnVariablePlace);
    column.Flags = bytes.U8(places_.ColumnFlags);
    column.FixedOffset = bytes.U16(places_.ColumnFixedOffset);
    column.Length = bytes.U16(places_.ColumnLength);
    if (version_ == Format::Jet4) {
      column.Scale = bytes.U8(12);
      column.MayCompress = (bytes.U8(16) & 1U) != 0;
    }
    return column;
  }

  void ReadIndexes(TableLayout& table) {
    for (std::size_t i = 0; i < index_count_; ++i) {
      table.Indexes.push_back(ReadIndex(Take(places_.IndexSize)));
    }
  }

  IndexLayout ReadIndex(ByteView bytes) const {
    IndexLayout index;
    for (std::size_t i = 0; i < kIndexColumns; ++i) {
      const std::size_t at = places_.IndexColumns + i * 3;
      if (bytes.U16(at) != kNoColumn) {
        index.Columns.push_back({bytes.U16(at), bytes.U8(at + 2) != 1});
      }
    }
    index.Pages = PointerFrom(bytes.U32(places_.IndexMap));
    index.Root = bytes.U32(places_.IndexRoot);
    index.Flags = bytes.U8(places_.IndexFlags);
    return index;
  }

  void ReadIndexNames(TableLayout& table) {
    std::vector<std::size_t> named;
    for (std::size_t i = 0; i < name_count_; ++i) {
      named.push_back(Take(places_.IndexNameSize).U32(places_.IndexNameOf));
    }
    for (const std::size_t index : named) {
      std::string name = TakeName();
      if (index < table.Indexes.size() && table.Indexes[index].Name.empty()) {
        table.Indexes[index].Name = std::move(name);
      }
    }
  }

  void ReadLongColumns(TableLayout& table) {
    while (at_ + 10 <= bytes_.size() && bytes_.U16(at_) != kNoColumn) {
      const ByteView maps = Take(10);
      table.LongColumns.push_back(
          {maps.U16(0), PointerFrom(maps.U32(2)), PointerFrom(maps.U32(6))});
    }
  }

  ByteView Take(std::size_t size) {
    const ByteView taken = bytes_.Slice(at_, size);
    at_ += size;
    return taken;
  }

  std::string TakeName() {
    if (version_ == Format::Jet3) {
      const std::size_t length = Take(1).U8(0);
      return code_page_.ToUtf8(Take(length));
    }
    const std::size_t length = Take(2).U16(0);
    return Utf8FromUtf16(Take(length));
  }

  ByteView bytes_;
  Format version_;
  const Places& places_;
  CodePage code_page_;
  std::size_t at_ = 0;
  std::size_t column_count_ = 0;
  std::size_t name_count_ = 0;
  std::size_t index_count_ = 0;
};

}  // namespace

std::size_t TableLayout::FindColumn(std::string_view name) const {
  const auto found = std::find_if(Columns.begin(), Columns.end(), [&](const ColumnLayout& column) {
    return SameName(column.Name, name);
  });
  return static_cast<std::size_t>(found - Columns.begin());
}

const ColumnLayout* TableLayout::ColumnByNumber(std::uint16_t number) const {
  const auto found = std::find_if(Columns.begin(), Columns.end(), [&](const ColumnLayout& column) {
    return column.Number == number;
  });
  return found == Columns.end() ? nullptr : &*found;
}

std::vector<PageNumber> DefinitionPages(PageSource& file, PageNumber first_page) {
  std::vector<PageNumber> pages;
  for (PageNumber page = first_page; page != 0;) {
    pages.push_back(page);
    if (pages.size() * file.PageSize() > kMostDefinitionBytes) {
      throw DamagedFile();
    }
    page = ByteView(*file.ReadPage(page, PageKind::TableDefinition)).U32(4);
  }
  return pages;
}

Bytes ReadDefinition(PageSource& file, PageNumber first_page) {
  Bytes bytes;
  for (const PageNumber number : DefinitionPages(file, first_page)) {
    const PagePtr page = file.ReadPage(number, PageKind::TableDefinition);
    bytes.insert(bytes.end(), page->begin() + (bytes.empty() ? 0 : kPageHead), page->end());
  }
  const std::size_t length = ByteView(bytes).U32(8);
  if (length > bytes.size()) {
    throw DamagedFile();
  }
  bytes.resize(length);
  return bytes;
}

TableLayout ReadTableLayout(PageSource& file, PageNumber first_page) {
  const Bytes bytes = ReadDefinition(file, first_page);
  return Reader(bytes, file.Header()).Read(first_page);
}

}  // namespace veyra::access
