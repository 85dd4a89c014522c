#pragma once

#include <array>
#include <memory>
#include <string>

#include "data/create_store.h"
#include "data/store.h"

namespace veyra {

/// The kinds of database file that a calendar may be kept in.
enum class StoreKind { Sqlite };

/// Every kind, for the tests of what all stores have in common.
inline constexpr std::array kAllStoreKinds{StoreKind::Sqlite};

inline const char* NameOf(StoreKind kind) {
  switch (kind) {
    case StoreKind::Sqlite:
      return "Sqlite";
  }
  return "";
}

/// The kind that this run of the tests is for.
inline StoreKind TestedStoreKind() {
  return StoreKind::Sqlite;
}

/// Makes a new file of that kind, without tables.
inline std::unique_ptr<Store> CreateStoreOfKind(StoreKind, const std::string& file_name) {
  return CreateStore(file_name);
}

}  // namespace veyra
