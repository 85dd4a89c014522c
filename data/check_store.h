#pragma once

#include <string>
#include <vector>

namespace veyra {

/// What is wrong with an Access database file, a sentence each; empty when nothing is. The file is
/// only read, and may be in use. Throws DatabaseError when there is no such file, or when it is of
/// another kind or cannot be read at all.
std::vector<std::string> CheckDatabaseFile(const std::string& file_name);

}  // namespace veyra
