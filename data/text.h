#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace veyra {

/// Texts are UTF-8. A character, here, is a Unicode code point; a byte that belongs to no valid
/// sequence counts as one character and is kept as it is.

/// How many characters the text has.
std::size_t CharacterCount(std::string_view text);

/// How many UTF-16 units the text takes, each byte of no valid sequence one.
std::size_t Utf16Length(std::string_view text);

/// The text's first `count` characters; the whole text when it has no more.
std::string FirstCharacters(std::string_view text, std::size_t count);

/// The text in upper case, in any script that has one (Unicode simple case mapping: one character
/// becomes one character, so that the German sharp s stays).
std::string UpperCase(std::string_view text);

/// The text in proper case: the first letter of each word in upper case (title case), all others
/// in lower case. A word begins at the start and after each white-space character of any script,
/// the no-break space included, and nowhere else: "swim-up (new)" becomes "Swim-up (new)".
std::string ProperCase(std::string_view text);

/// The tidied form of a guest's or an event's name: outer blanks (U+0020 only) removed, and the
/// first letter of each word, at the start and after each blank, in upper case; all other letters
/// stay as typed ("mcDonald party" becomes "McDonald Party"). When the text begins with a blank its
/// first word stays as typed: the upper case is applied to that blank. This order is meant.
std::string CapitalizeWords(std::string_view text);

/// Whether the bytes are valid UTF-8.
bool IsUtf8(std::string_view text);

/// The text with every byte that belongs to no valid UTF-8 sequence replaced by U+FFFD.
std::string ValidUtf8(std::string_view text);

}  // namespace veyra
