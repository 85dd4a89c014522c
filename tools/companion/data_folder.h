#pragma once

#include <filesystem>
#include <string>

namespace CLI {
class App;
}

namespace veyra {

/// Declares the argument FOLDER, which need not be given. It is read into `folder`, which must
/// outlive the parsing.
void AddDataFolder(CLI::App& app, std::string& folder);

/// The calendar of the folder that was named or, when none was, of the one that the first line of
/// path.txt in `app_folder` names. Throws FileError when that cannot be read.
std::filesystem::path CalendarFile(const std::string& folder, const std::string& app_folder);

}  // namespace veyra
