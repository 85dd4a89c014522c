#pragma once

#include <memory>
#include <string>

#include "data/salvage.h"
#include "data/store.h"

namespace veyra {

/// The tables of a salvage as a store that is only read; whatever would change it throws
/// DatabaseError. `salvage` must outlive it. Tables are found by their names, rows come in the
/// order in which they were read, or rising by the columns that a query names.
std::unique_ptr<Store> MakeSalvagedStore(std::string file_name, const Salvage& salvage);

}  // namespace veyra
