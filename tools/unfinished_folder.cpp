#include "tools/unfinished_folder.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "data/errors.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

std::string Reason(int error_number) {
  return std::generic_category().message(error_number);
}

/// The highest of the folders down to `folder` that is not there; empty when all are.
fs::path TopmostMissing(const fs::path& folder) {
  fs::path missing;
  std::error_code unreachable;
  for (fs::path at = folder; !at.empty() && !fs::exists(at, unreachable); at = at.parent_path()) {
    missing = at;
  }
  return missing;
}

/// Renames, and returns 0 or the error number.
int RenameWithoutReplacing(const fs::path& from, const fs::path& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL) return errno;
  // A file system that knows no such flag.
  if (fs::exists(fs::symlink_status(to))) return EEXIST;
  return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

void MoveWithoutReplacing(const fs::path& from, const fs::path& to) {
  if (const int error = RenameWithoutReplacing(from, to); error != 0) {
    throw FileError(
        {to.string(), "The new file could not be put there: " + Reason(error) + ".",
         "Nothing was made. Move the file that is there away, or choose another folder."});
  }
}

/// Waits until a file, or the names in a folder, are on the disk.
void Flush(const fs::path& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool flushed = descriptor >= 0 && ::fsync(descriptor) == 0;
  const int error = flushed ? 0 : errno;
  if (descriptor >= 0) ::close(descriptor);
  // EINVAL comes from file systems that have nothing to flush for a folder.
  if (!flushed && error != EINVAL) {
    throw FileError({path.string(), "It could not be saved to the disk: " + Reason(error) + ".",
                     "Nothing was made. Check that the disk has room, or choose another folder."});
  }
}

/// Removes `folder` and those above it up to `topmost`, as far as they are there and empty.
void RemoveEmptyFolders(const fs::path& folder, const fs::path& topmost) {
  if (topmost.empty()) return;
  std::error_code ignored;
  fs::remove(folder, ignored);
  if (folder != topmost) {
    RemoveEmptyFolders(folder.parent_path(), topmost);
  }
}

}  // namespace

UnfinishedFolder::UnfinishedFolder(const fs::path& parent)
    : parent_(fs::absolute(parent).lexically_normal()), topmost_made_(TopmostMissing(parent_)) {
  std::error_code failure;
  fs::create_directories(parent_, failure);
  std::string name = (parent_ / ".unfinished-XXXXXX").string();
  if (failure || mkdtemp(name.data()) == nullptr) {
    const std::string reason = failure ? failure.message() : Reason(errno);
    RemoveEmptyFolders(parent_, topmost_made_);
    throw FileError({parent_.string(), "Nothing can be made in this folder: " + reason + ".",
                     "Choose a folder that you may write to."});
  }
  path_ = name;
}

UnfinishedFolder::~UnfinishedFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
  RemoveEmptyFolders(parent_, topmost_made_);
}

void UnfinishedFolder::MoveOut(const std::vector<std::string>& names) {
  std::vector<fs::path> moved;
  try {
    for (const std::string& name : names) {
      Flush(path_ / name);
      MoveWithoutReplacing(path_ / name, parent_ / name);
      moved.push_back(parent_ / name);
    }
    Flush(parent_);
  } catch (...) {
    for (const fs::path& file : moved) {
      std::error_code ignored;
      fs::remove(file, ignored);
    }
    throw;
  }
  topmost_made_.clear();
}

}  // namespace veyra
