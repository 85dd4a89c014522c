#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "data/access/format/bytes.h"
#include "data/charset.h"

namespace veyra::access {

/// The code page of the texts of a Jet 3 file.
class CodePage {
 public:
  /// A Windows code page by its number: 874, 932, 936, 949, 950, 1250 to 1258, and any other that
  /// the platform converts from; 1252 where it knows none of that number.
  explicit CodePage(std::uint16_t number) : number_(number) {}

  /// The text in UTF-8; each byte that stands for no character becomes U+FFFD.
  std::string ToUtf8(ByteView text) const;

 private:
  std::uint16_t number_;
  mutable std::optional<Charset> charset_;  ///< Opened when it is needed first.
};

/// A little-endian UTF-16 text in UTF-8; half a surrogate pair becomes U+FFFD, and so does half a
/// character at the end.
std::string Utf8FromUtf16(ByteView text);

/// A UTF-8 text as UTF-16, code unit by code unit; an invalid byte becomes U+FFFD.
std::u16string Utf16FromUtf8(std::string_view text);

}  // namespace veyra::access
