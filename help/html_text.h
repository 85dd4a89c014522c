#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veyra {

/// A tag of an HTML text, such as <A href="month.htm">, or the text between two tags.
struct HtmlPiece {
  std::string Tag;   ///< In lower case, with its slash: "a", "/a". Empty for a text.
  std::string Text;  ///< Of a tag all that follows its name; of a text the text, with entities.
};

/// Splits an HTML text (UTF-8) into tags and texts, comments and declarations left out. Any text is
/// understood somehow: a tag that never ends reaches to the end.
std::vector<HtmlPiece> HtmlPieces(std::string_view html);

/// The value of an attribute of a tag, entities resolved; nothing when it has none of that name
/// (lower case).
std::optional<std::string> Attribute(const HtmlPiece& tag, std::string_view name);

/// What a reader of the page sees, as plain text with single blanks.
std::string PlainText(std::string_view html);

/// The page's <title>, as plain text; empty when it has none.
std::string PageTitle(std::string_view html);

}  // namespace veyra
