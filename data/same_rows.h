#pragma once

#include "data/store.h"

namespace veyra {

/// Whether a query gives the very rows that it gave before, in the same order.
bool GivesTheSame(RowSource& source, const std::vector<Row>& rows);

}  // namespace veyra
