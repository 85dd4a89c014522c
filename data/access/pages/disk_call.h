#pragma once

#include "data/access/format/problem.h"
#include "data/posix_file.h"

namespace veyra::access {

/// Carries a call out. Where the disk fails it, throws the FileProblem that `problem` makes of the
/// reason, a phrase without a full stop.
template <typename Problem, typename Call>
auto DiskCall(const Problem& problem, const Call& call) {
  try {
    return call();
  } catch (const PosixFileError& error) {
    throw problem(error.Reason());
  }
}

}  // namespace veyra::access
