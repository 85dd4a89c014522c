#pragma once

#include <string>

namespace veyra {

/// The folder for what programs keep for this user: $XDG_DATA_HOME, else ~/.local/share. Empty when
/// neither is known.
std::string UserDataHome();

/// The application folder, in which path.txt lies: that of the program itself, or, where the
/// program was installed for all users, "veyra-calendar" in `data_home`. It is installed for all
/// when it lies below /usr or this user may not write into its folder, and no path.txt that holds
/// for everybody lies beside it. Without a `data_home` it is the program's own folder in any case.
std::string ApplicationFolder(const std::string& program_folder, const std::string& data_home);

}  // namespace veyra
