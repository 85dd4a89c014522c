#pragma once

#include <memory>
#include <string>

#include "data/errors.h"
#include "data/store.h"

namespace veyra {

/// A store in the place of one whose file could not be opened anew. `why` is that failure; every
/// member but FileName throws it as a FileReplacedError.
std::unique_ptr<Store> MakeLostStore(const std::string& file, const Report& why);

}  // namespace veyra
