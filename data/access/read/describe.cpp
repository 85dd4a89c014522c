#include "data/access/read/describe.h"

#include "data/access/read/cell.h"

namespace veyra::access {

namespace {

/// What Access calls the kinds of column, and of which type their values are when they are read.
struct KindWords {
  const char* Name;
  ColumnType Type;
};

KindWords WordsFor(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::YesNo:
      return {"yes/no", ColumnType::WholeNumber};
    case ColumnKind::OneByte:
      return {"byte", ColumnType::WholeNumber};
    case ColumnKind::Short:
      return {"integer", ColumnType::WholeNumber};
    case ColumnKind::Long:
      return {"long", ColumnType::WholeNumber};
    case ColumnKind::Money:
      return {"currency", ColumnType::Text};
    case ColumnKind::Single:
      return {"single", ColumnType::Double};
    case ColumnKind::Double:
      return {"double", ColumnType::Double};
    case ColumnKind::DateTime:
      return {"date/time", ColumnType::Day};
    case ColumnKind::Binary:
      return {"binary", ColumnType::Text};
    case ColumnKind::Text:
      return {"text", ColumnType::Text};
    case ColumnKind::LongBinary:
      return {"OLE object", ColumnType::Text};
    case ColumnKind::Memo:
      return {"memo", ColumnType::Text};
    case ColumnKind::Guid:
      return {"GUID", ColumnType::Text};
    case ColumnKind::Decimal:
      return {"decimal", ColumnType::Text};
  }
  return {"", ColumnType::Text};
}

int SizeOf(const ColumnLayout& column, Format version) {
  if (column.Kind == ColumnKind::Text) {
    return version == Format::Jet3 ? column.Length : column.Length / 2;
  }
  const std::size_t fixed = FixedLength(column.Kind);
  return column.IsLong() ? 0 : static_cast<int>(fixed == 0 ? column.Length : fixed);
}

ColumnDescription DescribeColumn(const ColumnLayout& column, Format version) {
  const KindWords words = WordsFor(column.Kind);
  return {.Name = column.Name,
          .TypeName = words.Name,
          .Type = words.Type,
          .Size = SizeOf(column, version),
          .AutoNumber = column.IsAutoNumber(),
          .IsReadable = column.Kind != ColumnKind::LongBinary};
}

IndexDescription DescribeIndex(const IndexLayout& index, const TableLayout& layout) {
  IndexDescription description{.Name = index.Name, .IsUnique = index.IsUnique()};
  for (const IndexColumn& place : index.Columns) {
    const ColumnLayout* column = layout.ColumnByNumber(place.Number);
    description.Columns.push_back(column == nullptr ? std::string() : column->Name);
  }
  return description;
}

}  // namespace

StoreDescription DescribeFile(const FileHeader& header) {
  const bool is_old = header.Version == Format::Jet3;
  return {.Kind = FileKind::Access,
          .KindName = is_old ? "Access 97" : "Access 2000-2003",
          .Version = is_old ? "Jet 3" : "Jet 4",
          .CodePage = std::to_string(header.CodePage),
          .IsEncoded = header.IsEncoded(),
          .IsWritable = !is_old && !header.IsEncoded()};
}

TableDescription DescribeTable(const std::string& name, const TableLayout& layout, Format version) {
  TableDescription table{.Name = name, .RowCount = layout.RowCount};
  for (const ColumnLayout& column : layout.Columns) {
    table.Columns.push_back(DescribeColumn(column, version));
  }
  for (const IndexLayout& index : layout.Indexes) {
    table.Indexes.push_back(DescribeIndex(index, layout));
  }
  return table;
}

}  // namespace veyra::access
