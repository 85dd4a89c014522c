#pragma once

#include <string>

namespace veyra {

/// Makes an empty file. Throws DatabaseError when anything bears that name, a broken link included,
/// or when the file cannot be made.
void MakeEmptyFile(const std::string& file);

}  // namespace veyra
