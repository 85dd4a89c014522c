#pragma once

#include <string>

namespace veyra {

/// A folder of this process's own among the temporary files, with a name that nobody can guess and
/// open to nobody else, which goes with all that is in it when the object does.
class PrivateFolder {
 public:
  /// Throws std::filesystem::filesystem_error.
  PrivateFolder();
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  /// The full name of a file in it.
  std::string File(const std::string& name) const;

 private:
  std::string path_;
};

}  // namespace veyra
