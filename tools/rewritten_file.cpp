#include "tools/rewritten_file.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "data/calendar_link.h"
#include "data/connection.h"
#include "data/desk_note.h"
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
    throw FileError({fresh.string(), Phrase::Tr("The new file is not right: %1", faults.front()),
                     Phrase::Tr("Nothing was changed. Please report this.")});
  }
}

/// Closed again, the new file is whole; a journal goes on in it.
void CopyInto(const fs::path& fresh, FileKind kind, FileStore& source, const CopyPlan& plan,
              const CopyObserver& observer) {
  const auto target = CreateFileStore(fresh.string(), Durability::WhenAsked, kind);
  CopyTables(source, *target, plan, observer);
  KeepNumbersAndJournal(source, *target, plan);
}

void RequireWhole(const fs::path& fresh) {
  if (HasJournal(fresh)) {
    throw FileError({fresh.string(), Phrase::Tr("The new file could not be completed."),
                     Phrase::Tr("Nothing was changed. Check that the disk has room.")});
  }
}

/// Marks that facility and no other; when it is not there, the marks stay as they are.
void MakeActive(const fs::path& fresh, std::int64_t facility) {
  Connection calendar(OpenStore(fresh.string(), StoreAccess::ReadWrite));
  const std::string id = std::to_string(facility);
  if (calendar.Open("SELECT * FROM Rooms Where ID = " + id, CursorType::ForwardOnlyReadOnly)
          ->IsEmpty()) {
    return;
  }
  const auto rooms = calendar.Open("SELECT * FROM Rooms", CursorType::StaticOptimistic);
  for (; !rooms->AtEnd(); rooms->MoveNext()) {
    rooms->SetField("Active", std::int64_t{ToInteger(rooms->Field("ID")) == facility});
    rooms->Update();
  }
}

/// Makes the new file, whole, compared and checked, and returns what it holds.
CopyPlan MakeCopy(FileStore& source, const fs::path& fresh, FileKind kind,
                  std::optional<std::int64_t> active, const CopyObserver& observer) {
  CopyPlan plan = PlanCopy(source, kind, observer);
  CopyInto(fresh, kind, source, plan, observer);
  RequireWhole(fresh);
  CompareTables(source, *OpenStore(fresh.string(), StoreAccess::ReadOnly), plan, observer);
  if (active) {
    MakeActive(fresh, *active);
    RequireWhole(fresh);
  }
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
  // On a server the facility that was picked last stands in a note of the desk.
  const auto active = is_link ? ReadDeskNote(DeskNoteOf(file)) : std::nullopt;
  CopyPlan plan = MakeCopy(*source, fresh, kind, active, observer);
  if (!is_link) {
    // A file is closed before it is moved. What a link leads to stays closed to others till then.
    source.reset();
  }
  unused.RequireUnchanged();
  TakeOverRights(file, fresh);
  return {std::move(plan), ReplaceAndKeep(fresh, file, today), unused.TakeNotice()};
}

}  // namespace veyra
