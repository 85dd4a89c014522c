#pragma once

#include <functional>

#include "help/archive_stream.h"

namespace veyra {

/// Hands every file of a compiled help archive to `take`, the archive's own tables ("/#IVB")
/// included, in the order of its directory. Returns whether all of them could be read whole.
/// `archive` is open for reading, and is closed afterwards; no other file is opened.
///
/// To be called only in a process that may die. The library behind it, chmlib, trusts what it
/// reads: damaged archives were seen to crash it and to make it read past its buffers, and nothing
/// rules out that one makes it loop or ask for all memory. So the archive is read by a small
/// program of its own, within limits, and the calendar takes the objects from a pipe.
bool ForEachObject(int archive, const std::function<void(const HelpObject&)>& take);

}  // namespace veyra
