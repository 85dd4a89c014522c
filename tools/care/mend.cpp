#include "tools/care/mend.h"

#include <algorithm>

namespace veyra {
namespace {

bool IsOfSameRow(const RowChange& one, const RowChange& other) {
  return one.What == RowChange::Kind::Set && other.What == RowChange::Kind::Set &&
         one.Table == other.Table && one.Before.Key == other.Before.Key;
}

}  // namespace

std::vector<RowChange> MendingOf(const Findings& findings) {
  std::vector<RowChange> changes;
  for (const Finding& finding : findings) {
    for (const RowChange& change : finding.Mending) {
      const auto same = std::find_if(changes.begin(), changes.end(), [&](const RowChange& other) {
        return IsOfSameRow(change, other);
      });
      if (same == changes.end()) {
        changes.push_back(change);
      } else {
        same->Fields.insert(same->Fields.end(), change.Fields.begin(), change.Fields.end());
      }
    }
  }
  return changes;
}

}  // namespace veyra
