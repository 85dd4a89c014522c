#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace veyra {

/// Which file it is, how long it is and when it was last written to.
///
/// File systems keep that time in ticks, some of 20 milliseconds: that two stamps are equal does
/// not tell that nothing was written in between. Across a restart of the machine the number of the
/// device may be another one.
struct FileStamp {
  std::uint64_t Device = 0;
  std::uint64_t Number = 0;  ///< The file's own number on its device.
  std::int64_t Size = 0;
  std::int64_t Written = 0;  ///< Nanoseconds since 1970.

  bool operator==(const FileStamp&) const = default;

  bool IsSameFile(const FileStamp& other) const {
    return Device == other.Device && Number == other.Number;
  }
};

/// The stamp of the file that a name leads to, of an open file, and of the file that a name leads
/// to in an open folder; nothing when there is none or it cannot be reached.
std::optional<FileStamp> StampOf(const std::string& file);
std::optional<FileStamp> StampOf(int descriptor);
std::optional<FileStamp> StampIn(int folder, const std::string& name);

}  // namespace veyra
