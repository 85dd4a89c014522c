#include "tools/care/prune_journal.h"

#include <string>
#include <vector>

#include "data/journal.h"
#include "data/names.h"

namespace veyra {
namespace {

/// So many at a time, so that a desk that wants to book waits for none of them long.
constexpr std::size_t kAtOnce = 2'000;

std::unique_ptr<RowSource> Entries(Store& store, const std::string& rest) {
  return store.Select(ParseQuery(std::string("SELECT * FROM ") + kJournalTable + rest));
}

std::vector<RowChange> RemovalsBefore(Store& store, Date day) {
  std::vector<RowChange> removals;
  const auto rows = Entries(store, " WHERE ChangedAt < '" + IsoText(day) + "' ORDER BY ID");
  for (Row row; removals.size() < kAtOnce && rows->Next(row);) {
    removals.push_back(
        {.What = RowChange::Kind::Remove, .Table = kJournalTable, .Before = std::move(row)});
  }
  return removals;
}

}  // namespace

bool HasEntriesBefore(Store& store, Date day) {
  if (!FindName(store.TableNames(), kJournalTable)) {
    return false;
  }
  const auto place = FindName(store.ColumnNames(kJournalTable), "ChangedAt");
  const auto first = Entries(store, " ORDER BY ID");
  Row row;
  return place && first->Next(row) && ToText(row.Values[*place]) < IsoText(day);
}

std::size_t PruneJournal(FileStore& store, Date day) {
  std::size_t removed = 0;
  while (HasEntriesBefore(store, day)) {
    const std::vector<RowChange> removals = RemovalsBefore(store, day);
    store.ChangeAll(removals, {});
    removed += removals.size();
  }
  return removed;
}

}  // namespace veyra
