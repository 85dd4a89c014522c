#include "tools/shared_file.h"

#include <memory>
#include <utility>

#include "data/shared_calendar.h"
#include "tools/copy_database.h"
#include "tools/file_moves.h"
#include "tools/unfinished_folder.h"
#include "tools/unused_file.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

CopyPlan CopyToServer(FileStore& source, CalendarInMaking& made, const CopyObserver& observer) {
  CopyPlan plan = PlanCopy(source, FileKind::Postgres, observer);
  CopyTables(source, made.Rows(), plan, observer);
  KeepNumbersAndJournal(source, made.Rows(), plan);
  CompareTables(source, made.Rows(), plan, observer);
  return plan;
}

}  // namespace

SharedFile ShareFile(const fs::path& file, const CalendarLink& link, Date today,
                     const CopyObserver& observer) {
  UnusedFile unused(file);
  UnfinishedFolder unfinished(file.parent_path());
  const fs::path fresh = unfinished.path() / file.filename();
  WriteCalendarLink(fresh, link);
  TakeOverRights(file, fresh);
  const auto made = BeginSharedCalendar(file, link);
  CopyPlan plan = CopyToServer(*unused.Open(), *made, observer);
  unused.RequireUnchanged();
  made->Save();
  return {std::move(plan), ReplaceAndKeep(fresh, file, today), unused.TakeNotice()};
}

}  // namespace veyra
