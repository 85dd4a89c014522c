#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace veyra {

/// The platform's form of a file name as this program writes it: every backslash is a slash.
/// "/srv/desk\Calendar.mdb" is the file Calendar.mdb in /srv/desk.
std::filesystem::path NativePath(std::string_view file_name);

}  // namespace veyra
