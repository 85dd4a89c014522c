#include "data/access/pages/page_changes.h"

namespace veyra::access {

namespace {

constexpr std::uint64_t kTwoGigabytes = std::uint64_t{1} << 31U;

}  // namespace

PagePtr PageChanges::ReadPage(PageNumber number) {
  const auto changed = changed_.find(number);
  return changed != changed_.end() ? changed->second : base_.ReadPage(number);
}

Bytes& PageChanges::Edit(PageNumber number) {
  auto changed = changed_.find(number);
  if (changed == changed_.end()) {
    auto copy = std::make_shared<Bytes>(*base_.ReadPage(number));
    changed = changed_.emplace(number, std::move(copy)).first;
  }
  return *changed->second;
}

PageNumber PageChanges::Grow() {
  if ((std::uint64_t{count_} + 2) * PageSize() > kTwoGigabytes) {
    throw FileProblem(
        Phrase::Tr("The database has grown to 2 GB, the largest size of an Access file."),
        Phrase::Tr("Make room in it with veyra-data compact, or convert it to the other kind of "
                   "file with veyra-data convert."));
  }
  const PageNumber number = count_++;
  changed_[number] = std::make_shared<Bytes>(PageSize());
  return number;
}

PageImages PageChanges::Images() const {
  PageImages images;
  for (const auto& [number, page] : changed_) {
    images.emplace(number, *page);
  }
  return images;
}

}  // namespace veyra::access
