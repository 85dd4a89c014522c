#include "data/open_file_store.h"

#include <utility>

#include "data/open_store.h"

namespace veyra {

std::unique_ptr<FileStore> OpenFileStore(const std::string& file_name, StoreAccess access,
                                         Patience patience) {
  auto store = OpenStore(file_name, access, std::move(patience));
  // Every store that OpenStore gives is one of a file.
  auto& file_store = dynamic_cast<FileStore&>(*store);
  store.release();
  return std::unique_ptr<FileStore>(&file_store);
}

}  // namespace veyra
