#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace veyra {

/// The kinds of database file that a calendar may be kept in.
enum class FileKind { Sqlite, Access };

}  // namespace veyra
