#pragma once

#include <string>

#include "data/postgres/catalogue.h"
#include "data/postgres/sql_text.h"

namespace veyra::postgres {

/// Makes a new SQLite file that holds what the calendar does at one moment; views are left out.
/// Throws DatabaseError when something bears that name or it cannot be made, Failure when the
/// server fails; then no part of the file is left.
void CopyToFile(Session& session, Catalogue& catalogue, const Place& place,
                const std::string& new_file);

}  // namespace veyra::postgres
