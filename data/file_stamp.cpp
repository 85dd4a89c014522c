#include "data/file_stamp.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace veyra {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;

FileStamp StampFrom(const struct stat& status) {
  return {status.st_dev, status.st_ino, status.st_size,
          status.st_mtim.tv_sec * kSecond + status.st_mtim.tv_nsec};
}

}  // namespace

std::optional<FileStamp> StampOf(const std::string& file) {
  return StampIn(AT_FDCWD, file);
}

std::optional<FileStamp> StampOf(int descriptor) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0) {
    return std::nullopt;
  }
  return StampFrom(status);
}

std::optional<FileStamp> StampIn(int folder, const std::string& name) {
  struct stat status {};
  if (fstatat(folder, name.c_str(), &status, 0) != 0) {
    return std::nullopt;
  }
  return StampFrom(status);
}

}  // namespace veyra
