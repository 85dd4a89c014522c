#pragma once

#include <filesystem>
#include <optional>

#include "data/create_store.h"
#include "data/date.h"
#include "data/errors.h"
#include "tools/copy_plan.h"

namespace veyra {

/// A database file that was made anew.
struct RewrittenFile {
  CopyPlan Plan;                      ///< What it holds.
  std::filesystem::path Kept;         ///< The name that the old file has now.
  std::optional<Report> Notice = {};  ///< What was set right when the old file was opened.
};

/// Puts a new file of that kind, with the same tables, columns and rows, in the place of `file`,
/// which stays beside it as ReplaceAndKeep names it. Every row is read again from the new file and
/// compared, and the file is verified. Broken off at any moment, it leaves the old or the new
/// file whole under its name. Throws DatabaseError, FileError; DatabaseBusyError when somebody has
/// the file open. Then the folder is as it was.
RewrittenFile RewriteFile(const std::filesystem::path& file, FileKind kind, Date today,
                          const CopyObserver& observer);

}  // namespace veyra
