#include "data/access/pages/page_changes.h"

namespace veyra::access {

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
