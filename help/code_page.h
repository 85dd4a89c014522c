#pragma once

#include <string>
#include <string_view>

namespace veyra {

/// The code page in which a help file without a word on it is written, such as "CP1252": the
/// Windows code page of the language that its /#SYSTEM table names (a Windows language identifier).
std::string CodePageOfLanguage(unsigned language_id);

/// An HTML text as UTF-8. How it is encoded say, in this order: a byte order mark, a charset named
/// in its first 2048 bytes, its being valid UTF-8, and last `code_page`. What a charset does not
/// know becomes U+FFFD; an unknown charset counts as `code_page`.
std::string HtmlAsUtf8(std::string_view html, const std::string& code_page);

}  // namespace veyra
