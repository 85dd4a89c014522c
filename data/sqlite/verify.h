#pragma once

#include <string>
#include <vector>

#include "data/sqlite/reader.h"

namespace veyra::sqlite {

/// What Store::Verify does.
std::vector<std::string> Verify(Reader& reader);

}  // namespace veyra::sqlite
