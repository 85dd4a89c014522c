#pragma once

#include <filesystem>

#include "data/access/pages/page_file.h"

namespace veyra::access {

/// Makes a new file with the bytes of this one and, on top of them, those that a change that broke
/// off is yet to write. Throws FileProblem, and then leaves nothing behind.
/// REQUIRES: this program has the lock for reading.
void CopyFile(PageFile& file, const std::filesystem::path& new_file);

}  // namespace veyra::access
