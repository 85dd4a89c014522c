#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/journal.h"
#include "data/sqlite/reader.h"

namespace veyra::sqlite {

/// Keeps the journal of a SQLite file: triggers enter every change, whichever program makes it, and
/// this names the action of those that are made here.
class JournalKeeper {
 public:
  /// The reader must outlive this.
  explicit JournalKeeper(Reader& reader) : reader_(reader) {}

  CurrentAction& action() { return action_; }

  bool IsKept() { return reader_.catalogue().KeepsJournal(); }

  /// Makes the journal's table if it is missing, and the triggers of every table that there is.
  /// REQUIRES: a change is open, as for all that follows.
  void Begin();

  /// Removes the triggers.
  void End();

  /// Makes the triggers of a table anew when it is one whose changes are entered, and any are: it
  /// was made, or has another column.
  void TableWasMade(const Table& table);

  /// Beginning a change: returns the last entry before it, nothing when no journal is kept. Makes
  /// the journal's table anew when another program has dropped it; throws DatabaseError when it has
  /// other columns.
  std::optional<std::int64_t> BeginChange();

  /// Ending it: enters the action's name and number in the entries that came since; a change
  /// without a name is an action of its own. Returns the number that the named action is to have
  /// once the change is made, or nothing when there is none, or no entry.
  std::optional<std::int64_t> NameEntries(const std::optional<std::int64_t>& last);

 private:
  void CheckTable();
  void MakeTriggers(const Table& table);
  void DropTriggers(const std::string& table);

  Reader& reader_;
  CurrentAction action_;
};

}  // namespace veyra::sqlite
