#pragma once

#include "tools/care/finding.h"

namespace veyra {

/// The changes that mend these findings, those of one row in one.
std::vector<RowChange> MendingOf(const Findings& findings);

}  // namespace veyra
