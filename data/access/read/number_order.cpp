#include "data/access/read/number_order.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace veyra::access {

namespace {

using Entries = std::vector<NumberOrder::Entry>;

/// Those of `some` that are not among `others`; both rising.
Entries Without(const Entries& some, const Entries& others) {
  Entries left;
  std::set_difference(some.begin(), some.end(), others.begin(), others.end(),
                      std::back_inserter(left));
  return left;
}

}  // namespace

NumberOrder::NumberOrder(Entries entries) : entries_(std::move(entries)) {
  std::sort(entries_.begin(), entries_.end());
}

std::vector<RowKey> NumberOrder::RowsOf(double number) const {
  std::vector<RowKey> rows;
  const Entry first(number, std::numeric_limits<RowKey>::min());
  for (auto entry = std::lower_bound(entries_.begin(), entries_.end(), first);
       entry != entries_.end() && entry->first == number; ++entry) {
    rows.push_back(entry->second);
  }
  return rows;
}

void NumberOrder::Replace(Entries gone, Entries come) {
  std::sort(gone.begin(), gone.end());
  std::sort(come.begin(), come.end());
  for (const Entry& entry : Without(gone, come)) {
    entries_.erase(std::lower_bound(entries_.begin(), entries_.end(), entry));
  }
  for (const Entry& entry : Without(come, gone)) {
    entries_.insert(std::lower_bound(entries_.begin(), entries_.end(), entry), entry);
  }
}

}  // namespace veyra::access
