#include "tests/data/access/read_everything.h"

#include "data/access/pages/page_changes.h"
#include "data/access/pages/page_file.h"
#include "data/access/read/snapshot.h"
#include "data/access/write/table_writer.h"

namespace veyra {

namespace {

constexpr access::RetryPolicy kNone{1, std::chrono::milliseconds(0)};

std::size_t ReadTable(access::PageFile& file, access::Snapshot& snapshot, const std::string& name) {
  std::size_t cells = 0;
  const auto image = snapshot.Table(name);
  const access::CellReader reader(file);
  for (std::size_t i = 0; i < image->RowCount(); ++i) {
    for (const access::ColumnLayout& column : image->Layout().Columns) {
      try {
        reader.Read(image->View(i), column);
        reader.ReadValue(image->View(i), column);
        ++cells;
      } catch (const access::FileProblem&) {
        continue;
      }
    }
  }
  for (std::size_t column = 0; column < image->Layout().Columns.size(); ++column) {
    if (image->IsNumeric(column)) {
      image->RowsEqual(column, 1);
    }
  }
  return cells;
}

void ChangeTable(access::PageFile& file, access::Snapshot& snapshot, const std::string& name) {
  access::CheckMayWrite(file.Header());
  access::PageChanges changes(file);
  access::TableWriter writer(changes, snapshot.DefinitionOf(name));
  access::CheckMayWrite(writer.Layout());
  access::RawRow row(writer.Layout().Columns.size());
  const access::RowPointer home = writer.Insert(row);
  writer.Update(home, row);
  const auto image = snapshot.Table(name);
  if (image->RowCount() > 0) {
    writer.Delete(access::HomeOf(image->Key(0)));
  }
  writer.RebuildIndexes();
}

template <typename Work>
void PassingOverRefusals(const Work& work) {
  try {
    work();
  } catch (const access::FileProblem&) {
    return;
  }
}

}  // namespace

std::size_t ReadEverything(const std::filesystem::path& path) {
  std::size_t cells = 0;
  PassingOverRefusals([&] {
    access::PageFile file(path, false);
    access::Snapshot snapshot(file, kNone);
    const std::vector<access::CatalogueEntry> tables = snapshot.Tables();
    for (const access::CatalogueEntry& table : tables) {
      PassingOverRefusals([&] { cells += ReadTable(file, snapshot, table.Name); });
      PassingOverRefusals([&] { ChangeTable(file, snapshot, table.Name); });
    }
  });
  return cells;
}

}  // namespace veyra
