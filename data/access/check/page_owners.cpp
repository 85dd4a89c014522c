#include "data/access/check/page_owners.h"

namespace veyra::access {

namespace {

Phrase Maps() {
  return Phrase::Tr("the usage maps");
}

}  // namespace

void Findings::Claim(PageNumber page, const Phrase& owner) {
  if (page >= owners_.size()) {
    Add(Phrase::Tr("Page %1 of %2 is not in the file.", page, owner));
  } else if (IsClaimed(page)) {
    Add(Phrase::Tr("Page %1 belongs to %2 and to %3.", page, owner, owners_[page]));
  } else {
    owners_[page] = owner;
  }
}

void Findings::ClaimShared(PageNumber page) {
  if (page >= owners_.size() || owners_[page] != Maps()) {
    Claim(page, Maps());
  }
}

}  // namespace veyra::access
