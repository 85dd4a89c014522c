#include "tools/rewritten_file.h"

#include <memory>
#include <utility>

#include "data/calendar_link.h"
#include "data/errors.h"
#include "data/open_file_store.h"
#include "data/open_store.h"
#include "tools/copy_database.h"
#include "tools/file_moves.h"
#include "tools/unfinished_folder.h"
#include "tools/unused_file.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

void RequireSound(const fs::path& fresh) {
  const auto faults = OpenFileStore(fresh.string(), StoreAccess::ReadOnly)->Verify();
  if (!faults.empty()) {
    throw FileError({fresh.string(), "The new file is not right: " + faults.front(),
                     "Nothing was changed. Please report this."});
  }
}

/// Closed again, the new file is whole; a journal goes on in it.
void CopyInto(const fs::path& fresh, FileKind kind, FileStore& source, const CopyPlan& plan,
              const CopyObserver& observer) {
  const auto target = CreateFileStore(fresh.string(), Durability::WhenAsked, kind);
  CopyTables(source, *target, plan, observer);
  KeepNumbersAndJournal(source, *target, plan);
}

/// Makes the new file, whole, compared and checked, and returns what it holds.
CopyPlan MakeCopy(FileStore& source, const fs::path& fresh, FileKind kind,
                  const CopyObserver& observer) {
  CopyPlan plan = PlanCopy(source, kind, observer);
  CopyInto(fresh, kind, source, plan, observer);
  if (HasJournal(fresh)) {
    throw FileError({fresh.string(), "The new file could not be completed.",
                     "Nothing was changed. Check that the disk has room."});
  }
  CompareTables(source, *OpenStore(fresh.string(), StoreAccess::ReadOnly), plan, observer);
  RequireSound(fresh);
  return plan;
}

}  // namespace

RewrittenFile RewriteFile(const fs::path& file, FileKind kind, Date today,
                          const CopyObserver& observer) {
  const bool is_link = LeadsToServer(file);
  UnusedFile unused(file);
  UnfinishedFolder unfinished(file.parent_path());
  const fs::path fresh = unfinished.path() / file.filename();
  auto source = unused.Open();
  CopyPlan plan = MakeCopy(*source, fresh, kind, observer);
  if (!is_link) {
    // A file is closed before it is moved. What a link leads to stays closed to others till then.
    source.reset();
  }
  unused.RequireUnchanged();
  TakeOverRights(file, fresh);
  return {std::move(plan), ReplaceAndKeep(fresh, file, today), unused.TakeNotice()};
}

}  // namespace veyra
