#include "tools/companion/parser_words.h"

#include <CLI/CLI.hpp>
#include <optional>
#include <utility>

#include "data/text.h"

namespace veyra {
namespace {

/// Of what stands beside the name of an option.
constexpr std::size_t kWidth = 80;

using TwoParts = std::pair<std::string, std::string>;

/// What stands before and after `words`; nothing where they do not occur.
std::optional<TwoParts> PartsAround(const std::string& words, const std::string& sentence) {
  const std::size_t place = sentence.find(words);
  return place == std::string::npos
             ? std::nullopt
             : std::optional(
                   TwoParts(sentence.substr(0, place), sentence.substr(place + words.size())));
}

std::string WrappedLine(const std::string& line, std::size_t width) {
  if (CharacterCount(line) <= width) {
    return line;
  }
  const std::string beginning = FirstCharacters(line, width + 1);
  const std::size_t blank = beginning.rfind(' ');
  if (blank == std::string::npos || blank == 0) {
    return line;
  }
  return line.substr(0, blank) + '\n' + WrappedLine(line.substr(blank + 1), width);
}

/// The parser's own words, of which it makes the help.
std::vector<std::pair<const char*, Phrase>> Labels() {
  return {{"Usage", Phrase::Tr("Usage")},           {"OPTIONS", Phrase::Tr("OPTIONS")},
          {"SUBCOMMAND", Phrase::Tr("SUBCOMMAND")}, {"Positionals", Phrase::Tr("Positionals")},
          {"REQUIRED", Phrase::Tr("REQUIRED")},     {"Needs", Phrase::Tr("Needs")},
          {"Excludes", Phrase::Tr("Excludes")}};
}

/// What the parser says of the options that it adds itself.
Phrase OfEveryCommand(const CLI::App& app, const CLI::Option* option) {
  if (option == app.get_help_ptr()) {
    return Phrase::Tr("Print this help message and exit");
  }
  if (option == app.get_version_ptr()) {
    return Phrase::Tr("Display program version information and exit");
  }
  return option->get_description();
}

}  // namespace

std::string Meaning(const Phrase& meaning) {
  return meaning.English();
}

Phrase Examples(const std::vector<std::string>& examples) {
  Phrase lines;
  for (const std::string& example : examples) {
    lines += "\n" + Phrase::Tr("Example: %1", example);
  }
  return lines;
}

std::string Wrapped(const std::string& text, std::size_t width) {
  const std::size_t end = text.find('\n');
  return end == std::string::npos ? WrappedLine(text, width)
                                  : WrappedLine(text.substr(0, end), width) + '\n' +
                                        Wrapped(text.substr(end + 1), width);
}

Phrase WordsOf(const std::string& sentence) {
  if (const auto parts = PartsAround("The following argument was not expected: ", sentence)) {
    return Phrase::Tr("The following argument was not expected: %1", parts->second);
  }
  if (const auto parts = PartsAround("The following arguments were not expected: ", sentence)) {
    return Phrase::Tr("The following arguments were not expected: %1", parts->second);
  }
  if (const auto parts = PartsAround(" excludes ", sentence)) {
    return Phrase::Tr("%1 excludes %2", parts->first, parts->second);
  }
  if (const auto parts = PartsAround(" requires ", sentence)) {
    return Phrase::Tr("%1 requires %2", parts->first, parts->second);
  }
  if (const auto parts = PartsAround("Could not convert: ", sentence)) {
    return Phrase::Tr("Could not convert: %1", parts->second);
  }
  if (const auto parts = PartsAround(" not in ", sentence)) {
    return Phrase::Tr("%1 not in %2", parts->first, parts->second);
  }
  if (const auto parts = PartsAround(": it is empty", sentence)) {
    return Phrase::Tr("%1: it is empty", parts->first) + parts->second;
  }
  if (sentence == "A subcommand is required") {
    return Phrase::Tr("A subcommand is required");
  }
  if (const auto parts = PartsAround(" is required", sentence)) {
    return Phrase::Tr("%1 is required", parts->first) + parts->second;
  }
  return sentence;
}

void TranslateHelp(CLI::App& app, const Phrase::Translator& language) {
  for (const auto& [word, label] : Labels()) {
    app.get_formatter()->label(word, label.TranslatedBy(language));
  }
  app.group(Phrase::Tr("Subcommands").TranslatedBy(language));
  for (CLI::Option* const option : app.get_options()) {
    option->description(Wrapped(language(OfEveryCommand(app, option).English()), kWidth));
    option->group(Phrase::Tr("Options").TranslatedBy(language));
  }
}

}  // namespace veyra
