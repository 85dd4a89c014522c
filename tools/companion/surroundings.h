#pragma once

#include <string>

#include "data/date.h"
#include "tools/copy_plan.h"

namespace veyra {

/// When and where veyra-data runs. Handed in, so that a test can say.
struct Surroundings {
  DateTime Now;           ///< The local time.
  std::string AppFolder;  ///< The folder in which path.txt lies.
  CopyObserver Watch;     ///< Told how far long work has come.
};

}  // namespace veyra
