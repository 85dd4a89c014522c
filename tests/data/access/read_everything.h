#pragma once

#include <cstddef>
#include <filesystem>

namespace veyra {

/// Reads every column of every row of every table of an Access file, and in a file that may be
/// written to makes a change in each table, which is not written. What the file is refused for is
/// passed over; any other failure leaves. Returns how many cells were read.
std::size_t ReadEverything(const std::filesystem::path& file);

}  // namespace veyra
