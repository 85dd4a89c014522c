#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veyra {

/// Whether two names of tables or columns, or two key words, are the same but for ASCII letter
/// case.
bool SameName(std::string_view a, std::string_view b);

/// Where in `names` the name stands, or nothing.
std::optional<std::size_t> FindName(const std::vector<std::string>& names, std::string_view name);

}  // namespace veyra
