#include "tools/rewritten_file.h"

#include <chrono>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/errors.h"
#include "data/open_file_store.h"
#include "data/open_store.h"
#include "tools/copy_database.h"
#include "tools/file_moves.h"
#include "tools/unfinished_folder.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

/// Who has the calendar open has it open for hours: waiting is of no use.
constexpr std::chrono::milliseconds kWaitPolicy{200};

constexpr const char* kCloseAdvice =
    "Nothing was changed. Close the calendar at every desk, and try again.";

std::unique_ptr<FileStore> OpenExclusive(const fs::path& file) {
  try {
    return OpenFileStore(file.string(), StoreAccess::Exclusive, kWaitPolicy);
  } catch (const DatabaseBusyError&) {
    throw DatabaseBusyError({file.string(), "Somebody has the calendar open.", kCloseAdvice});
  }
}

/// Whether a journal lies beside a database that is closed here: then it is not whole without it.
bool HasJournal(const fs::path& file) {
  for (const char* suffix : {"-wal", "-shm", "-journal"}) {
    if (fs::exists(fs::symlink_status(file.string() + suffix))) {
      return true;
    }
  }
  return false;
}

/// What changes in a file when it is written to.
using FileState = std::pair<std::uintmax_t, fs::file_time_type>;

FileState StateOf(const fs::path& file) {
  return {fs::file_size(file), fs::last_write_time(file)};
}

/// Makes what an interrupted program left undone, and returns what there is to be told of it.
std::optional<Report> Settle(const fs::path& file) {
  std::optional<Report> notice = OpenExclusive(file)->TakeNotice();
  if (HasJournal(file)) {
    throw DatabaseBusyError({file.string(), "Somebody has the calendar open.", kCloseAdvice});
  }
  return notice;
}

void RequireUnchanged(const fs::path& file, const FileState& before) {
  if (HasJournal(file) || StateOf(file) != before) {
    throw DatabaseBusyError({file.string(), "Somebody used the calendar meanwhile.", kCloseAdvice});
  }
}

void RequireSound(const fs::path& fresh) {
  const auto faults = OpenFileStore(fresh.string(), StoreAccess::ReadOnly)->Verify();
  if (!faults.empty()) {
    throw FileError({fresh.string(), "The new file is not right: " + faults.front(),
                     "Nothing was changed. Please report this."});
  }
}

/// A number that was given once is not given again, though its row is deleted: the new file gives
/// the last one itself, and takes it back.
void KeepLastNumber(FileStore& source, FileStore& target, const TableDefinition& table) {
  for (const ColumnDefinition& column : table.Columns) {
    const std::int64_t last = column.AutoIncrement ? source.LastNumber(table.Name) : 0;
    if (last > target.LastNumber(table.Name) && last <= std::numeric_limits<std::int32_t>::max()) {
      target.Delete(table.Name, target.Insert(table.Name, {{column.Name, last}}));
    }
  }
}

/// Closed again, the new file is whole; a journal goes on in it.
void CopyInto(const fs::path& fresh, FileKind kind, FileStore& source, const CopyPlan& plan,
              const CopyObserver& observer) {
  const auto target = CreateFileStore(fresh.string(), Durability::WhenAsked, kind);
  CopyTables(source, *target, plan, observer);
  for (const TablePlan& table : plan.Tables) {
    KeepLastNumber(source, *target, table.Table);
  }
  if (source.KeepsJournal()) {
    target->KeepJournal(true);
  }
}

/// Makes the new file, whole, compared and checked, and returns what it holds.
CopyPlan MakeCopy(const fs::path& file, const fs::path& fresh, FileKind kind,
                  const CopyObserver& observer) {
  const auto source = OpenExclusive(file);
  CopyPlan plan = PlanCopy(*source, kind, observer);
  CopyInto(fresh, kind, *source, plan, observer);
  if (HasJournal(fresh)) {
    throw FileError({fresh.string(), "The new file could not be completed.",
                     "Nothing was changed. Check that the disk has room."});
  }
  CompareTables(*source, *OpenStore(fresh.string(), StoreAccess::ReadOnly), plan, observer);
  RequireSound(fresh);
  return plan;
}

}  // namespace

RewrittenFile RewriteFile(const fs::path& file, FileKind kind, Date today,
                          const CopyObserver& observer) {
  std::optional<Report> notice = Settle(file);
  const FileState before = StateOf(file);
  UnfinishedFolder unfinished(file.parent_path());
  const fs::path fresh = unfinished.path() / file.filename();
  CopyPlan plan = MakeCopy(file, fresh, kind, observer);
  RequireUnchanged(file, before);
  TakeOverRights(file, fresh);
  return {std::move(plan), ReplaceAndKeep(fresh, file, today), std::move(notice)};
}

}  // namespace veyra
