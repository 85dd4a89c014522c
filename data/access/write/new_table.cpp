#include "data/access/write/new_table.h"

#include <algorithm>

#include "data/access/format/data_page.h"
#include "data/access/format/index_page.h"
#include "data/access/read/cell.h"
#include "data/access/write/definition_writer.h"
#include "data/access/write/usage_map_writer.h"

namespace veyra::access {

namespace {

constexpr int kMostTextSize = 255;

void MakeRoot(PageChanges& pages, PageNumber table, IndexLayout& index) {
  index.Root = TakePage(pages);
  IndexPage root;
  root.Owner = table;
  pages.Edit(index.Root) = EncodeIndexPage(root);
  AddToMap(pages, index.Pages, index.Root);
}

}  // namespace

MapMaker::MapMaker(PageChanges& pages) : pages_(pages), page_(TakePage(pages)) {
  pages_.Edit(page_) = EmptyDataPage(0);
}

RowPointer MapMaker::Make() {
  Bytes& page = pages_.Edit(page_);
  if (!HasRoomFor(page, kUsageMapBytes)) {
    throw FileProblem(Phrase::Tr("The table has too many columns and indexes for an Access file."),
                      "");
  }
  return {page_, AddRow(page, Bytes(kUsageMapBytes))};
}

ColumnLayout LayoutOf(const ColumnDefinition& column) {
  ColumnLayout layout;
  layout.Name = column.Name;
  layout.Flags = kColumnFixed | kColumnNullable;
  switch (column.Type) {
    case ColumnType::WholeNumber:
      layout.Kind = ColumnKind::Long;
      break;
    case ColumnType::Double:
      layout.Kind = ColumnKind::Double;
      break;
    case ColumnType::Day:
      layout.Kind = ColumnKind::DateTime;
      break;
    case ColumnType::Text:
      layout.Kind = column.Size == 0 ? ColumnKind::Memo : ColumnKind::Text;
      layout.Flags = kColumnNullable;
      layout.MayCompress = true;
      break;
  }
  layout.Length = layout.Kind == ColumnKind::Text
                      ? static_cast<std::uint16_t>(2 * std::clamp(column.Size, 1, kMostTextSize))
                      : static_cast<std::uint16_t>(FixedLength(layout.Kind));
  if (column.AutoIncrement) {
    layout.Flags |= kColumnAutoNumber;
  }
  return layout;
}

void WriteTable(PageChanges& pages, TableLayout& table) {
  MapMaker maps(pages);
  table.Owned = maps.Make();
  table.Free = maps.Make();
  for (IndexLayout& index : table.Indexes) {
    index.Pages = maps.Make();
    MakeRoot(pages, table.Page, index);
  }
  for (const ColumnLayout& column : table.Columns) {
    if (column.IsLong()) {
      const RowPointer owned = maps.Make();
      table.LongColumns.push_back({column.Number, owned, maps.Make()});
    }
  }
  WriteDefinition(pages, table.Page, EncodeDefinition(table));
}

}  // namespace veyra::access
