#include "data/private_folder.h"

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace veyra {

namespace fs = std::filesystem;

PrivateFolder::PrivateFolder() {
  std::string name = (fs::temp_directory_path() / "veyra-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw fs::filesystem_error("mkdtemp", name, std::error_code(errno, std::generic_category()));
  }
  path_ = name;
}

PrivateFolder::~PrivateFolder() {
  std::error_code ignored;  // What is left is in the folder for temporary files.
  fs::remove_all(path_, ignored);
}

std::string PrivateFolder::File(const std::string& name) const {
  return path_ + "/" + name;
}

}  // namespace veyra
