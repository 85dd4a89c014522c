#include "data/open_file_store.h"

#include <utility>

#include "data/open_store.h"

namespace veyra {

std::unique_ptr<FileStore> OpenFileStore(const std::string& file_name, StoreAccess access,
                                         WaitPolicy policy) {
  auto store = OpenStore(file_name, access, std::move(policy));
  // Every store that OpenStore gives is one of a file.
  auto& file_store = dynamic_cast<FileStore&>(*store);
  store.release();
  return std::unique_ptr<FileStore>(&file_store);
}

}  // namespace veyra
