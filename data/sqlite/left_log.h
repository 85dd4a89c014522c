#pragma once

#include <optional>
#include <string>

#include "data/errors.h"

namespace veyra::sqlite {

/// Settles what becomes of a log, or a rollback journal, that a program which ended in the middle
/// of its work has left beside a database file; to be called before the file is opened for writing.
///
/// SQLite would replay such a log onto whatever file bears the name by now. Here it is left for
/// SQLite only when it belongs to the file: as the note beside the file tells, without a note by
/// the times of both, and for a journal by the counter of changes in both. Whatever is chosen has
/// been tried on a copy before and found sound; when that choice is not sound and the other is, the
/// other is taken. A log that is not used is renamed to "Calendar.mdb-wal set aside
/// 2026-11-21 18.30", and the operator is to be told what is returned. A log that another program
/// is using stays.
///
/// Throws DatabaseError when the file is damaged either way, or when it cannot be tried on a copy;
/// DatabaseBusyError when another program is using the log of a file that is no longer this one.
/// All files are then as they were. REQUIRES: `file` is absolute and no symbolic link; an
/// OpenNoteLock.
std::optional<Report> SettleLeftLog(const std::string& file);

/// Whether a log lies beside the file with pages in it that SQLite would read.
bool HasLeftLog(const std::string& file);

}  // namespace veyra::sqlite
