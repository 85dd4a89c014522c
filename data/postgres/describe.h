#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/phrase.h"
#include "data/postgres/catalogue.h"
#include "data/postgres/sql_text.h"
#include "data/store_description.h"

namespace veyra::postgres {

/// What is in the calendar's schema. Throws Failure, as those below do.
StoreDescription Describe(Session& session, Catalogue& catalogue, const Place& place);

/// The highest number that the table has given; 0 when it gives none, or has given none.
std::int64_t LastNumber(Session& session, const Place& place, const Table& table);

/// What is wrong with the calendar's own structure, one sentence each. Reads every row.
std::vector<Phrase> Verify(Session& session, Catalogue& catalogue, const Place& place);

}  // namespace veyra::postgres
