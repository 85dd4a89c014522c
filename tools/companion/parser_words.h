#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "data/phrase.h"

namespace CLI {
class App;
}

namespace veyra {

/// What an option or an argument means, as the parser takes it; the help shows it translated.
std::string Meaning(const Phrase& meaning);

/// Lines that follow the details of a command.
Phrase Examples(const std::vector<std::string>& examples);

/// The lines of a text, those of more than `width` characters broken between words.
std::string Wrapped(const std::string& text, std::size_t width);

/// What the parser says of a command line that it does not understand: translated where the
/// sentence is known here, and in English always as the parser says it.
Phrase WordsOf(const std::string& sentence);

/// Translates the help of a command, or of the whole program: its headings, and what Meaning
/// marked.
void TranslateHelp(CLI::App& app, const Phrase::Translator& language);

}  // namespace veyra
