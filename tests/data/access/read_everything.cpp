#include "tests/data/access/read_everything.h"

#include "data/access/pages/page_changes.h"
#include "data/access/pages/page_file.h"
#include "data/access/read/snapshot.h"
#include "data/access/write/table_writer.h"

namespace veyra {

namespace {

constexpr mdb::Patience kNone{1, std::chrono::milliseconds(0)};

std::size_t ReadTable(mdb::PageFile& file, mdb::Snapshot& snapshot, const std::string& name) {
  std::size_t cells = 0;
  const auto image = snapshot.Table(name);
  const mdb::CellReader reader(file);
  for (std::size_t i = 0; i < image->RowCount(); ++i) {
    for (const mdb::ColumnLayout& column : image->Layout().Columns) {
      try {
        reader.Read(image->View(i), column);
        reader.ReadValue(image->View(i), column);
        ++cells;
      } catch (const mdb::FileProblem&) {
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

void ChangeTable(mdb::PageFile& file, mdb::Snapshot& snapshot, const std::string& name) {
  mdb::CheckMayWrite(file.Header());
  mdb::PageChanges changes(file);
  mdb::TableWriter writer(changes, snapshot.DefinitionOf(name));
  mdb::CheckMayWrite(writer.Layout());
  mdb::RawRow row(writer.Layout().Columns.size());
  const mdb::RowPointer home = writer.Insert(row);
  writer.Update(home, row);
  const auto image = snapshot.Table(name);
  if (image->RowCount() > 0) {
    writer.Delete(mdb::HomeOf(image->Key(0)));
  }
  writer.RebuildIndexes();
}

template <typename Work>
void PassingOverRefusals(const Work& work) {
  try {
    work();
  } catch (const mdb::FileProblem&) {
    return;
  }
}

}  // namespace

std::size_t ReadEverything(const std::filesystem::path& path) {
  std::size_t cells = 0;
  PassingOverRefusals([&] {
    mdb::PageFile file(path, false);
    mdb::Snapshot snapshot(file, kNone);
    const std::vector<mdb::CatalogueEntry> tables = snapshot.Tables();
    for (const mdb::CatalogueEntry& table : tables) {
      PassingOverRefusals([&] { cells += ReadTable(file, snapshot, table.Name); });
      PassingOverRefusals([&] { ChangeTable(file, snapshot, table.Name); });
    }
  });
  return cells;
}

}  // namespace veyra
