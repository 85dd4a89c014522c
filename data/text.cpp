#include "data/text.h"

#include <utf8proc.h>

#include <array>

namespace veyra {
namespace {

using CodePoint = utf8proc_int32_t;
using Mapping = CodePoint (*)(CodePoint);

constexpr CodePoint kNone = -1;
constexpr CodePoint kBlank = 0x20;
constexpr CodePoint kSharpS = 0xDF;
constexpr unsigned char kFirstOfTwoBytes = 0x80;

/// One character and the bytes it takes in the text; kNone for a byte of no valid sequence.
struct Character {
  CodePoint Code = kNone;
  std::string_view Bytes;
};

/// REQUIRES: the text is not empty.
Character FirstCharacter(std::string_view text) {
  if (const auto byte = static_cast<unsigned char>(text.front()); byte < kFirstOfTwoBytes) {
    return {byte, text.substr(0, 1)};
  }
  CodePoint code = kNone;
  const utf8proc_ssize_t length =
      utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                       static_cast<utf8proc_ssize_t>(text.size()), &code);
  if (length < 1) {
    return {kNone, text.substr(0, 1)};
  }
  return {code, text.substr(0, static_cast<std::size_t>(length))};
}

template <typename Visit>
void ForEachCharacter(std::string_view text, Visit visit) {
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    visit(character);
    text.remove_prefix(character.Bytes.size());
  }
}

// The library makes U+1E9E of U+00DF, which Unicode's simple mapping leaves alone.
CodePoint Upper(CodePoint code) {
  return code == kSharpS ? code : utf8proc_toupper(code);
}

CodePoint Title(CodePoint code) {
  return code == kSharpS ? code : utf8proc_totitle(code);
}

CodePoint Lower(CodePoint code) {
  return utf8proc_tolower(code);
}

CodePoint Same(CodePoint code) {
  return code;
}

void Append(std::string& text, const Character& character, Mapping mapping) {
  const CodePoint mapped = character.Code == kNone ? kNone : mapping(character.Code);
  if (mapped == character.Code) {
    text += character.Bytes;
    return;
  }
  std::array<utf8proc_uint8_t, 4> bytes{};
  const utf8proc_ssize_t length = utf8proc_encode_char(mapped, bytes.data());
  text.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(length));
}

bool IsWhiteSpace(CodePoint code) {
  return (code >= '\t' && code <= '\r') || utf8proc_category(code) == UTF8PROC_CATEGORY_ZS;
}

std::string_view WithoutOuterBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  ForEachCharacter(text, [&count](const Character&) { ++count; });
  return count;
}

std::size_t Utf16Length(std::string_view text) {
  constexpr CodePoint kFirstOfTwo = 0x10000;
  std::size_t units = 0;
  ForEachCharacter(text, [&](const Character& one) { units += one.Code >= kFirstOfTwo ? 2 : 1; });
  return units;
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t length = 0;
  for (; count > 0 && length < text.size(); --count) {
    length += FirstCharacter(text.substr(length)).Bytes.size();
  }
  return std::string(text.substr(0, length));
}

std::string UpperCase(std::string_view text) {
  std::string upper;
  upper.reserve(text.size());
  ForEachCharacter(text, [&upper](const Character& c) { Append(upper, c, Upper); });
  return upper;
}

std::string ProperCase(std::string_view text) {
  std::string proper;
  proper.reserve(text.size());
  bool starts_word = true;
  ForEachCharacter(text, [&](const Character& c) {
    Append(proper, c, starts_word ? Title : Lower);
    starts_word = IsWhiteSpace(c.Code);
  });
  return proper;
}

std::string CapitalizeWords(std::string_view text) {
  std::string tidied;
  tidied.reserve(text.size());
  bool starts_word = !text.starts_with(' ');
  ForEachCharacter(WithoutOuterBlanks(text), [&](const Character& c) {
    Append(tidied, c, starts_word ? Upper : Same);
    starts_word = c.Code == kBlank;
  });
  return tidied;
}

bool IsUtf8(std::string_view text) {
  bool valid = true;
  ForEachCharacter(text, [&valid](const Character& c) { valid = valid && c.Code != kNone; });
  return valid;
}

std::string ValidUtf8(std::string_view text) {
  std::string valid;
  valid.reserve(text.size());
  ForEachCharacter(text, [&valid](const Character& c) {
    valid += c.Code == kNone ? std::string_view("\xEF\xBF\xBD") : c.Bytes;
  });
  return valid;
}

}  // namespace veyra
