#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace veyra::sqlite {

/// What SQLite would take from a write-ahead log.
struct WalContents {
  /// Of each page, by its number from 1, and of each of its sectors the digests of what the log has
  /// it to be, one change after another.
  std::map<std::uint32_t, std::vector<std::set<std::uint64_t>>> Pages;

  /// Of each page, where in the log it lies as it was last.
  std::map<std::uint32_t, std::uint64_t> Latest = {};
  std::uint32_t PageSize = 0;
  std::uint32_t Frames = 0;  ///< How many pages it has, each as often as it was changed.
};

/// Reads a log as SQLite recovers it: as far as its frames bear the marks of its head and their
/// checksums fit, up to the last that ends a change. Without pages when there is no log, or one
/// that tells nothing.
WalContents ReadWal(const std::string& log);

}  // namespace veyra::sqlite
