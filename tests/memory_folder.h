#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <optional>

namespace veyra {

/// The folder whose files lie in memory only; nothing where there is none that may be written to.
inline std::optional<std::filesystem::path> MemoryFolder() {
  constexpr const char* kFolder = "/dev/shm";
  return ::access(kFolder, W_OK) == 0 ? std::optional<std::filesystem::path>(kFolder)
                                      : std::nullopt;
}

/// From now on temporary folders are made there, unless TMPDIR names another one: thousands of
/// durable changes take minutes on a disk.
inline void PreferMemoryFolder() {
  if (const auto folder = MemoryFolder()) {
    setenv("TMPDIR", folder->c_str(), 0);
  }
}

}  // namespace veyra
