#pragma once

#include <cstdint>
#include <string>

namespace veyra::faults {

/// What bears a name in a folder.
struct Entry {
  std::uint64_t File = 0;
  std::uint64_t Freed = 0;  ///< The bytes that go with the name.
  bool IsThere = false;
};

Entry EntryOf(const char* path);

/// The number of the file that is open; 0 when none is.
std::uint64_t FileOf(int descriptor);

/// Where the next byte that is written goes.
std::uint64_t PlaceOf(int descriptor);

/// The path without links in the folder's name, whatever road leads there.
std::string Absolute(const char* path);

}  // namespace veyra::faults
