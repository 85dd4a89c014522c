#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace veyra {

/// The largest file that is read, in bytes.
inline constexpr std::size_t kLargestFile = 50U << 20U;

/// The bytes of a text file. Throws FileError when there is no such file, when it is no ordinary
/// one, larger than kLargestFile, or cannot be read.
std::string ReadTextFile(const std::filesystem::path& file);

/// Makes a file that appears under its name whole and safe from a loss of power, or not at all.
/// Throws FileError: when it cannot be written, and when there is one already unless `replace`;
/// then that one is what it was.
void WriteTextFile(const std::filesystem::path& file, const std::string& text, bool replace);

}  // namespace veyra
