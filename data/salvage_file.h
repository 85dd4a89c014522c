#pragma once

#include <filesystem>

#include "data/salvage.h"

namespace veyra {

/// Reads every row that can still be read out of a file, page by page, whatever its other pages
/// hold; what cannot be read is in the list of losses. Only what the file says itself is taken for
/// a row: of a page that is damaged, at most the rows that are whole by their own numbers. Changes
/// that a broken-off program left in a log beside the file are read with it.
///
/// All rows are held in memory. The file is only read, and locks are not regarded: REQUIRES that
/// nobody writes to it. Throws DatabaseError when it cannot be opened or is not a database at all.
Salvage SalvageFile(const std::filesystem::path& name, const SalvageModels& models);

}  // namespace veyra
