#pragma once

#include <optional>
#include <string>

#include "data/file_stamp.h"

namespace veyra {

/// Watches over the file that a store has open: whether the name by which it was opened still leads
/// to it. A folder that was renamed with the file in it changes nothing.
class FileWatch {
 public:
  /// To be made before the file is opened. `file` is absolute.
  explicit FileWatch(const std::string& file);
  ~FileWatch();
  FileWatch(const FileWatch&) = delete;
  FileWatch& operator=(const FileWatch&) = delete;

  /// A name that leads to the file, and to what lies beside it, also when the folder is renamed.
  std::string NameInFolder() const;

  /// The stamp of the file that bears the name in the folder now, which may be another one.
  std::optional<FileStamp> Stamp() const { return StampIn(folder_, name_); }

  /// Throws FileReplacedError when another file bears the name.
  void CheckBeforeReading() const;

  /// Throws FileReplacedError when another file bears the name, or none does: what would be written
  /// now, nobody would find again.
  void CheckBeforeChange() const;

 private:
  enum class Place { Here, Replaced, Gone };

  Place Look() const;

  std::string file_;
  std::string name_;
  FileStamp opened_;
  int folder_;
};

}  // namespace veyra
