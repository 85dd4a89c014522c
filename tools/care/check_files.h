#pragma once

#include <filesystem>

#include "data/date.h"
#include "tools/care/finding.h"

namespace veyra {

/// Whether another process holds a lock on the file, as every calendar does that has it open.
bool IsInUse(const std::filesystem::path& file);

/// The logs and journals of any kind that lie beside the file.
std::vector<std::filesystem::path> LogsBeside(const std::filesystem::path& file);

/// What lies in the calendar's folder that should not: logs of a calendar that nobody has open,
/// files of a command that broke off, a guest database that cannot be used, backups that are no
/// longer made.
Findings CheckFolder(const std::filesystem::path& calendar, Date today);

}  // namespace veyra
