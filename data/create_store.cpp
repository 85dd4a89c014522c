#include "data/create_store.h"

#include <unistd.h>

#include <filesystem>

#include "data/access/access_store.h"
#include "data/access/write/create_file.h"
#include "data/errors.h"
#include "data/new_file.h"
#include "data/sqlite/sqlite_store.h"
#include "data/waiting.h"

namespace veyra {

namespace {

void MakeFile(const std::string& file, FileKind kind) {
  if (kind == FileKind::Access) {
    CreateAccessFile(file);
  } else {
    MakeEmptyFile(file);
  }
}

std::unique_ptr<Store> OpenNew(const std::string& file, Durability durability, FileKind kind) {
  if (kind == FileKind::Access) {
    return OpenNewAccessStore(file, durability);
  }
  return sqlite::OpenNew(file, kStoreTimeout, durability == Durability::AtOnce);
}

}  // namespace

std::unique_ptr<Store> CreateStore(const std::filesystem::path& name, Durability durability,
                                   FileKind kind) {
  const std::string file = std::filesystem::absolute(name).string();
  MakeFile(file, kind);
  try {
    return OpenNew(file, durability, kind);
  } catch (const Error&) {
    unlink(file.c_str());
    throw;
  }
}

}  // namespace veyra
