#pragma once

#include <string>

struct sqlite3;
struct sqlite3_file;

namespace veyra::sqlite {

/// Throws what is true of a file of which a result code says that it is damaged: reads it from its
/// beginning to its end and has its structure checked. Only when that finds it damaged the advice
/// is to go back to a copy. `location` and `file` are as for Database; `open_file` is the file.
[[noreturn]] void ThrowForDamage(const std::string& location, const std::string& file, int code,
                                 sqlite3_file* open_file);

/// Whether the call that has just given this code failed because the disk is full, which SQLite
/// itself tells of some calls only.
bool IsForFullDisk(sqlite3* handle, const std::string& file, int code);

}  // namespace veyra::sqlite
