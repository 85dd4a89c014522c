#pragma once

#include <array>
#include <cstdlib>
#include <memory>
#include <string>

#include "data/create_store.h"
#include "data/store.h"

#ifdef VEYRA_TEST_SERVER
#include "data/calendar_link.h"
#include "data/postgres/postgres_store.h"
#include "tests/postgres/test_server.h"
#endif

namespace veyra {

using StoreKind = FileKind;

/// The kinds of file, for the tests of what becomes of files.
inline constexpr std::array kFileKinds{StoreKind::Sqlite, StoreKind::Access};

/// Every kind, for the tests of what all stores have in common.
#ifdef VEYRA_TEST_SERVER
inline constexpr std::array kAllStoreKinds{StoreKind::Sqlite, StoreKind::Access,
                                           StoreKind::Postgres};
#else
inline constexpr std::array kAllStoreKinds = kFileKinds;
#endif

inline const char* NameOf(StoreKind kind) {
  switch (kind) {
    case StoreKind::Sqlite:
      return "Sqlite";
    case StoreKind::Access:
      return "Access";
    case StoreKind::Postgres:
      return "Postgres";
  }
  return "";
}

/// The kind that this run of the tests is for: every test over a calendar runs once for each.
inline StoreKind TestedStoreKind() {
  const char* const named = std::getenv("VEYRA_TEST_STORE");
  const std::string kind = named == nullptr ? "sqlite" : named;
  if (kind == "postgres") {
    return StoreKind::Postgres;
  }
  return kind == "access" ? StoreKind::Access : StoreKind::Sqlite;
}

/// Makes a calendar without tables on the tests' server, and a link of that name to it.
inline std::unique_ptr<Store> CreateStoreOnServer([[maybe_unused]] const std::string& file_name) {
#ifdef VEYRA_TEST_SERVER
  const CalendarLink link = TestDatabase::Get().NewLink();
  WriteCalendarLink(file_name, link);
  return postgres::CreateSharedCalendar(link, file_name)->Save();
#else
  return nullptr;
#endif
}

/// Makes a new file of that kind, without tables.
inline std::unique_ptr<Store> CreateStoreOfKind(StoreKind kind, const std::string& file_name) {
  if (kind == StoreKind::Postgres) {
    return CreateStoreOnServer(file_name);
  }
  return CreateStore(file_name, Durability::AtOnce, kind);
}

}  // namespace veyra
