#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "data/store.h"
#include "data/waiting.h"

namespace veyra::sqlite {

/// Opens a SQLite file for reading and writing. While it is open a write-ahead log may stand beside
/// it; closing puts all into the one file. REQUIRES: the file exists; its name is absolute.
std::unique_ptr<Store> OpenReadWrite(const std::string& file, const WaitPolicy& policy);

/// The same, for as long as nobody else has the file open; a log it was left with is put into the
/// file by closing it. Throws DatabaseBusyError when another program has it open, as far as that
/// shows: one that uses no write-ahead log shows itself only while it reads or writes.
std::unique_ptr<Store> OpenExclusive(const std::string& file, const WaitPolicy& policy);

/// Makes a database without tables of an empty file, and opens it like OpenReadWrite. When it need
/// not be `durable`, nothing is flushed to the disk, neither then nor when it is closed.
/// REQUIRES: the file exists and is empty; its name is absolute.
std::unique_ptr<Store> OpenNew(const std::string& file, const WaitPolicy& policy, bool durable);

/// The first bytes of a file of any kind; a shorter one is filled up with zero bytes.
/// Read in SQLite's own way: to open and close a file on this platform lets go of every lock that
/// the process holds on it, and it may hold some by another store.
std::string FirstBytes(const std::string& file, std::size_t count);

}  // namespace veyra::sqlite
