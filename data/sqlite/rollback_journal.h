#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/sqlite/database.h"

namespace veyra::sqlite {

/// What a rollback journal tells of the file that it belongs to.
struct RollbackJournal {
  std::optional<std::uint32_t> ChangeCounter;  ///< As it was before the change; nothing when the
                                               ///< journal does not hold the file's first page.
};

/// Reads the beginning of a journal. Nothing when there is none, or one that SQLite takes for
/// finished.
std::optional<RollbackJournal> ReadRollbackJournal(const std::string& journal);

/// How many changes the file itself counts.
std::uint32_t ChangeCounter(Database& database);

}  // namespace veyra::sqlite
