#pragma once

#include <string>

#include "data/salvage.h"

namespace veyra::sqlite {

/// What veyra::SalvageFile does with a SQLite file. Throws PosixFileError.
Salvage SalvageSqliteFile(const std::string& file_name, const SalvageModels& models);

}  // namespace veyra::sqlite
