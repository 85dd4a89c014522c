#pragma once

#include <string>
#include <string_view>

/// The characters of ASCII, whatever the locale. Bytes of characters beyond ASCII are of no kind.
namespace veyra::ascii {

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool IsLetterOrDigit(char c) {
  return IsLetter(c) || IsDigit(c);
}

constexpr char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// The text with its letters of ASCII in lower case, all else as it is.
inline std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    c = Lower(c);
  }
  return lower;
}

}  // namespace veyra::ascii
