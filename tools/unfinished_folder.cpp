#include "tools/unfinished_folder.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
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
        {to.string(),
         Phrase::Tr("The new file could not be put there: %1.", SystemErrorText(error)),
         Phrase::Tr(
             "Nothing was made. Move the file that is there away, or choose another folder.")});
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

bool IsSameFile(const fs::path& one, const fs::path& other) {
  struct stat first {};
  struct stat second {};
  return lstat(one.c_str(), &first) == 0 && lstat(other.c_str(), &second) == 0 &&
         first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

/// Takes out of the target what stands in both, when it is only a part of what was to be moved.
void TakeBackAPart(const fs::path& folder) {
  std::vector<fs::path> moved;
  std::size_t count = 0;
  std::error_code unreachable;
  for (fs::directory_iterator entry(folder, unreachable), end; !unreachable && entry != end;
       entry.increment(unreachable)) {
    ++count;
    const fs::path there = folder.parent_path() / entry->path().filename();
    if (IsSameFile(entry->path(), there)) {
      moved.push_back(there);
    }
  }
  if (moved.size() < count) {
    for (const fs::path& file : moved) {
      fs::remove(file, unreachable);
    }
  }
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
    TakeBackAPart(folder);
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }
  close(descriptor);
}

void RemoveAllAbandoned(const fs::path& parent) {
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

/// Gives a file its name in the target, where it keeps the old one as well if it can: by that it is
/// known when the others did not follow.
void GiveName(const fs::path& from, const fs::path& to) {
  const bool has_both = ::link(from.c_str(), to.c_str()) == 0;
  if (!has_both && errno == EEXIST) {
    throw FileError(
        {to.string(),
         Phrase::Tr("The new file could not be put there: %1.", SystemErrorText(EEXIST)),
         Phrase::Tr("Nothing was made. Move the file that is there away, or choose another "
                    "folder.")});
  }
  if (!has_both) {
    MoveWithoutReplacing(from, to);
  }
}

fs::path WholePath(const fs::path& folder) {
  return fs::absolute(folder / "").lexically_normal().parent_path();
}

mode_t UsualFolderRights() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0777U & ~mask;
}

}  // namespace

void UnfinishedFolder::RemoveAbandoned(const fs::path& target) {
  const fs::path folder = WholePath(target);
  RemoveAllAbandoned(TopmostMissing(folder).empty() ? folder : folder.parent_path());
}

UnfinishedFolder::UnfinishedFolder(const fs::path& target)
    : target_(WholePath(target)), topmost_made_(TopmostMissing(target_)) {
  parent_ = topmost_made_.empty() ? target_ : target_.parent_path();
  std::error_code failure;
  fs::create_directories(parent_, failure);
  RemoveAllAbandoned(parent_);
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
         Phrase::Tr("Nothing can be made in this folder: %1.", SystemErrorText(failure.value())),
         Phrase::Tr("Choose a folder that you may write to.")});
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
    throw FileError(
        {target_.string(),
         Phrase::Tr("The new folder cannot be opened to others: %1.", SystemErrorText(errno)),
         Phrase::Tr("Nothing was made. Choose another folder.")});
  }
  Flush(path_);
  MoveWithoutReplacing(path_, target_);
  path_.clear();
  Flush(parent_);
}

/// So that whoever finds this folder can tell by what is in it whether all was moved.
void UnfinishedFolder::KeepOnly(const std::vector<std::string>& names) const {
  std::vector<fs::path> others;
  for (const auto& entry : fs::directory_iterator(path_)) {
    if (std::find(names.begin(), names.end(), entry.path().filename().string()) == names.end()) {
      others.push_back(entry.path());
    }
  }
  for (const fs::path& other : others) {
    std::error_code failure;
    fs::remove_all(other, failure);
    if (failure) {
      throw FileError({other.string(),
                       Phrase::Tr("It could not be removed: %1.", SystemErrorText(failure.value())),
                       Phrase::Tr("Nothing was made. Check that the disk works, and try again.")});
    }
  }
}

void UnfinishedFolder::MoveEach(const std::vector<std::string>& names) {
  KeepOnly(names);
  Flush(path_);
  std::vector<fs::path> moved;
  try {
    for (const std::string& name : names) {
      GiveName(path_ / name, target_ / name);
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
