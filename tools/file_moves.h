#pragma once

#include <filesystem>
#include <string>

#include "data/date.h"

namespace veyra {

/// Waits until a file, or the names in a folder, are on the disk. Throws FileError.
void Flush(const std::filesystem::path& path);

/// Gives `to` the bytes of `from`, by way of a file in `workshop`, so that `to` is there whole or
/// not at all. Returns 0, or EEXIST when there is something named `to` already; throws FileError.
/// REQUIRES: the three are on one disk.
int CopyWithoutReplacing(const std::filesystem::path& from, const std::filesystem::path& to,
                         const std::filesystem::path& workshop);

/// Gives `fresh` the owner, as far as that may be done, and the rights of `file`: whoever could use
/// the one can use the other.
void TakeOverRights(const std::filesystem::path& file, const std::filesystem::path& fresh);

/// The name by which an old file is kept: "NAME-before-YYYY-MM-DD.EXT" beside it and, from 2 on,
/// with "-NUMBER" after the day.
std::filesystem::path KeptName(const std::filesystem::path& file, Date day, int number);

/// Puts `fresh`, which nobody has open, in the place of `file`, which stays beside it as
/// "NAME-before-YYYY-MM-DD.EXT" or, when that is taken, with "-2", "-3" ... after the day. Returns
/// the name it is kept by. Whenever this breaks off, the whole of one of the two is named `file`.
/// Throws FileError, and then `file` is what it was. REQUIRES: both are on one disk, `fresh` in
/// another folder.
std::filesystem::path ReplaceAndKeep(const std::filesystem::path& fresh,
                                     const std::filesystem::path& file, Date day);

}  // namespace veyra
