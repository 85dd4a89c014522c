#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace veyra {

/// A record of a CSV file.
struct CsvRecord {
  std::size_t Line = 0;  ///< In which line of the file it begins, from 1.
  std::vector<std::string> Cells;
};

/// Reads CSV as RFC 4180 has it; lines may also end in a line feed alone, and a byte order mark is
/// passed over. Empty lines are left out. Throws ValueError, naming the line, when a quoted cell
/// has no end or is followed by anything but a comma, and when the text is not UTF-8.
std::vector<CsvRecord> ParseCsv(std::string_view text);

/// A record as a line, its end included. Cells with a comma, a quote or a line break are quoted.
std::string CsvLine(const std::vector<std::string>& cells);

/// The text as a cell that no spreadsheet takes for a formula: with an apostrophe before it when it
/// begins with one of = + - @, a tab or a carriage return, or with such apostrophes before.
std::string Defused(const std::string& text);

/// The text that Defused was given.
std::string Undefused(const std::string& cell);

}  // namespace veyra
