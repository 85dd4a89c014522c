#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace veyra {

/// The file that an input is read from, in memory where that can be; it goes with the process.
const std::string& InputFile();

void WriteInputFile(const std::uint8_t* data, std::size_t size);

}  // namespace veyra
