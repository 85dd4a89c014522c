#include "tools/companion/folder_argument.h"

#include <CLI/CLI.hpp>

namespace veyra {

void AddRequiredName(CLI::App& app, const std::string& name, std::string& value,
                     const std::string& meaning) {
  const CLI::Validator not_empty(
      [](const std::string& text) { return text.empty() ? "it is empty" : std::string(); }, "");
  app.add_option(name, value, meaning)->type_name("")->required()->check(not_empty);
}

}  // namespace veyra
