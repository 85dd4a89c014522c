#pragma once

#include <string>
#include <vector>

#include "logic/calendar_rows.h"

namespace veyra {

/// Those of that name, letter case counting only when it must to tell them apart. Throws
/// ValueError, naming the facilities there are, when there is none.
std::vector<Facility> FacilitiesNamed(const std::vector<Facility>& facilities,
                                      const std::string& name);

}  // namespace veyra
