#include "data/names.h"

#include "data/ascii.h"

namespace veyra {

bool SameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) {
    return false;
  }
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (ascii::Lower(a[i]) != ascii::Lower(b[i])) {
      return false;
    }
  }
  return true;
}

std::optional<std::size_t> FindName(const std::vector<std::string>& names, std::string_view name) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (SameName(names[i], name)) {
      return i;
    }
  }
  return std::nullopt;
}

}  // namespace veyra
