#include "help/html_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "data/ascii.h"
#include "data/charset.h"

namespace veyra {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\f";

bool IsBlank(char letter) {
  return kBlanks.find(letter) != std::string_view::npos;
}

/// The character of a numeric entity such as "#233" or "#xE9".
std::optional<std::string> NumericEntity(std::string_view name) {
  const bool hexadecimal = name.size() > 1 && (name[1] == 'x' || name[1] == 'X');
  const std::string_view digits = name.substr(hexadecimal ? 2 : 1);
  std::uint32_t code_point = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(),
                                              code_point, hexadecimal ? 16 : 10);
  const bool is_surrogate = code_point >= 0xD800 && code_point <= 0xDFFF;
  const bool is_number = failure == std::errc() && end == digits.data() + digits.size();
  if (!is_number || code_point == 0 || code_point > 0x10FFFF || is_surrogate) {
    return std::nullopt;
  }
  std::string character;
  AppendUtf8(character, code_point);
  return character;
}

std::optional<std::string> Entity(std::string_view name) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 14> entities{{
      {"amp", "&"},
      {"lt", "<"},
      {"gt", ">"},
      {"quot", "\""},
      {"apos", "'"},
      {"nbsp", " "},
      {"copy", "\u00A9"},
      {"reg", "\u00AE"},
      {"ndash", "\u2013"},
      {"mdash", "\u2014"},
      {"lsquo", "\u2018"},
      {"rsquo", "\u2019"},
      {"ldquo", "\u201C"},
      {"rdquo", "\u201D"},
  }};
  if (!name.empty() && name[0] == '#') {
    return NumericEntity(name);
  }
  const auto entity = std::find_if(entities.begin(), entities.end(),
                                   [&](const auto& known) { return known.first == name; });
  if (entity == entities.end()) {
    return std::nullopt;
  }
  return std::string(entity->second);
}

std::string WithoutEntities(std::string_view text) {
  constexpr std::size_t kLongestName = 10;
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t end = text[i] == '&' ? text.substr(i, kLongestName).find(';') : 0;
    const bool may_be_entity = text[i] == '&' && end != std::string_view::npos;
    const auto letters = may_be_entity ? Entity(text.substr(i + 1, end - 1)) : std::nullopt;
    plain += letters ? *letters : std::string(1, text[i]);
    if (letters) {
      i += end;
    }
  }
  return plain;
}

/// Where a tag that begins at `begin` ends: the place of its '>', one in quotes not counted.
std::size_t EndOfTag(std::string_view html, std::size_t begin) {
  char quote = '\0';
  for (std::size_t i = begin; i < html.size(); ++i) {
    if (quote != '\0') {
      if (html[i] == quote) {
        quote = '\0';
      }
    } else if (html[i] == '>') {
      return i;
    } else if ((html[i] == '"' || html[i] == '\'') && html[i - 1] == '=') {
      quote = html[i];
    }
  }
  return html.size();
}

HtmlPiece TagOf(std::string_view inside) {
  const std::size_t end = std::min(inside.find_first_of(kBlanks), inside.size());
  return {ascii::LowerCase(inside.substr(0, end)), std::string(inside.substr(end))};
}

/// How long a comment or declaration is that stands at the beginning; 0 when none does.
std::size_t LengthOfComment(std::string_view html) {
  const auto length = [&](std::string_view mark) {
    const std::size_t end = html.find(mark);
    return end == std::string_view::npos ? html.size() : end + mark.size();
  };
  if (html.substr(0, 4) == "<!--") {
    return length("-->");
  }
  if (html.substr(0, 2) == "<!" || html.substr(0, 2) == "<?") {
    return length(">");
  }
  return 0;
}

bool IsTagBegin(std::string_view html) {
  return html.size() > 1 && html[0] == '<' &&
         (std::isalpha(static_cast<unsigned char>(html[1])) != 0 || html[1] == '/');
}

/// Appends a text, its blanks made single ones.
void AppendText(std::string& plain, std::string_view text) {
  for (const char letter : text) {
    if (!IsBlank(letter)) {
      plain += letter;
    } else if (!plain.empty() && plain.back() != ' ') {
      plain += ' ';
    }
  }
}

