#pragma once

#include <memory>
#include <string>

#include "data/file_store.h"
#include "data/store_access.h"
#include "data/waiting.h"

namespace veyra {

/// Opens an existing database file as OpenStore does.
std::unique_ptr<FileStore> OpenFileStore(const std::string& file_name, StoreAccess access,
                                         WaitPolicy policy = {});

}  // namespace veyra
