#pragma once

#include <vector>

#include "tools/calendar_rows.h"
#include "tools/care/finding.h"

namespace veyra {

/// Two facilities of one name; none, or several, that are marked as the active one.
Findings CheckFacilities(const std::vector<Facility>& facilities);

/// Settings without row 1, and colours that are no number. A calendar that was never started has no
/// Settings yet, and nothing wrong with them. Throws DatabaseError.
Findings CheckSettings(Store& store);

}  // namespace veyra
