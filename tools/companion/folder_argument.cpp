#include "tools/companion/folder_argument.h"

#include <CLI/CLI.hpp>

#include "tools/companion/parser_words.h"

namespace veyra {

void AddRequiredName(CLI::App& app, const std::string& name, std::string& value,
                     const Phrase& meaning) {
  const CLI::Validator not_empty(
      [](const std::string& text) { return text.empty() ? "it is empty" : std::string(); }, "");
  app.add_option(name, value, Meaning(meaning))->type_name("")->required()->check(not_empty);
}

}  // namespace veyra
