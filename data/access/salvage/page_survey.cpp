#include "data/access/salvage/page_survey.h"

#include "data/access/read/usage_map.h"

namespace veyra::access {

namespace {

constexpr RowPointer kFreePages{1, 0};
constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 31U;

/// The file as if it were as long as one can be.
class LongestFile : public PageSource {
 public:
  explicit LongestFile(SalvagePages& pages) : pages_(pages) {}

  const FileHeader& Header() const override { return pages_.Header(); }
  PageNumber PageCount() const override {
    return static_cast<PageNumber>(kMostBytes / pages_.PageSize());
  }
  PagePtr ReadPage(PageNumber number) override { return pages_.ReadPage(number); }

 private:
  SalvagePages& pages_;
};

}  // namespace

PageSurvey::PageSurvey(SalvagePages& pages) {
  for (PageNumber number = 1; number < pages.PageCount(); ++number) {
    Look(number, pages);
  }
  try {
    const std::vector<PageNumber> free = ReadUsageMap(pages, kFreePages);
    free_.emplace(free.begin(), free.end());
  } catch (const DamagedFile&) {
    free_.reset();
  }
}

void PageSurvey::Look(PageNumber number, SalvagePages& pages) {
  try {
    const PagePtr page = pages.ReadPage(number);
    switch (static_cast<PageKind>(page->front())) {
      case PageKind::Data:
        owned_[ByteView(*page).U32(4)].push_back(number);
        return;
      case PageKind::TableDefinition:
        definitions_.insert(number);
        return;
      case PageKind::IndexNode:
      case PageKind::IndexLeaf:
      case PageKind::UsageMap:
        return;
    }
  } catch (const DamagedFile&) {
    // A page that the disk does not give.
  }
  broken_.insert(number);
}

const std::vector<PageNumber>& PageSurvey::PagesOf(PageNumber definition) const {
  static const std::vector<PageNumber> kNone;
  const auto found = owned_.find(definition);
  return found == owned_.end() ? kNone : found->second;
}

std::vector<PageNumber> PageSurvey::Owners() const {
  std::vector<PageNumber> owners;
  for (const auto& [owner, pages] : owned_) {
    owners.push_back(owner);
  }
  return owners;
}

std::vector<PageNumber> ReadWholeMap(SalvagePages& pages, RowPointer map) {
  LongestFile longest(pages);
  return ReadUsageMap(longest, map);
}

}  // namespace veyra::access
