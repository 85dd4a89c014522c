#pragma once

#include <string>

#include "data/phrase.h"

namespace CLI {
class App;
}

namespace veyra {

/// Declares the one argument that a command cannot do without: the name of a folder or file, which
/// must not be empty. It is read into `value`, which must outlive the parsing.
void AddRequiredName(CLI::App& app, const std::string& name, std::string& value,
                     const Phrase& meaning);

}  // namespace veyra
