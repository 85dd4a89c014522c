#pragma once

#include <filesystem>
#include <optional>

#include "data/calendar_link.h"
#include "data/date.h"
#include "data/errors.h"
#include "tools/copy_plan.h"

namespace veyra {

/// A calendar that was put on a server.
struct SharedFile {
  CopyPlan Plan;                      ///< What it holds.
  std::filesystem::path Kept;         ///< The name that the old file has now.
  std::optional<Report> Notice = {};  ///< What was set right when the old file was opened.
};

/// Copies the tables, columns and rows of `file` to the server, all in one transaction of it,
/// compares every row there, and then puts a link in the place of the file, which stays beside it
/// as ReplaceAndKeep names it. Interrupted before the transaction ends it leaves nothing on the
/// server; interrupted after that, the server has the calendar and the file is still the old one.
///
/// Throws DatabaseError, FileError; DatabaseBusyError when somebody has the file open. Then the
/// folder is as it was.
SharedFile ShareFile(const std::filesystem::path& file, const CalendarLink& link, Date today,
                     const CopyObserver& observer);

}  // namespace veyra
