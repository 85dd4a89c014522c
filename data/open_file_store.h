#pragma once

#include <memory>
#include <string>

#include "data/durability.h"
#include "data/file_store.h"
#include "data/store_access.h"
#include "data/store_description.h"
#include "data/waiting.h"

namespace veyra {

/// Opens an existing database file as OpenStore does.
std::unique_ptr<FileStore> OpenFileStore(const std::string& file_name, StoreAccess access,
                                         WaitPolicy policy = {});

/// Makes a new database file as CreateStore does.
std::unique_ptr<FileStore> CreateFileStore(const std::string& file_name, Durability durability,
                                           FileKind kind);

}  // namespace veyra
