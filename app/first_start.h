#pragma once

#include <string>

#include "data/phrase.h"

namespace veyra {

/// Makes the application folder of a user who starts a program that was installed for all: with an
/// empty calendar, and path.txt that names the folder itself. Returns whether it made them; where
/// path.txt is there, or the folder is that of the program, it does nothing. Throws FileError.
bool MakeApplicationFolder(const std::string& app_folder, const std::string& program_folder);

/// What the user is told then.
Phrase WelcomeText(const std::string& app_folder);

}  // namespace veyra
