#pragma once

#include <string>
#include <vector>

#include "data/query.h"

namespace veyra {

/// A comparison as every dialect of SQL writes it, with a blank on each side.
const char* TestText(Relation test);

/// "a, b, c"
std::string CommaList(const std::vector<std::string>& items);

}  // namespace veyra
