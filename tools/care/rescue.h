#pragma once

#include <filesystem>
#include <string>

#include "data/salvage.h"
#include "tools/copy_plan.h"

namespace veyra {

/// What became of a damaged file.
struct Rescued {
  std::filesystem::path File;  ///< The new database.
  Salvage Read;                ///< What it holds, and what could not be read.
};

/// Makes of a damaged file a new one of the same kind in `folder`, "Calendar.mdb", or "Veyra.mdb"
/// for a guest database: with every table and row that can still be read, each of them compared,
/// and the tables that a calendar needs. The damaged file is only read. The new one is whole and
/// safe from a loss of power, or there is none. Throws DatabaseError when nothing can be read;
/// FileError when there is such a file in the folder already.
Rescued RescueFile(const std::filesystem::path& damaged, const std::filesystem::path& folder,
                   const CopyObserver& observer);

}  // namespace veyra
