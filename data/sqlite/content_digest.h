#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "data/sqlite/database.h"
#include "data/sqlite/wal_file.h"

namespace veyra::sqlite {

/// A digest of the first and the last megabyte of a database file as it was when it had `size`
/// bytes, but for the pages that are in a log. What the log has them to be is not looked at.
std::uint64_t ContentDigest(Database& database, std::int64_t size, const WalContents& log = {});

/// The digests of the sectors of the pages that are in a log, as the file itself has them; pages
/// that are past its first `size` bytes are left out.
std::map<std::uint32_t, std::vector<std::uint64_t>> DigestsInFile(Database& database,
                                                                  std::int64_t size,
                                                                  const WalContents& log);

}  // namespace veyra::sqlite
