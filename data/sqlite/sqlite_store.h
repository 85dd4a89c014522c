#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "data/store.h"

namespace veyra::sqlite {

/// Opens a SQLite file for reading and writing. While it is open a write-ahead log may stand beside
/// it; closing puts all into the one file. REQUIRES: the file exists; its name is absolute.
std::unique_ptr<Store> OpenReadWrite(const std::string& file, std::chrono::milliseconds timeout);

/// Makes a database without tables of an empty file, and opens it like OpenReadWrite. When it need
/// not be `durable`, nothing is flushed to the disk, neither then nor when it is closed.
/// REQUIRES: the file exists and is empty; its name is absolute.
std::unique_ptr<Store> OpenNew(const std::string& file, std::chrono::milliseconds timeout,
                               bool durable);

/// Opens a SQLite file for reading only: nothing is written to it or beside it.
/// REQUIRES: the file exists; its name is absolute.
std::unique_ptr<Store> OpenReadOnly(const std::string& file, std::chrono::milliseconds timeout);

}  // namespace veyra::sqlite
