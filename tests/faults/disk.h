#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace veyra::faults {

/// The calls on files that are counted and can be made to fail.
enum class Call { Read, Write, Sync, Truncate, Rename, Unlink, Create };
inline constexpr std::size_t kCallKinds = 7;

struct Failure {
  Call What = Call::Write;
  int Number = 1;        ///< Which call of that kind fails, the first being 1.
  int Error = 0;         ///< The errno that it fails with; 0 for a write of which half is written.
  bool Lasting = false;  ///< All later calls of that kind fail as well.
};

/// What the disk does to the files of one folder and of the folders in it.
struct Plan {
  std::string Folder;
  std::optional<int> KillAt = {};  ///< The step at which this process is killed, from 1.
  std::optional<Failure> Fail = {};
  std::optional<std::uint64_t> Room = {};  ///< How many bytes the files may grow by in all.
  bool Record = false;                     ///< Keep the changes.
};

/// A change of the folder, as the disk was asked for it. Files are told apart by inode number.
struct Change {
  enum class Kind { Create, Link, Unlink, Rename, Write, Truncate, Sync, SyncFolder, Made, Mark };

  Kind What = Kind::Mark;
  std::uint64_t File = 0;
  std::string Name = {};     ///< Create, Link, Unlink, Rename: within the folder.
  std::string NewName = {};  ///< Rename.
  std::uint64_t Offset = 0;  ///< Write; the new size for Truncate.
  std::string Bytes = {};    ///< Write.
};

struct Seen {
  std::array<int, kCallKinds> Calls{};
  int Steps = 0;  ///< A step ends each changing call, and one lies halfway through each write.
  std::vector<Change> Changes = {};
  std::vector<std::string> OpenedForWriting = {};  ///< Within the folder, once for each opening.

  int CallsOf(Call call) const { return Calls.at(static_cast<std::size_t>(call)); }
};

/// From now on this process meets the disk of the plan, in place of an earlier one. Files whose
/// names end with "-shm" are none of the disk's: what is in them does not outlive the programs.
void Watch(const Plan& plan);

/// Puts a mark among the changes: here something was made, and is going to be reported as saved,
void MarkMade();

/// or was reported so.
void Mark();

/// Ends the watch and returns what was seen.
Seen EndWatch();

}  // namespace veyra::faults
