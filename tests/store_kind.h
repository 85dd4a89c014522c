#pragma once

#include <array>
#include <cstdlib>
#include <memory>
#include <string>

#include "data/create_store.h"
#include "data/store.h"

namespace veyra {

using StoreKind = FileKind;

/// Every kind, for the tests of what all stores have in common.
inline constexpr std::array kAllStoreKinds{StoreKind::Sqlite, StoreKind::Access};

inline const char* NameOf(StoreKind kind) {
  switch (kind) {
    case StoreKind::Sqlite:
      return "Sqlite";
    case StoreKind::Access:
      return "Access";
  }
  return "";
}

/// The kind that this run of the tests is for: every test over a calendar runs once for each.
inline StoreKind TestedStoreKind() {
  const char* kind = std::getenv("VEYRA_TEST_STORE");
  return kind != nullptr && std::string(kind) == "access" ? StoreKind::Access : StoreKind::Sqlite;
}

/// Makes a new file of that kind, without tables.
inline std::unique_ptr<Store> CreateStoreOfKind(StoreKind kind, const std::string& file_name) {
  return CreateStore(file_name, Durability::AtOnce, kind);
}

}  // namespace veyra
