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

/// What stands before and after the last `words`; nothing where they do not occur.
std::optional<TwoParts> PartsAround(const std::string& words, const std::string& sentence) {
  const std::size_t place = sentence.rfind(words);
  return place == std::string::npos
             ? std::nullopt
             : std::optional(
                   TwoParts(sentence.substr(0, place), sentence.substr(place + words.size())));
}

/// What stands between them; nothing where the sentence has another beginning or end.
std::optional<std::string> Between(const std::string& beginning, const std::string& end,
                                   const std::string& sentence) {
  const bool fits = sentence.size() >= beginning.size() + end.size() &&
                    sentence.starts_with(beginning) && sentence.ends_with(end);
  return fits ? std::optional(sentence.substr(beginning.size(),
                                              sentence.size() - beginning.size() - end.size()))
              : std::nullopt;
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

/// Of sentences that end in what was typed, which may be anything.
std::optional<Phrase> OfTheLine(const std::string& sentence) {
  if (const auto typed = Between("The following argument was not expected: ", "", sentence)) {
    return Phrase::Tr("The following argument was not expected: %1", *typed);
  }
  if (const auto typed = Between("The following arguments were not expected: ", "", sentence)) {
    return Phrase::Tr("The following arguments were not expected: %1", *typed);
  }
  if (const auto typed = Between("Could not convert: ", "", sentence)) {
    return Phrase::Tr("Could not convert: %1", *typed);
  }
  return std::nullopt;
}

/// Of how many values an option was given.
std::optional<Phrase> OfNumber(const std::string& option, const std::string& said) {
  if (const auto numbers = Between("At Most ", "", said)) {
    if (const auto parts = PartsAround(" required but received ", *numbers)) {
      return Phrase::Tr("%1: At Most %2 required but received %3", option, parts->first,
                        parts->second);
    }
  }
  if (const auto missing = Between("", " missing", said)) {
    if (const auto parts = PartsAround(" required ", *missing)) {
      return Phrase::Tr("%1: %2 required %3 missing", option, parts->first, parts->second);
    }
  }
  return std::nullopt;
}

/// Of the value that an option was given.
std::optional<Phrase> OfValue(const std::string& option, const std::string& said) {
  if (said == "it is empty") {
    return Phrase::Tr("%1: it is empty", option);
  }
  if (const auto check = Between("Check ", " FAILED", said)) {
    const auto parts = PartsAround(" value in ", *check);
    const auto sets = parts ? PartsAround(" OR ", parts->second) : std::nullopt;
    if (sets) {
      return Phrase::Tr("%1: Check %2 value in %3 OR %4 FAILED", option, parts->first, sets->first,
                        sets->second);
    }
  }
  if (const auto parts = PartsAround(" not in ", said)) {
    return Phrase::Tr("%1 not in %2", option + ": " + parts->first, parts->second);
  }
  return std::nullopt;
}

/// Of an option by itself, "--last: what is said of it".
std::optional<Phrase> OfOption(const std::string& sentence) {
  const std::size_t end = sentence.find(": ");
  if (end == std::string::npos) {
    return std::nullopt;
  }
  const std::string option = sentence.substr(0, end);
  const std::string said = sentence.substr(end + 2);
  const auto words = OfNumber(option, said);
  return words ? words : OfValue(option, said);
}

/// Of options that were, or were not, named together.
std::optional<Phrase> OfOptions(const std::string& sentence) {
  if (const auto parts = PartsAround(" excludes ", sentence)) {
    return Phrase::Tr("%1 excludes %2", parts->first, parts->second);
  }
  if (const auto parts = PartsAround(" requires ", sentence)) {
    return Phrase::Tr("%1 requires %2", parts->first, parts->second);
  }
  if (sentence == "A subcommand is required") {
    return Phrase::Tr("A subcommand is required");
  }
  if (const auto option = Between("", " is required", sentence)) {
    return Phrase::Tr("%1 is required", *option);
  }
  return std::nullopt;
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
  for (const auto& known : {OfTheLine, OfOption, OfOptions}) {
    if (const auto words = known(sentence)) {
      return *words;
    }
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
