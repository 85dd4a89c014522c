#pragma once

#include <string>

namespace CLI {
class App;
}

namespace veyra {

/// Declares the one argument that a command cannot do without: the name of a folder or file, which
/// must not be empty. It is read into `value`, which must outlive the parsing.
void AddRequiredName(CLI::App& app, const std::string& name, std::string& value,
                     const std::string& meaning);

}  // namespace veyra
