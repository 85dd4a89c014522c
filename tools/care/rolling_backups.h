#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <vector>

#include "data/date.h"

namespace veyra {

/// Where the rolling copies of a calendar lie, in its data folder.
inline constexpr const char* kBackupFolder = "backups";

/// The copy of a day: "Calendar-2026-03-05.mdb".
std::filesystem::path BackupOf(const std::filesystem::path& folder, Date day);

/// The days of which there is a copy. Other names are of no concern. Throws FileError when the
/// folder cannot be read.
std::set<Date> BackupDays(const std::filesystem::path& folder);

std::optional<Date> NewestBackup(const std::filesystem::path& folder);

/// Of the days with a copy, those whose copy may go: all but the newest seven days, the last of
/// each of the newest four weeks (from Sunday), and the last of each of the newest twelve months.
std::vector<Date> BackupsToDrop(const std::set<Date>& days);

}  // namespace veyra
