#pragma once

#include <string>
#include <vector>

namespace veyra {

/// What an editable drop-down box of names shows: a list to pick from, and a text that the operator
/// may type.
struct NameBox {
  std::vector<std::string> Items;
  std::string Text;
  std::vector<std::string> Used = {};  ///< The names used last, the last one first: offered before
                                       ///< others while one is typed.

  bool operator==(const NameBox&) const = default;
};

}  // namespace veyra
