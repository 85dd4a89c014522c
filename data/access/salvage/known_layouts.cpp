#include "data/access/salvage/known_layouts.h"

#include <algorithm>

#include "data/access/pages/page_file.h"
#include "data/access/read/catalogue.h"
#include "data/names.h"

namespace veyra::access {

Layouts ReadModels(const std::string& file_name) {
  PageFile file(file_name, false);
  Layouts layouts{{kCatalogueName, ReadTableLayout(file, kCataloguePage)}};
  for (const CatalogueEntry& table : ReadCatalogue(file)) {
    layouts.emplace_back(table.Name, ReadTableLayout(file, table.Definition));
  }
  return layouts;
}

const TableLayout* Find(const Layouts& layouts, const std::string& name) {
  const auto found = std::find_if(layouts.begin(), layouts.end(),
                                  [&](const auto& each) { return SameName(each.first, name); });
  return found == layouts.end() ? nullptr : &found->second;
}

std::vector<std::string> NamesOf(const TableLayout& layout) {
  std::vector<std::string> names;
  for (const ColumnLayout& column : layout.Columns) {
    names.push_back(column.Name);
  }
  return names;
}

bool HasAllColumns(const TableLayout& layout, const TableLayout& model) {
  return std::all_of(model.Columns.begin(), model.Columns.end(), [&](const ColumnLayout& column) {
    return layout.FindColumn(column.Name) < layout.Columns.size();
  });
}

}  // namespace veyra::access
