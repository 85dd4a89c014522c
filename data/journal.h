#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/store.h"

namespace veyra {

/// A calendar may keep a journal: a table of its own in which a row is entered for every row of
/// Rooms, Reserv and Settings that is added, changed or deleted, in the very change of the file
/// that does it. Other programs need not know the table.
///
///   ID          the number of the entry; a later entry has a higher one
///   ActionID    the ID of the first entry of the action that it belongs to; null when another
///               program made the change
///   ChangedAt   UTC, "2026-03-05 09:30:12.345"
///   ActionName  "New series"; null as for ActionID, and of a change that was given no name:
///               that is an action of its own
///   TableName   the table of the row
///   OldValues   the row as it was, as JournalText writes it; null when it was added
///   NewValues   the row as it is then; null when it was deleted
///
/// Entries without an ActionID that follow each other and have the same ChangedAt are of one
/// statement of another program, and count as one action.
inline constexpr const char* kJournalTable = "ChangeJournal";

TableDefinition JournalTable();

/// Whether changes of a table of that name are entered.
bool IsJournalled(std::string_view table);

/// The tables whose changes are entered.
const std::vector<std::string>& JournalledTables();

/// A row as the journal holds it: "[RmID]=1, [Event]='O''Hara', [DateOfRes]='2026-03-05',
/// [MultKey]=NULL". A bracket that closes is doubled in a name, a quote in a text.
/// REQUIRES: as many values as columns.
std::string JournalText(const std::vector<std::string>& columns, const std::vector<Value>& values);

/// The row that such a text holds, dates as texts; nothing when it is none, or holds what no Value
/// can.
std::optional<FieldValues> ParseJournalText(std::string_view text);

/// The present moment as ChangedAt holds it.
std::string JournalTime();

/// The action that a store enters its changes under.
class CurrentAction {
 public:
  /// Actions may be nested: the outermost counts.
  void Begin(const std::string& name);
  void End();

  bool IsNamed() const { return depth_ > 0; }
  const std::string& Name() const { return name_; }

  /// The ID of its first entry; nothing before there is one.
  const std::optional<std::int64_t>& Number() const { return number_; }
  void SetNumber(std::int64_t number) { number_ = number; }

 private:
  int depth_ = 0;
  std::string name_;
  std::optional<std::int64_t> number_;
};

/// What is changed through a store while this lives is one action of the journal.
class JournalledAction {
 public:
  /// Anything that has BeginAction and EndAction, and outlives this.
  template <typename Journalled>
  JournalledAction(Journalled& store, const std::string& name)
      : end_([&store] { store.EndAction(); }) {
    store.BeginAction(name);
  }
  ~JournalledAction() { end_(); }
  JournalledAction(const JournalledAction&) = delete;
  JournalledAction& operator=(const JournalledAction&) = delete;

 private:
  std::function<void()> end_;
};

}  // namespace veyra
