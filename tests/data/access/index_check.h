#pragma once

#include <string>

namespace veyra {

/// What is wrong with the indexes of a table of an Access file: entries that are missing, out of
/// order, or of rows that are not there; empty when all is right. Indexes on texts are left out.
std::string IndexFaults(const std::string& file, const std::string& table);

}  // namespace veyra
