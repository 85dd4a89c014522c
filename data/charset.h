#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace veyra {

/// A conversion from one charset to UTF-8.
class Charset {
 public:
  /// The charset of that name, as the platform's iconv(3) has it ("CP1252", "UTF-16LE"), or nothing
  /// where the platform does not know it.
  static std::optional<Charset> Named(const std::string& name);

  /// The text in UTF-8; each byte that stands for no character becomes U+FFFD.
  std::string ToUtf8(std::string_view text) const;

 private:
  explicit Charset(std::shared_ptr<void> converter) : converter_(std::move(converter)) {}

  std::shared_ptr<void> converter_;
};

/// Adds a character to a UTF-8 text; U+FFFD in the place of a number that stands for none.
void AppendUtf8(std::string& text, char32_t character);

}  // namespace veyra
