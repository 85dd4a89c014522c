#include "tools/unfinished_folder.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>

#include "data/errors.h"
#include "data/posix_file.h"
#include "tools/file_moves.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr std::string_view kStart = ".unfinished-";
constexpr std::string_view kPattern = "XXXXXX";

/// The highest of the folders down to `folder` that is not there; empty when all are.
fs::path TopmostMissing(const fs::path& folder) {
  fs::path missing;
  std::error_code unreachable;
  for (fs::path at = folder; !at.empty() && !fs::exists(at, unreachable); at = at.parent_path()) {
    missing = at;
  }
  return missing;
}

void MoveWithoutReplacing(const fs::path& from, const fs::path& to) {
  if (const int error = RenameWithoutReplacing(from, to); error != 0) {
    throw FileError(
        {to.string(), "The new file could not be put there: " + SystemErrorText(error) + ".",
         "Nothing was made. Move the file that is there away, or choose another folder."});
  }
}

/// Removes `folder` and those above it up to `topmost`, as far as they are there and empty.
void RemoveEmptyFolders(const fs::path& folder, const fs::path& topmost) {
  if (topmost.empty()) {
    return;
  }
  std::error_code ignored;
  fs::remove(folder, ignored);
  if (folder != topmost) {
    RemoveEmptyFolders(folder.parent_path(), topmost);
  }
}

int OpenFolder(const fs::path& folder) {
  return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

bool HasUnfinishedName(const fs::path& path) {
  const std::string name = path.filename().string();
  return name.starts_with(kStart) && name.size() == kStart.size() + kPattern.size();
}

/// Removes an unfinished folder of this user whose program is no longer there.
void RemoveIfAbandoned(const fs::path& folder) {
  const int descriptor = OpenFolder(folder);
  if (descriptor < 0) {
    return;
  }
  struct stat status {};
  if (fstat(descriptor, &status) == 0 && status.st_uid == geteuid() &&
      flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }
  close(descriptor);
}

void RemoveAbandoned(const fs::path& parent) {
  std::vector<fs::path> found;
  std::error_code unreachable;
  for (fs::directory_iterator entry(parent, unreachable), end; !unreachable && entry != end;
       entry.increment(unreachable)) {
    if (HasUnfinishedName(entry->path())) {
      found.push_back(entry->path());
    }
  }
  for (const fs::path& folder : found) {
    RemoveIfAbandoned(folder);
  }
}

/// Owns the folder as long as the descriptor that it returns is open; -1 when it is gone already.
int Own(const fs::path& folder) {
  const int descriptor = OpenFolder(folder);
  struct stat status {};
  // Where a file system cannot lock a folder nobody can lock it to remove it.
  if (descriptor >= 0) {
    flock(descriptor, LOCK_EX);
    if (fstat(descriptor, &status) != 0 || status.st_nlink == 0) {
      close(descriptor);
      return -1;
    }
  }
  return descriptor;
}

mode_t UsualFolderRights() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0777U & ~mask;
}

}  // namespace

UnfinishedFolder::UnfinishedFolder(const fs::path& target)
    : target_(fs::absolute(target / "").lexically_normal().parent_path()),
      topmost_made_(TopmostMissing(target_)) {
  parent_ = topmost_made_.empty() ? target_ : target_.parent_path();
  std::error_code failure;
  fs::create_directories(parent_, failure);
  RemoveAbandoned(parent_);
  while (!failure && owned_ < 0) {
    std::string name = (parent_ / kStart).string() + std::string(kPattern);
    if (mkdtemp(name.data()) == nullptr) {
      failure.assign(errno, std::generic_category());
    } else {
      path_ = name;
      owned_ = Own(path_);
    }
  }
  if (failure) {
    RemoveEmptyFolders(target_, topmost_made_);
    throw FileError(
        {target_.string(),
         "Nothing can be made in this folder: " + SystemErrorText(failure.value()) + ".",
         "Choose a folder that you may write to."});
  }
}

UnfinishedFolder::~UnfinishedFolder() {
  std::error_code ignored;
  if (!path_.empty()) {
    fs::remove_all(path_, ignored);
  }
  RemoveEmptyFolders(target_, topmost_made_);
  if (owned_ >= 0) {
    close(owned_);
  }
}

void UnfinishedFolder::MoveOut(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    Flush(path_ / name);
  }
  if (parent_ == target_) {
    MoveEach(names);
  } else {
    MoveAsWhole();
  }
  topmost_made_.clear();
}

void UnfinishedFolder::MoveAsWhole() {
  if (chmod(path_.c_str(), UsualFolderRights()) != 0) {
    throw FileError({target_.string(),
                     "The new folder cannot be opened to others: " + SystemErrorText(errno) + ".",
                     "Nothing was made. Choose another folder."});
  }
  Flush(path_);
  MoveWithoutReplacing(path_, target_);
  path_.clear();
  Flush(parent_);
}

void UnfinishedFolder::MoveEach(const std::vector<std::string>& names) {
  std::vector<fs::path> moved;
  try {
    for (const std::string& name : names) {
      MoveWithoutReplacing(path_ / name, target_ / name);
      moved.push_back(target_ / name);
    }
    Flush(target_);
  } catch (...) {
    for (const fs::path& file : moved) {
      std::error_code ignored;
      fs::remove(file, ignored);
    }
    throw;
  }
}

}  // namespace veyra
