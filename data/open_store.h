#pragma once

#include <filesystem>
#include <memory>

#include "data/store.h"
#include "data/store_access.h"
#include "data/waiting.h"

namespace veyra {

/// Opens an existing database file, or the shared calendar that a link (data/calendar_link.h) leads
/// to. What kind of file it is, its first bytes tell, never its name.
///
/// A file opened ReadOnly is never written to, and nothing is left beside it.
/// Throws MissingFileError when there is no such file, DatabaseError when it is empty, damaged, no
/// database of a kind known here, or, unless ReadOnly, one that nobody may write to;
/// DatabaseBusyError when, for Exclusive, another program has it open or, for the others, another
/// has it exclusively. The observer of `policy`, if any, must outlive the store.
std::unique_ptr<Store> OpenStore(const std::filesystem::path& file, StoreAccess access,
                                 WaitPolicy policy = {});

}  // namespace veyra
