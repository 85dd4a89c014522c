#pragma once

#include <cstdint>
#include <string>

#include "data/sqlite/reader.h"
#include "data/store_description.h"

namespace veyra::sqlite {

/// What the file says of itself, the rows of each table counted. Throws as Store does.
StoreDescription Describe(Reader& reader);

/// What FileStore::LastNumber says.
std::int64_t LastNumber(Reader& reader, const std::string& table);

/// What it says of one table or view.
TableDescription DescribeTable(Reader& reader, const std::string& name);

}  // namespace veyra::sqlite
