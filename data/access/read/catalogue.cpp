#include "data/access/read/catalogue.h"

#include <algorithm>
#include <array>

#include "data/access/read/cell.h"
#include "data/access/read/table_image.h"
#include "data/names.h"

namespace veyra::access {

namespace {

constexpr std::int64_t kTypeTable = 1;
constexpr std::uint32_t kNotTheUsers = 0x80000002;  // the system's own, or hidden
constexpr std::uint32_t kPageOfId = 0xFFFFFF;

/// The columns of MSysObjects that are read here.
struct Columns {
  explicit Columns(const TableLayout& layout)
      : Id(Find(layout, "Id")),
        Name(Find(layout, "Name")),
        Type(Find(layout, "Type")),
        Flags(Find(layout, "Flags")) {}

  static const ColumnLayout& Find(const TableLayout& layout, std::string_view name) {
    const std::size_t place = layout.FindColumn(name);
    if (place == layout.Columns.size()) {
      throw DamagedFile(Phrase::Tr("The database has no list of its tables: it is damaged."));
    }
    return layout.Columns[place];
  }

  const ColumnLayout& Id;
  const ColumnLayout& Name;
  const ColumnLayout& Type;
  const ColumnLayout& Flags;
};

std::int64_t Number(const CellReader& reader, const RowView& row, const ColumnLayout& column) {
  const Cell cell = reader.Read(row, column);
  const auto* number = std::get_if<std::int64_t>(&cell);
  return number == nullptr ? 0 : *number;
}

/// The tables that have none of those flags.
std::vector<CatalogueEntry> ReadTables(PageSource& file, std::uint32_t left_out) {
  const TableImage objects(file, kCataloguePage);
  const Columns columns(objects.Layout());
  const CellReader reader(file);
  std::vector<CatalogueEntry> catalogue;
  for (std::size_t i = 0; i < objects.RowCount(); ++i) {
    const RowView row = objects.View(i);
    const auto flags = static_cast<std::uint32_t>(Number(reader, row, columns.Flags));
    if (Number(reader, row, columns.Type) != kTypeTable || (flags & left_out) != 0) {
      continue;
    }
    const Cell name = reader.Read(row, columns.Name);
    if (const auto* text = std::get_if<std::string>(&name)) {
      const auto id = static_cast<std::uint32_t>(Number(reader, row, columns.Id));
      catalogue.push_back({*text, id & kPageOfId});
    }
  }
  return catalogue;
}

}  // namespace

std::vector<CatalogueEntry> ReadCatalogue(PageSource& file) {
  return ReadTables(file, kNotTheUsers);
}

int CountOtherObjects(PageSource& file) {
  constexpr std::array<std::int64_t, 8> kTypes = {4, 5, 6, 8, -32761, -32764, -32766, -32768};
  const TableImage objects(file, kCataloguePage);
  const Columns columns(objects.Layout());
  const CellReader reader(file);
  int count = 0;
  for (std::size_t i = 0; i < objects.RowCount(); ++i) {
    const std::int64_t type = Number(reader, objects.View(i), columns.Type);
    count += std::find(kTypes.begin(), kTypes.end(), type) == kTypes.end() ? 0 : 1;
  }
  return count;
}

std::vector<CatalogueEntry> ReadAllTables(PageSource& file) {
  return ReadTables(file, 0);
}

const CatalogueEntry* FindTable(const std::vector<CatalogueEntry>& catalogue,
                                std::string_view name) {
  const auto found = std::find_if(catalogue.begin(), catalogue.end(),
                                  [&](const auto& entry) { return SameName(entry.Name, name); });
  return found == catalogue.end() ? nullptr : &*found;
}

}  // namespace veyra::access
