#include "data/application_folder.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace veyra {
namespace {

namespace fs = std::filesystem;

std::string HomeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') {
    return home;
  }
  const passwd* user = getpwuid(getuid());
  return user == nullptr ? "" : user->pw_dir;
}

bool IsForAllUsers(const fs::path& program_folder) {
  std::error_code unreachable;
  if (fs::exists(program_folder / "path.txt", unreachable)) {
    return false;
  }
  return program_folder.string().starts_with("/usr/") || access(program_folder.c_str(), W_OK) != 0;
}

}  // namespace

std::string UserDataHome() {
  // A relative folder would be another one at every start.
  const char* named = std::getenv("XDG_DATA_HOME");
  if (named != nullptr && *named == '/') {
    return named;
  }
  const std::string home = HomeFolder();
  return home.empty() ? "" : home + "/.local/share";
}

std::string ApplicationFolder(const std::string& program_folder, const std::string& data_home) {
  if (data_home.empty() || !IsForAllUsers(program_folder)) {
    return program_folder;
  }
  return data_home + "/veyra-calendar";
}

}  // namespace veyra
