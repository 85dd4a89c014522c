#pragma once

#include <memory>
#include <string>

#include "data/store.h"

namespace veyra {

/// When what is written to a new database is on the disk, safe from a loss of power.
enum class Durability {
  AtOnce,     ///< When the call that wrote it returns, as a Store promises.
  WhenAsked,  ///< When the caller flushes the file after closing it: many times faster, for a file
              ///< that is of no use before it is whole.
};

/// Makes a new database file without tables, of the kind that calendars are kept in, and opens it
/// for reading and writing. A backslash in `file_name` counts as a slash.
///
/// Throws DatabaseError when a file of that name is there already, which is left as it is, or when
/// the file cannot be made; then no file is left behind.
std::unique_ptr<Store> CreateStore(const std::string& file_name,
                                   Durability durability = Durability::AtOnce);

}  // namespace veyra
