#pragma once

#include "data/sqlite/reader.h"
#include "data/store_description.h"

namespace veyra::sqlite {

/// What the file says of itself, the rows of each table counted. Throws as Store does.
StoreDescription Describe(Reader& reader);

}  // namespace veyra::sqlite
