#include "data/open_file_store.h"

#include <utility>

#include "data/create_store.h"
#include "data/open_store.h"

namespace veyra {

namespace {

/// Every store that OpenStore and CreateStore give is one of a file.
std::unique_ptr<FileStore> AsFileStore(std::unique_ptr<Store> store) {
  auto& file_store = dynamic_cast<FileStore&>(*store);
  static_cast<void>(store.release());
  return std::unique_ptr<FileStore>(&file_store);
}

}  // namespace

std::unique_ptr<FileStore> OpenFileStore(const std::string& file_name, StoreAccess access,
                                         WaitPolicy policy) {
  return AsFileStore(OpenStore(file_name, access, std::move(policy)));
}

std::unique_ptr<FileStore> CreateFileStore(const std::string& file_name, Durability durability,
                                           FileKind kind) {
  return AsFileStore(CreateStore(file_name, durability, kind));
}

}  // namespace veyra
