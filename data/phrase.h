#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace veyra {

/// A text for the operator, on its way to where it is shown in the operator's language.
///
///   Phrase::Tr("The table %1 has no column %2.", table, column)   is translated,
///   "There is no Facility Selected"                               stays as it is, as a name does.
///
/// A phrase is any number of such texts, one after the other.
class Phrase {
 public:
  /// Gives the translation of an English pattern, or the pattern itself where there is none.
  using Translator = std::function<std::string(const std::string& pattern)>;

  /// An English text with the places %1 to %`Places`, each of them at least once and no others,
  /// which the compiler sees to. Places are at most nine.
  template <std::size_t Places>
  class Pattern;

  /// An empty text.
  Phrase() = default;

  /// A text that stays as it is in every language.
  Phrase(std::string text);  // NOLINT: what is not marked is not translated
  Phrase(const char* text);  // NOLINT: as above

  /// A text that is translated, and what stands in its places: numbers, phrases, and texts that
  /// stay as they are.
  template <typename... Values>
  static Phrase Tr(Pattern<sizeof...(Values)> pattern, const Values&... values) {
    Phrase phrase;
    phrase.parts_.push_back({pattern.Text(), true, {ValueOf(values)...}});
    return phrase;
  }

  bool IsEmpty() const { return parts_.empty(); }

  std::string English() const;
  std::string TranslatedBy(const Translator& translator) const;

  Phrase& operator+=(Phrase after);
  friend Phrase operator+(Phrase before, const Phrase& after) { return before += after; }

  /// Whether they are the same in English.
  friend bool operator==(const Phrase& left, const Phrase& right) {
    return left.English() == right.English();
  }
  friend std::ostream& operator<<(std::ostream& out, const Phrase& phrase);

 private:
  struct Part {
    std::string Text;
    bool IsPattern = false;
    std::vector<Phrase> Values = {};
  };

  template <typename Value>
  static Phrase ValueOf(const Value& value) {
    if constexpr (std::integral<Value>) {
      return std::to_string(value);
    } else {
      return value;
    }
  }

  static std::string Filled(const std::string& pattern, const std::vector<std::string>& values);

  std::vector<Part> parts_;
};

template <std::size_t Places>
class Phrase::Pattern {
 public:
  consteval Pattern(const char* text) : text_(text) {  // NOLINT: so that a literal can stand here
    static_assert(Places <= 9);
    bool found[Places + 1] = {true};  // NOLINT: std::array is no plainer here
    for (const char* at = text; *at != '\0'; ++at) {
      if (*at == '%' && at[1] >= '1' && at[1] <= '9') {
        found[at[1] - '0'] = true;  // A place too many lies outside: the compiler refuses it.
      }
    }
    for (const bool is_found : found) {
      if (!is_found) {
        throw "a value has no place in the text";
      }
    }
  }

  const char* Text() const { return text_; }

 private:
  const char* text_;
};

/// The lines that are not empty, with a line break between any two.
Phrase JoinedLines(const std::vector<Phrase>& lines, const char* line_break);

}  // namespace veyra
