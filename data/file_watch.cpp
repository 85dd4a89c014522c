#include "data/file_watch.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

#include "data/store_errors.h"

namespace veyra {

FileWatch::FileWatch(const std::string& file)
    : file_(file),
      name_(std::filesystem::path(file).filename().string()),
      opened_(StampOf(file).value_or(FileStamp())),
      folder_(open(std::filesystem::path(file).parent_path().c_str(),
                   O_PATH | O_DIRECTORY | O_CLOEXEC)) {}

FileWatch::~FileWatch() {
  if (folder_ >= 0) {
    close(folder_);
  }
}

std::string FileWatch::NameInFolder() const {
  const auto named = StampOf(std::filesystem::path(file_).parent_path().string());
  const auto open = StampOf(folder_);
  if (!open || (named && named->IsSameFile(*open))) {
    return file_;
  }
  return "/proc/self/fd/" + std::to_string(folder_) + "/" + name_;
}

FileWatch::Place FileWatch::Look() const {
  if (const auto named = StampOf(file_)) {
    return named->IsSameFile(opened_) ? Place::Here : Place::Replaced;
  }
  const auto in_folder = StampIn(folder_, name_);
  return in_folder && in_folder->IsSameFile(opened_) ? Place::Here : Place::Gone;
}

void FileWatch::CheckBeforeReading() const {
  if (Look() == Place::Replaced) {
    throw FileReplaced(file_);
  }
}

void FileWatch::CheckBeforeChange() const {
  switch (Look()) {
    case Place::Here:
      return;
    case Place::Replaced:
      throw FileReplaced(file_);
    case Place::Gone:
      throw FileGone(file_);
  }
}

}  // namespace veyra
