#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace veyra {

/// A line of a help file's contents.
struct ContentsEntry {
  int Level = 0;  ///< How deep it stands; 0 at the outside.
  std::string Title;
  std::string Page;  ///< The page it leads to, as written there; empty for a mere heading.

  bool operator==(const ContentsEntry&) const = default;
};

/// The deepest level of an entry; deeper ones are raised to it.
inline constexpr int kDeepestLevel = 15;

/// The entries of a contents file (.hhc, as UTF-8), in reading order: nested lists of
/// <OBJECT type="text/sitemap"> with the parameters "Name" and "Local". Entries without a name are
/// left out.
std::vector<ContentsEntry> ParseContents(std::string_view hhc);

}  // namespace veyra
