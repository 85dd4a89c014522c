#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "data/store.h"

namespace veyra::modRes {

/// What became of one row of Rooms, Reserv or Settings.
struct JournalledChange {
  std::string Table;
  std::optional<FieldValues> Before;  ///< The row as it was; nothing when it was added.
  std::optional<FieldValues> After;   ///< The row as it is then; nothing when it was deleted.
};

/// An entry of the journal.
struct JournalEntry {
  std::int64_t Number = 0;
  std::string Table;
  std::optional<std::string> OldValues;  ///< As in data/journal.h.
  std::optional<std::string> NewValues;
};

/// What one window or command did at a stroke, or one statement of another program.
struct JournalAction {
  std::int64_t Number = 0;  ///< That of its first entry.
  std::string At;           ///< When it began, UTC: "2026-03-05 09:30:12.345".
  std::string Name;         ///< "New series"; empty when it was given none.
  std::vector<JournalEntry> Entries;
};

/// The actions of the journal, the one that ended last in front; only entries numbered `from` or
/// higher. None when the file has no journal. Throws DatabaseError.
std::vector<JournalAction> ReadJournal(Store& store, std::int64_t from = 0);

/// That action, or nothing when it is not, or no longer as a whole, in the journal.
std::optional<JournalAction> FindAction(Store& store, std::int64_t number);

/// The action that ended last, of those that anything is left of to be taken back.
std::optional<JournalAction> LastAction(Store& store);

/// The same of those that `is_wanted`, which is asked from the last one backwards, and may be asked
/// of one more than once.
std::optional<JournalAction> LastAction(Store& store,
                                        const std::function<bool(const JournalAction&)>& is_wanted);

/// What the action changed in the end: a row that it changed twice counts once, one that it added
/// and deleted again not at all; nor does which facility is the active one. Throws DatabaseError
/// when an entry cannot be read.
std::vector<JournalledChange> NetChanges(const JournalAction& action);

}  // namespace veyra::modRes
