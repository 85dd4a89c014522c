#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "help/chm_archive.h"

namespace veyra {

inline const std::filesystem::path kHelpFolder = VEYRA_HELP_FOLDER;
inline const std::filesystem::path kHelpFileName = kHelpFolder / "VeyraCalendar.chm";
inline const std::filesystem::path kReader = VEYRA_HELP_READER;

inline std::string FileBytes(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// A number of `size` bytes, lowest first.
inline std::string NumberBytes(std::uint32_t number, int size) {
  std::string bytes;
  for (int i = 0; i < size; ++i) {
    bytes += static_cast<char>(number >> (8 * i) & 0xFFU);
  }
  return bytes;
}

/// The tables /#IVB and /#STRINGS that map context numbers to these names.
inline std::vector<HelpObject> ContextTables(
    const std::vector<std::pair<std::uint32_t, std::string>>& contexts) {
  std::string pairs;
  std::string strings(1, '\0');
  for (const auto& [number, name] : contexts) {
    pairs += NumberBytes(number, 4) + NumberBytes(static_cast<std::uint32_t>(strings.size()), 4);
    strings += name + '\0';
  }
  return {{"/#IVB", NumberBytes(static_cast<std::uint32_t>(pairs.size()), 4) + pairs},
          {"/#STRINGS", strings}};
}

/// An entry of table /#SYSTEM.
inline std::string SystemEntry(std::uint32_t code, const std::string& value) {
  return NumberBytes(code, 2) + NumberBytes(static_cast<std::uint32_t>(value.size()), 2) + value;
}

}  // namespace veyra
