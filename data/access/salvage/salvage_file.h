#pragma once

#include <string>

#include "data/salvage.h"

namespace veyra::access {

/// What SalvageFile does with an Access file. Throws FileProblem, PosixFileError.
Salvage SalvageAccessFile(const std::string& file_name, const SalvageModels& models);

}  // namespace veyra::access
