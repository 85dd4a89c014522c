#pragma once

#include <filesystem>

#include "data/date.h"
#include "data/file_store.h"

namespace veyra {

/// Makes a checked copy of the calendar, whoever has it open, that appears under its name whole or
/// not at all and is then safe from a loss of power. Throws Error: then nothing was made, and a
/// file that bears the name is what it was, as it is unless `replace`.
void MakeCheckedCopy(FileStore& store, const std::filesystem::path& copy, bool replace);

/// Keeps a checked copy of the calendar beside it, by the first KeptName that is free. Returns the
/// name.
std::filesystem::path KeepCopy(FileStore& store, Date day);

}  // namespace veyra
