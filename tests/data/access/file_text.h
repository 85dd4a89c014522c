#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "data/access/pages/page_file.h"
#include "data/access/read/cell.h"
#include "data/access/read/table_image.h"

namespace veyra {

/// A cell as the tables of expected rows write it: \N for null, backslash escapes for a tab, a
/// line feed, a carriage return and a backslash.
std::string CellText(const access::Cell& cell);

/// All rows of a table, a line a row, the cells separated by tabs.
std::vector<std::string> TableText(access::PageFile& file, const std::string& table);
std::vector<std::string> TableText(const std::filesystem::path& file, const std::string& table);

/// The names of all columns, separated by tabs.
std::string ColumnsText(access::PageFile& file, const std::string& table);

/// The lines of a text file.
std::vector<std::string> Lines(const std::filesystem::path& file);

}  // namespace veyra
