#include "data/value.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace veyra {

namespace {

constexpr double kTwoTo53 = 9007199254740992.0;
constexpr double kTwoTo63 = 9223372036854775808.0;

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The number that the whole of the text writes in decimal, a leading plus sign allowed.
template <typename Number>
std::optional<Number> Parse(std::string_view text) {
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
    text.remove_prefix(1);
  }
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc{} || stop != end) {
    return std::nullopt;
  }
  return number;
}

std::optional<std::int64_t> WholeNumber(double number) {
  if (!(number >= -kTwoTo63 && number < kTwoTo63) || std::trunc(number) != number) {
    return std::nullopt;
  }
  return static_cast<std::int64_t>(number);
}

std::optional<double> TextToDouble(std::string_view text) {
  const std::optional<double> number = Parse<double>(WithoutBlanks(text));
  if (!number || !std::isfinite(*number)) {
    return std::nullopt;
  }
  return number;
}

std::optional<std::int64_t> TextToInteger(std::string_view text) {
  if (const auto whole = Parse<std::int64_t>(WithoutBlanks(text))) {
    return whole;
  }
  const std::optional<double> number = TextToDouble(text);
  // Beyond 2^53 a text with a fraction or an exponent may round to a neighbour.
  if (!number || std::abs(*number) > kTwoTo53) {
    return std::nullopt;
  }
  return WholeNumber(*number);
}

std::string DoubleText(double number) {
  std::array<char, 64> text{};
  const bool plain = std::trunc(number) == number && std::abs(number) <= kTwoTo53;
  const auto [end, error] = plain ? std::to_chars(text.data(), text.data() + text.size(), number,
                                                  std::chars_format::fixed)
                                  : std::to_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc{} ? std::string(text.data(), end) : std::string();
}

}  // namespace

bool IsNull(const Value& value) {
  return std::holds_alternative<Null>(value);
}

std::optional<std::int64_t> ToInteger(const Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    return *whole;
  }
  if (const auto* number = std::get_if<double>(&value)) {
    return WholeNumber(*number);
  }
  if (const auto* text = std::get_if<std::string>(&value)) {
    return TextToInteger(*text);
  }
  return std::nullopt;
}

std::optional<double> ToDouble(const Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    return static_cast<double>(*whole);
  }
  if (const auto* number = std::get_if<double>(&value)) {
    return *number;
  }
  if (const auto* text = std::get_if<std::string>(&value)) {
    return TextToDouble(*text);
  }
  return std::nullopt;
}

std::optional<Date> ToDate(const Value& value) {
  if (const auto* date = std::get_if<Date>(&value)) {
    return *date;
  }
  if (const auto* text = std::get_if<std::string>(&value)) {
    return DateFromIsoText(*text);
  }
  return std::nullopt;
}

std::string ToText(const Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    return std::to_string(*whole);
  }
  if (const auto* number = std::get_if<double>(&value)) {
    return DoubleText(*number);
  }
  if (const auto* text = std::get_if<std::string>(&value)) {
    return *text;
  }
  if (const auto* date = std::get_if<Date>(&value)) {
    return IsoText(*date);
  }
  return {};
}

bool IsSame(const Value& one, const Value& other) {
  const auto* first = std::get_if<double>(&one);
  const auto* second = std::get_if<double>(&other);
  if (first != nullptr && second != nullptr) {
    return std::bit_cast<std::uint64_t>(*first) == std::bit_cast<std::uint64_t>(*second);
  }
  return one == other;
}

}  // namespace veyra
