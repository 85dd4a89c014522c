#pragma once

#include <filesystem>
#include <memory>

#include "data/durability.h"
#include "data/store.h"
#include "data/store_description.h"

namespace veyra {

/// Makes a new database file without tables, of the kind that calendars are usually kept in unless
/// another is named, and opens it for reading and writing.
///
/// REQUIRES: not a calendar on a server, which data/postgres/postgres_store.h makes.
/// Throws DatabaseError when a file of that name is there already, which is left as it is, or when
/// the file cannot be made; then no file is left behind.
std::unique_ptr<Store> CreateStore(const std::filesystem::path& name,
                                   Durability durability = Durability::AtOnce,
                                   FileKind kind = FileKind::Sqlite);

}  // namespace veyra
