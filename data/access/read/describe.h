#pragma once

#include <string>

#include "data/access/format/file_header.h"
#include "data/access/read/table_layout.h"
#include "data/store_description.h"

namespace veyra::access {

/// What a file's header tells of it; no tables yet.
StoreDescription DescribeFile(const FileHeader& header);

/// What a table's definition tells of it.
TableDescription DescribeTable(const std::string& name, const TableLayout& layout, Format version);

}  // namespace veyra::access
