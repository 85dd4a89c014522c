#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/faults/disk.h"
#include "tests/faults/office.h"
#include "tests/temp_folder.h"

namespace veyra::faults {

/// What became of a program that was run apart.
struct Outcome {
  bool WasKilled = false;
  int Saved = 0;           ///< Changes that were reported as saved before the failure, if any.
  std::string Error;       ///< What the operator was told of a failure.
  std::string Afterwards;  ///< What a booking after the failure came to: "saved" or its report.
  std::string LastBox;
  Seen Disk;  ///< Without the changes.
};

/// Starts on the calendar of the folder and does the action, in a process of its own, on the disk
/// of `plan`. After a failure the disk is whole again and one more booking is made, of
/// "Afterwards".
Outcome RunApart(const Action& action, const std::string& folder, const Plan& plan);

/// What the calendar holds before the action and after each of its changes.
std::vector<std::string> StatesOf(const Action& action, const ReadyFolder& ready);

}  // namespace veyra::faults
