#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "data/create_store.h"
#include "data/file_store.h"

namespace veyra {

/// Throws FileError when a database of that name is there already, or a journal that an earlier one
/// left, which would be taken for the new one's.
void RefuseIfThere(const std::filesystem::path& file);

/// Makes a file of that kind with these tables, not yet safe from a loss of power.
std::unique_ptr<FileStore> NewDatabase(const std::filesystem::path& file, FileKind kind,
                                       const std::vector<TableDefinition>& tables);

}  // namespace veyra
