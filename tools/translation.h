#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "data/phrase.h"

namespace veyra {

/// A text with its places, in English and in another language.
struct TranslatedText {
  const char* English;
  const char* Translated;
};

struct TranslationTable {
  const char* Language;  ///< "de", "de_AT".
  std::span<const TranslatedText> Texts;
};

/// Those of the calendar's windows; the build makes them of translations/*.ts.
const std::vector<TranslationTable>& BuiltInTranslations();

/// The Phrase::Translator of English.
std::string Untranslated(const std::string& pattern);

/// Gives the value of a variable of the environment; null where there is none.
using EnvironmentVariable = std::function<const char*(const char* name)>;

/// The languages that the environment asks for, as "de_AT" names them, the one liked best in front:
/// those of LANGUAGE, else that of the first of LC_ALL, LC_MESSAGES and LANG that is not empty.
/// Each of a country is followed by the language itself. None where these three name C or POSIX.
std::vector<std::string> WantedLanguages(const EnvironmentVariable& variable);

/// Translates into the first of the languages that is built in. Leaves texts as they are where
/// English comes first, and where none is built in; also those that have no translation.
Phrase::Translator TranslatorInto(const std::vector<std::string>& languages);

}  // namespace veyra
