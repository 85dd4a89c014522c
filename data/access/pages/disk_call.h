#pragma once

#include <string>

#include "data/access/format/problem.h"
#include "data/posix_file.h"

namespace veyra::access {

/// Carries a call out. Where the disk fails it, throws FileProblem with what could not be done and
/// why.
template <typename Call>
auto DiskCall(const std::string& failure, const char* advice, const Call& call) {
  try {
    return call();
  } catch (const PosixFileError& error) {
    throw FileProblem(failure + ": " + error.what() + ".", advice);
  }
}

}  // namespace veyra::access
