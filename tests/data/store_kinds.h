#pragma once

#include <memory>
#include <string>

#include "data/create_store.h"
#include "data/store.h"

namespace veyra {

/// A kind of database file, as the tests that every store must pass see it.
struct StoreKind {
  std::string Name;
  /// Makes a new file without tables and opens it.
  std::unique_ptr<Store> (*Create)(const std::string& file_name);
};

inline const StoreKind kSqliteKind{"Sqlite", CreateStore};

}  // namespace veyra
