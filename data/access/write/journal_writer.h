#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/access/pages/page_changes.h"
#include "data/access/read/snapshot.h"
#include "data/access/write/table_writer.h"
#include "data/file_store.h"
#include "data/journal.h"

namespace veyra::access {

/// Says in its one row, in its one column, whether the journal is kept (1) or not (0).
inline constexpr const char* kJournalSwitch = "ChangeJournalSwitch";

/// A row that was added, changed or deleted.
struct JournalledRow {
  const std::string& Table;
  const TableLayout& Layout;
  const std::vector<Value>* Before;  ///< nullptr when it was added.
  const std::vector<Value>* After;   ///< nullptr when it was deleted.
};

/// Keeps the journal of an Access file, in which nobody but this program enters anything: each
/// change that is made here, in the same pages. Throws as InsertRow does.
class JournalWriter {
 public:
  CurrentAction& action() { return action_; }

  /// Whether the journal is kept, by what the file holds now.
  static bool IsKept(PageSource& file, Snapshot& snapshot);

  /// To be called before the changes of each commit, and when it is done.
  void BeginCommit();
  void EndCommit();

  /// Enters a row, if the journal is kept. REQUIRES: `pages` are those of this commit.
  void Enter(PageChanges& pages, PageSource& file, Snapshot& snapshot, const JournalledRow& row);

 private:
  /// The number of the action that this entry belongs to: its own when it is the first.
  std::int64_t NumberFor(std::int64_t entry);

  CurrentAction action_;
  std::optional<std::int64_t> number_;  ///< What the action's will be, or this commit's own.
  std::optional<bool> is_kept_;         ///< As this commit found it.
  std::optional<TableWriter> journal_;  ///< Of this commit.
  std::string time_;
};

/// The table of the switch, as it is made: on.
TableDefinition JournalSwitchTable();

}  // namespace veyra::access
