#pragma once

#include <filesystem>

#include "data/date.h"

namespace veyra {

/// Puts a checked copy of `backup` in the place of `calendar`, which need not be there. Returns the
/// name by which the replaced file is kept, empty when there was none; its logs are kept by the
/// same name with their suffixes. Throws DatabaseError when the backup is not sound or holds no
/// calendar, or when the calendar is on a server, DatabaseBusyError when somebody has the calendar
/// open; then nothing was changed.
std::filesystem::path RestoreBackup(const std::filesystem::path& backup,
                                    const std::filesystem::path& calendar, Date day);

}  // namespace veyra
