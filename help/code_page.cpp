#include "help/code_page.h"

#include <algorithm>
#include <array>
#include <optional>

#include "data/ascii.h"
#include "data/charset.h"
#include "data/text.h"

namespace veyra {
namespace {

constexpr std::size_t kHeadSize = 2048;

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

/// The value of the first "charset=" in the head of an HTML text, in lower case; or empty.
std::string NamedCharset(std::string_view html) {
  const std::string head = ascii::LowerCase(html.substr(0, kHeadSize));
  const std::string mark = "charset=";
  std::size_t begin = head.find(mark);
  if (begin == std::string::npos) {
    return {};
  }
  begin = head.find_first_not_of("\"' ", begin + mark.size());
  if (begin == std::string::npos) {
    return {};
  }
  return head.substr(begin, head.find_first_of("\"' ;/>", begin) - begin);
}

/// The converter's name of a charset, or nothing when it is none that a help file is written in.
/// A fixed list: a converter of every kind is not let loose on other people's files.
std::optional<std::string> ConverterName(const std::string& charset) {
  // What calls itself Latin-1 was written on a Windows machine.
  static const std::array<std::string, 3> latin{"iso-8859-1", "us-ascii", "latin1"};
  static const std::array<std::string, 14> known{
      "utf-8",  "shift_jis", "euc-jp",  "gb2312",     "gbk",        "big5",       "euc-kr",
      "koi8-r", "koi8-u",    "tis-620", "iso-8859-2", "iso-8859-5", "iso-8859-7", "iso-8859-9"};
  if (std::find(latin.begin(), latin.end(), charset) != latin.end()) {
    return "CP1252";
  }
  if (StartsWith(charset, "windows-")) {
    return "CP" + charset.substr(8);
  }
  if (StartsWith(charset, "cp")) {
    return "CP" + charset.substr(2);
  }
  if (charset == "ks_c_5601-1987") {
    return "CP949";
  }
  if (charset == "utf8") {
    return "utf-8";
  }
  if (std::find(known.begin(), known.end(), charset) != known.end()) {
    return charset;
  }
  return std::nullopt;
}

std::string Converted(std::string_view text, const std::string& converter_name) {
  const auto charset = Charset::Named(converter_name);
  return charset ? charset->ToUtf8(text) : ValidUtf8(text);
}

}  // namespace

std::string CodePageOfLanguage(unsigned language_id) {
  struct LanguagePage {
    unsigned Language;
    const char* CodePage;
  };
  static constexpr std::array<LanguagePage, 31> pages{{
      {0x01, "CP1256"}, {0x02, "CP1251"}, {0x05, "CP1250"}, {0x08, "CP1253"}, {0x0D, "CP1255"},
      {0x0E, "CP1250"}, {0x11, "CP932"},  {0x12, "CP949"},  {0x15, "CP1250"}, {0x18, "CP1250"},
      {0x19, "CP1251"}, {0x1A, "CP1250"}, {0x1B, "CP1250"}, {0x1C, "CP1250"}, {0x1E, "CP874"},
      {0x1F, "CP1254"}, {0x20, "CP1256"}, {0x22, "CP1251"}, {0x23, "CP1251"}, {0x24, "CP1250"},
      {0x25, "CP1257"}, {0x26, "CP1257"}, {0x27, "CP1257"}, {0x29, "CP1256"}, {0x2A, "CP1258"},
      {0x2C, "CP1254"}, {0x2F, "CP1251"}, {0x3F, "CP1251"}, {0x43, "CP1254"}, {0x44, "CP1251"},
      {0x50, "CP1251"},
  }};
  constexpr unsigned kChinese = 0x04;
  constexpr unsigned kChinaAndSingapore[] = {0x0804, 0x1004};
  const unsigned language = language_id & 0x3FFU;
  if (language == kChinese) {
    const bool simplified = std::find(std::begin(kChinaAndSingapore), std::end(kChinaAndSingapore),
                                      language_id) != std::end(kChinaAndSingapore);
    return simplified ? "CP936" : "CP950";
  }
  const auto page = std::find_if(pages.begin(), pages.end(), [&](const LanguagePage& candidate) {
    return candidate.Language == language;
  });
  return page == pages.end() ? "CP1252" : page->CodePage;
}

std::string HtmlAsUtf8(std::string_view html, const std::string& code_page) {
  if (StartsWith(html, "\xEF\xBB\xBF")) {
    return ValidUtf8(html.substr(3));
  }
  if (StartsWith(html, "\xFF\xFE")) {
    return Converted(html.substr(2), "UTF-16LE");
  }
  if (StartsWith(html, "\xFE\xFF")) {
    return Converted(html.substr(2), "UTF-16BE");
  }
  if (const auto named = ConverterName(NamedCharset(html))) {
    return Converted(html, *named);
  }
  return IsUtf8(html) ? std::string(html) : Converted(html, code_page);
}

}  // namespace veyra
