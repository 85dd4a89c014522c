#include "data/journal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <utility>

#include "data/names.h"

namespace veyra {

namespace {

constexpr int kLongestName = 255;

std::string Doubled(std::string_view text, char mark) {
  std::string doubled;
  for (const char c : text) {
    doubled += c == mark ? std::string(2, c) : std::string(1, c);
  }
  return doubled;
}

std::string Literal(const Value& value) {
  if (IsNull(value)) {
    return "NULL";
  }
  if (const auto* number = std::get_if<double>(&value)) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), *number,
                                   std::chars_format::scientific)
                         .ptr;
    return {text.data(), end};
  }
  if (std::holds_alternative<std::int64_t>(value)) {
    return ToText(value);
  }
  return "'" + Doubled(ToText(value), '\'') + "'";
}

/// Reads a journal's text from its beginning on.
class Parser {
 public:
  explicit Parser(std::string_view text) : rest_(text) {}

  std::optional<FieldValues> Fields() {
    FieldValues fields;
    do {
      auto name = Take("[") ? UpTo(']') : std::nullopt;
      auto value = name && Take("=") ? OneValue() : std::nullopt;
      if (!value) {
        return std::nullopt;
      }
      fields.emplace_back(std::move(*name), std::move(*value));
    } while (Take(", "));
    return rest_.empty() ? std::optional(std::move(fields)) : std::nullopt;
  }

 private:
  bool Take(std::string_view word) {
    const bool is_there = rest_.starts_with(word);
    rest_.remove_prefix(is_there ? word.size() : 0);
    return is_there;
  }

  /// What comes before the closing mark; two of them stand for one that does not close.
  std::optional<std::string> UpTo(char mark) {
    std::string found;
    for (std::size_t at = 0; at < rest_.size(); ++at) {
      if (rest_[at] == mark) {
        if (at + 1 == rest_.size() || rest_[at + 1] != mark) {
          rest_.remove_prefix(at + 1);
          return found;
        }
        ++at;
      }
      found += rest_[at];
    }
    return std::nullopt;
  }

  std::optional<Value> OneValue() {
    if (Take("NULL")) {
      return Value(Null{});
    }
    if (Take("'")) {
      auto text = UpTo('\'');
      return text ? std::optional(Value(std::move(*text))) : std::nullopt;
    }
    const std::string_view number = rest_.substr(0, rest_.find(','));
    rest_.remove_prefix(number.size());
    if (const auto whole = Number<std::int64_t>(number)) {
      return Value(*whole);
    }
    const auto real = Number<double>(number);
    return real ? std::optional(Value(*real)) : std::nullopt;
  }

  template <typename Kind>
  static std::optional<Kind> Number(std::string_view text) {
    Kind number{};
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool is_whole = error == std::errc{} && stop == text.data() + text.size();
    return is_whole ? std::optional(number) : std::nullopt;
  }

  std::string_view rest_;
};

}  // namespace

TableDefinition JournalTable() {
  return {.Name = kJournalTable,
          .Columns = {{.Name = "ID", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                      {.Name = "ActionID", .Type = ColumnType::WholeNumber},
                      {.Name = "ChangedAt", .Type = ColumnType::Text, .Size = 50},
                      {.Name = "ActionName", .Type = ColumnType::Text, .Size = kLongestName},
                      {.Name = "TableName", .Type = ColumnType::Text, .Size = 50},
                      {.Name = "OldValues", .Type = ColumnType::Text},
                      {.Name = "NewValues", .Type = ColumnType::Text}}};
}

const std::vector<std::string>& JournalledTables() {
  static const std::vector<std::string> kTables = {"Rooms", "Reserv", "Settings"};
  return kTables;
}

bool IsJournalled(std::string_view table) {
  return FindName(JournalledTables(), table).has_value();
}

std::string JournalText(const std::vector<std::string>& columns, const std::vector<Value>& values) {
  std::string text;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    text += i == 0 ? "[" : ", [";
    text += Doubled(columns[i], ']') + "]=" + Literal(values[i]);
  }
  return text;
}

std::optional<FieldValues> ParseJournalText(std::string_view text) {
  return Parser(text).Fields();
}

std::string JournalTime() {
  using std::chrono::milliseconds;
  const auto now = std::chrono::floor<milliseconds>(std::chrono::system_clock::now());
  const auto day = std::chrono::floor<std::chrono::days>(now);
  const std::chrono::hh_mm_ss time(now - day);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), " %02d:%02d:%02d.%03d",
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                static_cast<int>(time.seconds().count()),
                static_cast<int>(time.subseconds().count()));
  return IsoText(Date(day)) + text.data();
}

void CurrentAction::Begin(const std::string& name) {
  if (depth_++ == 0) {
    name_ = name.substr(0, kLongestName);
    number_.reset();
  }
}

void CurrentAction::End() {
  --depth_;
}

}  // namespace veyra
