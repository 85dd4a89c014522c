#include "data/access/write/text_key.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "data/access/format/code_page.h"

namespace veyra::access {

namespace {

constexpr Byte kEnd = 0x01;
constexpr Byte kNoAccent = 0x02;
constexpr Byte kFirstDigit = 0x36;
constexpr std::uint32_t kFirstPlace = 0x8007;

constexpr std::array<Byte, 26> kLetters = {0x4A, 0x4C, 0x4D, 0x4F, 0x51, 0x53, 0x55, 0x57, 0x59,
                                           0x5B, 0x5C, 0x5E, 0x60, 0x62, 0x64, 0x66, 0x68, 0x69,
                                           0x6B, 0x6D, 0x6F, 0x71, 0x73, 0x75, 0x76, 0x78};

struct Sign {
  char16_t Character;
  Byte First;
  Byte Second;  ///< 0 for none.
};
constexpr std::array<Sign, 31> kSigns = {
    {{u' ', 0x07, 0},    {u'!', 0x09, 0},    {u'"', 0x0A, 0},    {u'#', 0x0C, 0},
     {u'$', 0x0E, 0},    {u'%', 0x10, 0},    {u'&', 0x12, 0},    {u'(', 0x14, 0},
     {u')', 0x16, 0},    {u'*', 0x18, 0},    {u',', 0x1A, 0},    {u'.', 0x1C, 0},
     {u'/', 0x1E, 0},    {u':', 0x20, 0},    {u';', 0x22, 0},    {u'?', 0x24, 0},
     {u'@', 0x26, 0},    {u'[', 0x27, 0},    {u'\\', 0x29, 0},   {u']', 0x2A, 0},
     {u'^', 0x2B, 0x02}, {u'_', 0x2B, 0x03}, {u'`', 0x2B, 0x07}, {u'{', 0x2B, 0x09},
     {u'|', 0x2B, 0x0B}, {u'}', 0x2B, 0x0D}, {u'~', 0x2B, 0x0F}, {u'+', 0x2C, 0},
     {u'<', 0x2E, 0},    {u'=', 0x30, 0},    {u'>', 0x32, 0}}};

/// Letters of one accent, with those that they are without it.
struct Accent {
  Byte Code;
  std::u16string_view Letters;
  std::string_view Plain;
};
constexpr std::array<Accent, 8> kAccents = {{{0x0E, u"ÁÉÍÓÚÝáéíóúý", "aeiouyaeiouy"},
                                             {0x0F, u"ÀÈÌÒÙàèìòù", "aeiouaeiou"},
                                             {0x12, u"ÂÊÎÔÛâêîôû", "aeiouaeiou"},
                                             {0x13, u"ÄËÏÖÜäëïöüÿŸ", "aeiouaeiouyy"},
                                             {0x14, u"ŠŽšž", "szsz"},
                                             {0x19, u"ÃÑÕãñõ", "anoano"},
                                             {0x1A, u"Åå", "aa"},
                                             {0x1C, u"Çç", "cc"}}};

/// What a character adds to a key.
struct Weight {
  Bytes Plain;
  Byte Accent = kNoAccent;
  Byte Hidden = 0;  ///< Not 0: the character counts only where all others are the same.
};

std::optional<Byte> LetterOrDigit(char16_t c) {
  if (c >= u'0' && c <= u'9') {
    return static_cast<Byte>(kFirstDigit + 2 * (c - u'0'));
  }
  if (c >= u'a' && c <= u'z') {
    return kLetters.at(static_cast<std::size_t>(c - u'a'));
  }
  if (c >= u'A' && c <= u'Z') {
    return kLetters.at(static_cast<std::size_t>(c - u'A'));
  }
  return std::nullopt;
}

std::optional<Weight> AccentedWeight(char16_t c) {
  for (const Accent& accent : kAccents) {
    const std::size_t place = accent.Letters.find(c);
    if (place != std::u16string_view::npos) {
      const auto plain = static_cast<char16_t>(accent.Plain[place]);
      return Weight{{*LetterOrDigit(plain)}, accent.Code};
    }
  }
  return std::nullopt;
}

std::optional<Weight> WeightOf(char16_t c) {
  if (const auto code = LetterOrDigit(c)) {
    return Weight{{*code}};
  }
  if (c == u'\'' || c == u'-') {
    return Weight{{}, kNoAccent, static_cast<Byte>(c == u'-' ? 0x82 : 0x80)};
  }
  if (c == u'ß') {
    return Weight{Bytes(2, *LetterOrDigit(u's'))};
  }
  const auto sign = std::find_if(kSigns.begin(), kSigns.end(),
                                 [c](const Sign& one) { return one.Character == c; });
  if (sign != kSigns.end()) {
    Weight weight{{sign->First}};
    if (sign->Second != 0) {
      weight.Plain.push_back(sign->Second);
    }
    return weight;
  }
  return AccentedWeight(c);
}

void AppendAll(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

void AppendHidden(Bytes& hidden, std::size_t characters_before, Byte code) {
  const auto place = static_cast<std::uint32_t>(kFirstPlace + 4 * characters_before);
  hidden.push_back(static_cast<Byte>(place >> 8U));
  hidden.push_back(static_cast<Byte>(place));
  hidden.push_back(0x06);
  hidden.push_back(code);
}

}  // namespace

bool HasTextKey(std::string_view text) {
  const std::u16string units = Utf16FromUtf8(text);
  return std::all_of(units.begin(), units.end(),
                     [](char16_t c) { return WeightOf(c).has_value(); });
}

void AppendTextKey(Bytes& key, std::string_view text) {
  Bytes accents;
  Bytes hidden;
  for (const char16_t c : Utf16FromUtf8(text)) {
    const std::optional<Weight> weight = WeightOf(c);
    if (!weight) {
      throw FileProblem(Phrase::Tr("The name of a table has a sign that this program cannot sort."),
                        Phrase::Tr("Rename the table: use letters, digits and common signs only."));
    }
    if (weight->Hidden != 0) {
      AppendHidden(hidden, accents.size(), weight->Hidden);
      continue;
    }
    AppendAll(key, weight->Plain);
    accents.push_back(weight->Accent);
  }
  while (!accents.empty() && accents.back() == kNoAccent) {
    accents.pop_back();
  }
  key.push_back(kEnd);
  AppendAll(key, accents);
  if (!hidden.empty()) {
    key.insert(key.end(), 3, kEnd);
    AppendAll(key, hidden);
  }
  key.push_back(0x00);
}

}  // namespace veyra::access