/// The value that begins at text[i], in quotes or not; leaves i after it.
std::string_view TakeValue(std::string_view text, std::size_t& i) {
  i = std::min(text.find_first_not_of(kBlanks, i), text.size());
  const bool quoted = i < text.size() && (text[i] == '"' || text[i] == '\'');
  const std::size_t begin = quoted ? i + 1 : i;
  const std::size_t end = std::min(
      quoted ? text.find(text[i], begin) : text.find_first_of(kBlanks, begin), text.size());
  i = std::min(end + (quoted ? 1 : 0), text.size());
  return text.substr(begin, end - begin);
}

bool IsInline(const std::string& tag) {
  static constexpr std::array<std::string_view, 12> names{
      "a", "b", "i", "u", "em", "strong", "font", "span", "code", "tt", "sub", "sup"};
  const std::string_view name = std::string_view(tag).substr(tag[0] == '/' ? 1 : 0);
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool IsUnseen(const std::string& tag) {
  return tag == "script" || tag == "style" || tag == "title";
}

}  // namespace

std::vector<HtmlPiece> HtmlPieces(std::string_view html) {
  std::vector<HtmlPiece> pieces;
  std::string text;
  for (std::size_t i = 0; i < html.size();) {
    if (const std::size_t comment = LengthOfComment(html.substr(i)); comment > 0) {
      i += comment;
    } else if (IsTagBegin(html.substr(i))) {
      if (!text.empty()) {
        pieces.push_back({"", std::exchange(text, {})});
      }
      const std::size_t end = EndOfTag(html, i + 1);
      pieces.push_back(TagOf(html.substr(i + 1, end - i - 1)));
      i = end + 1;
    } else {
      text += html[i++];
    }
  }
  if (!text.empty()) {
    pieces.push_back({"", std::move(text)});
  }
  return pieces;
}

std::optional<std::string> Attribute(const HtmlPiece& tag, std::string_view name) {
  const std::string_view text = tag.Text;
  std::size_t i = 0;
  while ((i = text.find_first_not_of(" \t\r\n\f/", i)) != std::string_view::npos) {
    const std::size_t name_end = std::min(text.find_first_of(" \t\r\n\f=/", i), text.size());
    const std::string found = ascii::LowerCase(text.substr(i, name_end - i));
    i = std::min(text.find_first_not_of(kBlanks, name_end), text.size());
    std::string_view value;
    if (i < text.size() && text[i] == '=') {
      value = TakeValue(text, ++i);
    }
    if (found == name) {
      return WithoutEntities(value);
    }
  }
  return std::nullopt;
}

std::string PlainText(std::string_view html) {
  std::string plain;
  std::string unseen_until;
  for (const HtmlPiece& piece : HtmlPieces(html)) {
    if (!unseen_until.empty()) {
      if (piece.Tag == unseen_until) {
        unseen_until.clear();
      }
    } else if (piece.Tag.empty()) {
      AppendText(plain, WithoutEntities(piece.Text));
    } else if (IsUnseen(piece.Tag)) {
      unseen_until = "/" + piece.Tag;
    } else if (!IsInline(piece.Tag)) {
      AppendText(plain, " ");
    }
  }
  if (!plain.empty() && plain.back() == ' ') {
    plain.pop_back();
  }
  return plain;
}

std::string PageTitle(std::string_view html) {
  const std::vector<HtmlPiece> pieces = HtmlPieces(html);
  const auto tag = std::find_if(pieces.begin(), pieces.end(),
                                [](const HtmlPiece& piece) { return piece.Tag == "title"; });
  if (tag == pieces.end() || tag + 1 == pieces.end() || !(tag + 1)->Tag.empty()) {
    return {};
  }
  std::string title;
  AppendText(title, WithoutEntities((tag + 1)->Text));
  if (!title.empty() && title.back() == ' ') {
    title.pop_back();
  }
  return title;
}

}  // namespace veyra
