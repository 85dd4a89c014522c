#pragma once

#include <string>

#include "data/postgres/failure.h"

namespace veyra::postgres {

/// Throws what the operator is told of a failure: the kind of data/errors.h that it is. `table` is
/// the one that was worked on, or empty.
[[noreturn]] void ThrowExplained(const Failure& failure, const std::string& file,
                                 const std::string& table);

}  // namespace veyra::postgres
