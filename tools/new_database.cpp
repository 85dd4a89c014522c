#include "tools/new_database.h"

#include <system_error>

#include "data/errors.h"
#include "data/open_file_store.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr int kLongestAccessText = 255;

/// In an Access file a text without limit is a memo, which other programs list and sort poorly.
TableDefinition AsUsualIn(FileKind kind, TableDefinition table) {
  for (ColumnDefinition& column : table.Columns) {
    const bool is_memo = column.Type == ColumnType::Text && column.Size == 0;
    if (kind == FileKind::Access && is_memo) {
      column.Size = kLongestAccessText;
    }
  }
  return table;
}

}  // namespace

void RefuseIfThere(const fs::path& file) {
  for (const char* companion : {"", "-wal", "-shm", "-journal"}) {
    const fs::path name = file.string() + companion;
    std::error_code unreachable;
    if (fs::exists(fs::symlink_status(name, unreachable))) {
      throw FileError({name.string(), Phrase::Tr("This file is there already; nothing was made."),
                       Phrase::Tr("Choose another folder, or move the file away first.")});
    }
  }
}

std::unique_ptr<FileStore> NewDatabase(const fs::path& file, FileKind kind,
                                       const std::vector<TableDefinition>& tables) {
  auto store = CreateFileStore(file.string(), Durability::WhenAsked, kind);
  for (const TableDefinition& table : tables) {
    store->CreateTable(AsUsualIn(kind, table));
  }
  return store;
}

}  // namespace veyra
