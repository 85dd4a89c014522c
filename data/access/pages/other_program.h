#pragma once

#include <filesystem>

namespace veyra::access {

/// Throws FileProblem, saying who where that can be told, when a lock file beside the database says
/// (in any letter case) that another program has it open: "NAME.ldb", 64 bytes for each user, the
/// name of the computer and that of the user, 32 bytes each; or "NAME.laccdb".
void CheckNobodyElse(const std::filesystem::path& database);

}  // namespace veyra::access
