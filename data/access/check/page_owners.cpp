#include "data/access/check/page_owners.h"

namespace veyra::access {

namespace {

constexpr const char* kMaps = "the usage maps";

std::string PageName(PageNumber page) {
  return "Page " + std::to_string(page);
}

}  // namespace

void Findings::Claim(PageNumber page, const std::string& owner) {
  if (page >= owners_.size()) {
    Add(PageName(page) + " of " + owner + " is not in the file.");
  } else if (IsClaimed(page)) {
    Add(PageName(page) + " belongs to " + owner + " and to " + owners_[page] + ".");
  } else {
    owners_[page] = owner;
  }
}

void Findings::ClaimShared(PageNumber page) {
  if (page >= owners_.size() || owners_[page] != kMaps) {
    Claim(page, kMaps);
  }
}

}  // namespace veyra::access
