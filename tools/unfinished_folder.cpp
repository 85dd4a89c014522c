#include "tools/unfinished_folder.h"

#include <stdlib.h>

#include <cerrno>
#include <system_error>

#include "data/errors.h"
#include "tools/file_moves.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

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
        {to.string(), "The new file could not be put there: " + Reason(error) + ".",
         "Nothing was made. Move the file that is there away, or choose another folder."});
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
