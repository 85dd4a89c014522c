#include "logic/date_parser.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "data/ascii.h"

namespace veyra {
namespace {

using ascii::IsDigit;
using ascii::IsLetter;

constexpr std::array<std::string_view, 12> kMonthNames = {
    "january", "february", "march",     "april",   "may",      "june",
    "july",    "august",   "september", "october", "november", "december"};

constexpr std::size_t kMostDigits = 4;

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

bool IsMark(char c) {
  return c == '/' || c == '-' || c == '.' || c == ',';
}

/// The number 1 to 12 of a month's English name, or 0.
int MonthNumber(std::string_view word) {
  const std::string lower = ascii::LowerCase(word);
  if (lower == "sept") {
    return 9;
  }
  for (std::size_t i = 0; i < kMonthNames.size(); ++i) {
    if (lower == kMonthNames[i] || lower == kMonthNames[i].substr(0, 3)) {
      return static_cast<int>(i) + 1;
    }
  }
  return 0;
}

/// A number, or a month given by its name.
struct Part {
  int Value = 0;
  std::size_t Digits = 0;  ///< As many as were typed; 0 for a name.

  bool IsName() const { return Digits == 0; }
};

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && IsBlank(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

/// Cuts a text without outer blanks into its parts, from left to right.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  bool AtEnd() const { return position_ == text_.size(); }

  /// Moves past the number or month name that begins here; nothing when neither does.
  std::optional<Part> TakePart() {
    if (AtEnd()) {
      return std::nullopt;
    }
    return IsDigit(text_[position_]) ? TakeNumber() : TakeMonthName();
  }

  /// Moves past the gap before the next part: blanks, with at most one mark among them. Returns
  /// whether there is any; the full stop of a shortened name is enough.
  bool TakeGap() {
    if (AtEnd()) {
      return false;
    }
    const bool follows_full_stop = text_[position_ - 1] == '.';
    const std::size_t start = position_;
    TakeWhile(IsBlank);
    if (!AtEnd() && IsAllowedMark(text_[position_])) {
      ++position_;
    }
    TakeWhile(IsBlank);
    return follows_full_stop || position_ > start;
  }

 private:
  template <typename Predicate>
  std::string_view TakeWhile(Predicate belongs) {
    const std::size_t start = position_;
    while (!AtEnd() && belongs(text_[position_])) {
      ++position_;
    }
    return text_.substr(start, position_ - start);
  }

  std::optional<Part> TakeNumber() {
    const std::string_view digits = TakeWhile(IsDigit);
    if (digits.size() > kMostDigits) {
      return std::nullopt;
    }
    int value = 0;
    for (const char digit : digits) {
      value = value * 10 + (digit - '0');
    }
    return Part{value, digits.size()};
  }

  std::optional<Part> TakeMonthName() {
    const int month = MonthNumber(TakeWhile(IsLetter));
    if (month == 0) {
      return std::nullopt;
    }
    if (!AtEnd() && text_[position_] == '.') {
      ++position_;
    }
    has_name_ = true;
    return Part{month, 0};
  }

  bool IsAllowedMark(char c) const { return IsMark(c) && (c != ',' || has_name_); }

  std::string_view text_;
  std::size_t position_ = 0;
  bool has_name_ = false;
};

/// The parts of the text; none when anything else stands in it.
std::vector<Part> PartsOf(std::string_view text) {
  std::vector<Part> parts;
  Scanner scanner(text);
  do {
    const std::optional<Part> part = scanner.TakePart();
    if (!part) {
      return {};
    }
    parts.push_back(*part);
  } while (scanner.TakeGap());
  if (!scanner.AtEnd()) {
    return {};
  }
  return parts;
}

int YearFrom(const Part& part) {
  if (part.Digits > 2) {
    return part.Value;
  }
  return part.Value < 30 ? 2000 + part.Value : 1900 + part.Value;
}

/// The date of a month and a day in either order: the name, or else the number that can be one,
/// is the month.
std::optional<Date> DateOf(int year, const Part& first, const Part& second) {
  if (first.Digits > 2 || second.Digits > 2) {
    return std::nullopt;
  }
  if (first.IsName() && second.IsName()) {
    return std::nullopt;
  }
  const bool swapped = second.IsName() || (!first.IsName() && first.Value > 12);
  return swapped ? MakeDate(year, second.Value, first.Value)
                 : MakeDate(year, first.Value, second.Value);
}

/// The date of a year, a month and a day in that order, never another.
std::optional<Date> YearFirstDate(const Part& year, const Part& month, const Part& day) {
  if (month.Digits > 2 || day.IsName() || day.Digits > 2) {
    return std::nullopt;
  }
  return MakeDate(year.Value, month.Value, day.Value);
}

}  // namespace

std::optional<Date> ParseDate(std::string_view text, Date today) {
  const std::vector<Part> parts = PartsOf(Trimmed(text));
  if (parts.size() == 2) {
    return DateOf(YearOf(today), parts[0], parts[1]);
  }
  if (parts.size() != 3) {
    return std::nullopt;
  }
  if (parts[0].Digits == 4) {
    return YearFirstDate(parts[0], parts[1], parts[2]);
  }
  if (parts[2].IsName()) {
    return std::nullopt;
  }
  return DateOf(YearFrom(parts[2]), parts[0], parts[1]);
}

}  // namespace veyra
