#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace veyra {

/// A folder inside another one, in which files are made that must appear there whole or not at all.
/// It goes when this object does, and with it whatever was not moved out.
class UnfinishedFolder {
 public:
  /// Makes `parent` and the folders above it when they are not there; such folders go again with
  /// this object unless MoveOut has succeeded. Throws FileError when a folder cannot be made.
  explicit UnfinishedFolder(const std::filesystem::path& parent);
  ~UnfinishedFolder();
  UnfinishedFolder(const UnfinishedFolder&) = delete;
  UnfinishedFolder& operator=(const UnfinishedFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

  /// Moves these files of path(), which nobody has open, into the parent. When it returns they are
  /// on the disk, safe from a loss of power. Never replaces a file there: throws FileError when
  /// that would be needed or a file cannot be moved, and then none of them has been.
  void MoveOut(const std::vector<std::string>& names);

 private:
  std::filesystem::path parent_;
  std::filesystem::path path_;
  std::filesystem::path topmost_made_;  ///< The highest folder that was made, or empty.
};

}  // namespace veyra
