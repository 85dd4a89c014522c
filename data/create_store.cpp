#include "data/create_store.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "data/access/access_store.h"
#include "data/access/write/create_file.h"
#include "data/errors.h"
#include "data/file_name.h"
#include "data/open_store.h"
#include "data/sqlite/sqlite_store.h"

namespace veyra {

namespace {

/// Makes the file in one step that fails when anything bears its name, a broken link included.
void MakeEmptyFile(const std::string& file) {
  const int descriptor = open(file.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666);
  if (descriptor >= 0) {
    close(descriptor);
    return;
  }
  if (errno == EEXIST) {
    throw DatabaseError({file, "This file is there already; nothing was made.",
                         "Choose another folder, or move the file away first."});
  }
  throw DatabaseError({file,
                       "The file cannot be made: " + std::generic_category().message(errno) + ".",
                       "Check that the folder is there and that you may make files in it."});
}

void MakeFile(const std::string& file, FileKind kind) {
  if (kind == FileKind::Access) {
    CreateAccessFile(file);
  } else {
    MakeEmptyFile(file);
  }
}

std::unique_ptr<Store> OpenNew(const std::string& file, Durability durability, FileKind kind) {
  if (kind == FileKind::Access) return OpenNewAccessStore(file, durability);
  return sqlite::OpenNew(file, kStoreTimeout, durability == Durability::AtOnce);
}

}  // namespace

std::unique_ptr<Store> CreateStore(const std::string& file_name, Durability durability,
                                   FileKind kind) {
  const std::string file = std::filesystem::absolute(NativePath(file_name)).string();
  MakeFile(file, kind);
  try {
    return OpenNew(file, durability, kind);
  } catch (const Error&) {
    unlink(file.c_str());
    throw;
  }
}

}  // namespace veyra
