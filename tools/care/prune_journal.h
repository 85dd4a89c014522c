#pragma once

#include <cstddef>

#include "data/date.h"
#include "data/file_store.h"

namespace veyra {

/// How long the journal's entries are kept unless somebody says otherwise, in days.
inline constexpr int kJournalDays = 731;

/// Whether the journal's first entry is of a day before that one. Reads no other.
bool HasEntriesBefore(Store& store, Date day);

/// Removes the journal's entries of the days before that one; returns how many. Costs next to
/// nothing when there are none. Throws DatabaseError.
std::size_t PruneJournal(FileStore& store, Date day);

}  // namespace veyra
