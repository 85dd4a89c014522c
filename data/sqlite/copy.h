#pragma once

#include <string>

#include "data/sqlite/database.h"

namespace veyra::sqlite {

/// What Store::CopyTo does.
void CopyDatabase(Database& source, const std::string& new_file);

}  // namespace veyra::sqlite
