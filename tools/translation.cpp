#include "tools/translation.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <unordered_map>

namespace veyra {
namespace {

using Texts = std::unordered_map<std::string_view, const char*>;

std::string Valued(const EnvironmentVariable& variable, const char* name) {
  const char* const value = variable(name);
  return value == nullptr ? std::string() : value;
}

/// "de_AT" of "de_AT.UTF-8@euro".
std::string WithoutCharset(const std::string& locale) {
  return locale.substr(0, locale.find_first_of(".@"));
}

std::string Locale(const EnvironmentVariable& variable) {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const std::string locale = Valued(variable, name);
    if (!locale.empty()) {
      return WithoutCharset(locale);
    }
  }
  return "C";
}

bool IsNone(const std::string& language) {
  return language == "C" || language == "POSIX";
}

void Add(const std::string& language, std::vector<std::string>& languages) {
  if (language.empty()) {
    return;
  }
  languages.push_back(language);
  const std::size_t country = language.find('_');
  if (country != std::string::npos) {
    languages.push_back(language.substr(0, country));
  }
}

bool IsEnglish(const std::string& language) {
  return IsNone(language) || language == "en" || language.starts_with("en_");
}

const TranslationTable* TableOf(const std::string& language) {
  const auto& tables = BuiltInTranslations();
  const auto found = std::find_if(tables.begin(), tables.end(), [&](const TranslationTable& each) {
    return language == each.Language;
  });
  return found == tables.end() ? nullptr : &*found;
}

Phrase::Translator TranslatorBy(const TranslationTable& table) {
  const auto texts = std::make_shared<Texts>();
  texts->reserve(table.Texts.size());
  for (const TranslatedText& text : table.Texts) {
    texts->emplace(text.English, text.Translated);
  }
  return [texts](const std::string& pattern) -> std::string {
    const auto found = texts->find(pattern);
    return found == texts->end() ? pattern : found->second;
  };
}

}  // namespace

std::string Untranslated(const std::string& pattern) {
  return pattern;
}

std::vector<std::string> WantedLanguages(const EnvironmentVariable& variable) {
  const std::string locale = Locale(variable);
  if (IsNone(locale)) {
    return {};
  }
  const std::string list = Valued(variable, "LANGUAGE");
  std::vector<std::string> languages;
  for (std::size_t at = 0; at < list.size();) {
    const std::size_t end = std::min(list.find(':', at), list.size());
    Add(WithoutCharset(list.substr(at, end - at)), languages);
    at = end + 1;
  }
  if (languages.empty()) {
    Add(locale, languages);
  }
  return languages;
}

Phrase::Translator TranslatorInto(const std::vector<std::string>& languages) {
  for (const std::string& language : languages) {
    if (IsEnglish(language)) {
      break;
    }
    if (const TranslationTable* table = TableOf(language)) {
      return TranslatorBy(*table);
    }
  }
  return Untranslated;
}

}  // namespace veyra
