#pragma once

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace veyra {

/// The kinds of file by which bookings are exchanged with other programs.
enum class FileFormat { Ical, Csv };

/// Declares --format. `format` must outlive the parsing.
void AddFormat(CLI::App& app, std::optional<FileFormat>& format);

/// What the end of the name says: ".ics" or ".csv", in any letter case. Throws ValueError when it
/// says neither.
FileFormat FormatOfName(const std::string& file);

}  // namespace veyra
