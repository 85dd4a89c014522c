#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "data/access/read/table_layout.h"
#include "data/access/salvage/salvage_pages.h"

namespace veyra::access {

/// What the pages of a damaged file say of themselves, whatever the maps of the file say.
class PageSurvey {
 public:
  /// Reads every page.
  explicit PageSurvey(SalvagePages& pages);

  /// The data pages that name this page as the definition of their table.
  const std::vector<PageNumber>& PagesOf(PageNumber definition) const;

  /// All pages that are named so.
  std::vector<PageNumber> Owners() const;

  bool IsDefinition(PageNumber page) const { return definitions_.contains(page); }

  /// Pages that are empty or say nothing of themselves.
  const std::set<PageNumber>& Broken() const { return broken_; }

  /// Whether the file counts a page as free; false where that cannot be told.
  bool IsFree(PageNumber page) const { return free_ && free_->contains(page); }
  bool HasFreeMap() const { return free_.has_value(); }

 private:
  void Look(PageNumber number, SalvagePages& pages);

  std::map<PageNumber, std::vector<PageNumber>> owned_;
  std::set<PageNumber> definitions_;
  std::set<PageNumber> broken_;
  std::optional<std::set<PageNumber>> free_;
};

/// The pages of a map, those past the file's end too. Throws DamagedFile.
std::vector<PageNumber> ReadWholeMap(SalvagePages& pages, RowPointer map);

}  // namespace veyra::access
