#pragma once

#include <string>

namespace veyra {

/// Makes a new Access 2000 database without tables of its own; they are made with
/// Store::CreateTable. Throws DatabaseError when a file of that name is there, or when it cannot be
/// written; nothing is left then.
void CreateAccessFile(const std::string& file_name);

}  // namespace veyra
