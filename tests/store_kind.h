#pragma once

#include <memory>
#include <string>

#include "data/create_store.h"
#include "data/store.h"

namespace veyra {

/// The kinds of database file that a calendar may be kept in.
enum class StoreKind { Sqlite };

/// The kind that this run of the tests is for.
inline StoreKind TestedStoreKind() {
  return StoreKind::Sqlite;
}

/// Makes a new file of that kind, without tables.
inline std::unique_ptr<Store> CreateStoreOfKind(StoreKind, const std::string& file_name) {
  return CreateStore(file_name);
}

}  // namespace veyra
