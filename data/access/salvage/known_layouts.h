#pragma once

#include <string>
#include <utility>
#include <vector>

#include "data/access/read/table_layout.h"

namespace veyra::access {

/// The table of all tables.
inline constexpr const char* kCatalogueName = "MSysObjects";

/// Definitions by the names of their tables.
using Layouts = std::vector<std::pair<std::string, TableLayout>>;

/// Those of a sound file, the table of all tables included. Throws FileProblem.
Layouts ReadModels(const std::string& file_name);

/// The definition of that name, or nullptr.
const TableLayout* Find(const Layouts& layouts, const std::string& name);

std::vector<std::string> NamesOf(const TableLayout& layout);

/// Whether a table has a column of each name that `model` has.
bool HasAllColumns(const TableLayout& layout, const TableLayout& model);

}  // namespace veyra::access
