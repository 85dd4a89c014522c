#pragma once

#include <string>
#include <vector>

#include "data/access/pages/page_source.h"

namespace veyra::access {

/// Who has each page of a file, while the file is gone through; and what is wrong with it.
class Findings {
 public:
  explicit Findings(PageNumber page_count) : owners_(page_count) {}

  /// Notes something wrong, in a sentence.
  void Add(const std::string& fault) { faults_.push_back(fault); }

  /// Notes that a page belongs to `owner`, "the table Reserv". A page that is not in the file or
  /// belongs to another already is something wrong.
  void Claim(PageNumber page, const std::string& owner);

  /// The same of a page that several owners share.
  void ClaimShared(PageNumber page);

  bool IsClaimed(PageNumber page) const { return !owners_.at(page).empty(); }
  const std::string& OwnerOf(PageNumber page) const { return owners_.at(page); }
  const std::vector<std::string>& Faults() const { return faults_; }

 private:
  std::vector<std::string> owners_;
  std::vector<std::string> faults_;
};

}  // namespace veyra::access
