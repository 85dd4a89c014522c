#pragma once

#include <string>
#include <vector>

namespace veyra {

/// What an editable drop-down box of names shows: a list to pick from, and a text that the operator
/// may type.
struct NameBox {
  std::vector<std::string> Items;
  std::string Text;

  bool operator==(const NameBox&) const = default;
};

}  // namespace veyra
