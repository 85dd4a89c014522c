#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace veyra {

/// A folder in which files are made that must appear in another one whole or not at all. It goes
/// when this object does, and with it whatever was not moved out.
///
/// One that a program left when it was killed, ".unfinished-XXXXXX", is removed by the next program
/// that makes one in the same place, and with it what only a part of had been moved out; one whose
/// program is still alive is let be.
class UnfinishedFolder {
 public:
  /// Removes what programs that were killed have left of a folder for `target`.
  static void RemoveAbandoned(const std::filesystem::path& target);

  /// A folder for files that are to appear in `target`. Where that is missing it is made by
  /// MoveOut, and the folders above it here; such folders go again with this object unless MoveOut
  /// has succeeded. Throws FileError when a folder cannot be made.
  explicit UnfinishedFolder(const std::filesystem::path& target);
  ~UnfinishedFolder();
  UnfinishedFolder(const UnfinishedFolder&) = delete;
  UnfinishedFolder& operator=(const UnfinishedFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

  /// Moves these files of path(), which nobody has open, into the target. When it returns they are
  /// on the disk, safe from a loss of power. Never replaces a file there: throws FileError when
  /// that would be needed or a file cannot be moved, and then none of them has been. A target that
  /// was missing appears with all of them in it; in another they appear one after the other, and
  /// when this is interrupted between two, RemoveAbandoned takes back those that are there, except
  /// on a file system that cannot give a file two names.
  void MoveOut(const std::vector<std::string>& names);

 private:
  void MoveAsWhole();
  void KeepOnly(const std::vector<std::string>& names) const;
  void MoveEach(const std::vector<std::string>& names);

  std::filesystem::path target_;
  std::filesystem::path parent_;  ///< Of path_: the target, or while that is missing its parent.
  std::filesystem::path path_;
  std::filesystem::path topmost_made_;  ///< The highest folder that was made, or empty.
  int owned_ = -1;                      ///< Keeps others from taking path_ for abandoned.
};

}  // namespace veyra
