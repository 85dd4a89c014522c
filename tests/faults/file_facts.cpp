#include "tests/faults/file_facts.h"

#include <fcntl.h>
#include <limits.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace veyra::faults {

Entry EntryOf(const char* path) {
  struct stat status {};
  if (lstat(path, &status) != 0) {
    return {};
  }
  const auto size = static_cast<std::uint64_t>(status.st_size);
  return {status.st_ino, status.st_nlink == 1 ? size : 0, true};
}

std::uint64_t FileOf(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 ? status.st_ino : 0;
}

std::uint64_t PlaceOf(int descriptor) {
  const bool appends = (fcntl(descriptor, F_GETFL) & O_APPEND) != 0;
  struct stat status {};
  if (appends && fstat(descriptor, &status) == 0) {
    return static_cast<std::uint64_t>(status.st_size);
  }
  return static_cast<std::uint64_t>(std::max<off_t>(lseek(descriptor, 0, SEEK_CUR), 0));
}

std::string Absolute(const char* path) {
  const std::string given = path;
  const std::size_t slash = given.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : given.substr(0, slash);
  char real[PATH_MAX];
  if (realpath(folder.c_str(), real) == nullptr) {
    return given;
  }
  return std::string(real) + "/" + (slash == std::string::npos ? given : given.substr(slash + 1));
}

}  // namespace veyra::faults
