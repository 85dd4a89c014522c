#include "data/access/format/code_page.h"

#include <array>

namespace veyra::access {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

Charset Opened(std::uint16_t number) {
  for (const std::string& name : {"CP" + std::to_string(number), std::string("CP1252")}) {
    if (auto charset = Charset::Named(name)) {
      return *charset;
    }
  }
  throw FileProblem(
      Phrase::Tr("The database's texts are of a code page that this computer does not know."),
      Phrase::Tr("Save it in Access as an Access 2000 or 2002-2003 database (.mdb)."));
}

bool IsAscii(ByteView text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.data()[i] >= 0x80) {
      return false;
    }
  }
  return true;
}

bool IsHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// How many bytes the sequence at `at` has, its character in `character`; 0 when it is not valid.
std::size_t DecodeUtf8(std::string_view text, std::size_t at, char32_t& character) {
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<Byte>(text[at]);
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC0 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF8 ? 4
                                           : 0;
  if (length == 0 || at + length > text.size()) {
    return 0;
  }
  character = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<Byte>(text[at + i]);
    if ((next & 0xC0U) != 0x80U) {
      return 0;
    }
    character = (character << 6U) | (next & 0x3FU);
  }
  const bool valid = character >= kSmallest[length] && character <= 0x10FFFF &&
                     (character < 0xD800 || character > 0xDFFF);
  return valid ? length : 0;
}

}  // namespace

std::string CodePage::ToUtf8(ByteView text) const {
  const std::string_view bytes(reinterpret_cast<const char*>(text.data()), text.size());
  if (IsAscii(text)) {
    return std::string(bytes);
  }
  if (!charset_) {
    charset_ = Opened(number_);
  }
  return charset_->ToUtf8(bytes);
}

std::string Utf8FromUtf16(ByteView text) {
  std::string result;
  result.reserve(text.size() / 2);
  std::size_t at = 0;
  while (at + 2 <= text.size()) {
    char32_t character = text.U16(at);
    at += 2;
    if (IsHighSurrogate(character) && at + 2 <= text.size() && IsLowSurrogate(text.U16(at))) {
      character = 0x10000 + ((character - 0xD800) << 10U) + (text.U16(at) - 0xDC00U);
      at += 2;
    }
    AppendUtf8(result, character);
  }
  if (at < text.size()) {
    AppendUtf8(result, kReplacement);
  }
  return result;
}

std::u16string Utf16FromUtf8(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    char32_t character = kReplacement;
    const std::size_t length = DecodeUtf8(text, at, character);
    if (length == 0) {
      character = kReplacement;
    }
    at += length == 0 ? 1 : length;
    if (character >= 0x10000) {
      result.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10U)));
      result.push_back(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FFU)));
    } else {
      result.push_back(static_cast<char16_t>(character));
    }
  }
  return result;
}

}  // namespace veyra::access
