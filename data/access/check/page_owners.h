#pragma once

#include <utility>
#include <vector>

#include "data/access/pages/page_source.h"
#include "data/phrase.h"

namespace veyra::access {

/// Who has each page of a file, while the file is gone through; and what is wrong with it.
class Findings {
 public:
  explicit Findings(PageNumber page_count) : owners_(page_count) {}

  /// Notes something wrong, in a sentence.
  void Add(Phrase fault) { faults_.push_back(std::move(fault)); }

  /// Notes that a page belongs to `owner`, "the table Reserv": what can stand after "belongs to". A
  /// page that is not in the file or belongs to another already is something wrong.
  void Claim(PageNumber page, const Phrase& owner);

  /// The same of a page that several owners share.
  void ClaimShared(PageNumber page);

  bool IsClaimed(PageNumber page) const { return !owners_.at(page).IsEmpty(); }
  const Phrase& OwnerOf(PageNumber page) const { return owners_.at(page); }
  const std::vector<Phrase>& Faults() const { return faults_; }

 private:
  std::vector<Phrase> owners_;
  std::vector<Phrase> faults_;
};

}  // namespace veyra::access
