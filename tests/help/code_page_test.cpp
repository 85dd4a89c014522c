#include "help/code_page.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

TEST(CodePageTest, AByteOrderMarkTells) {
  EXPECT_EQ("café", HtmlAsUtf8("\xEF\xBB\xBF"
                               "café",
                               "CP1252"));
  EXPECT_EQ("é", HtmlAsUtf8(std::string_view("\xFF\xFE\xE9\0", 4), "CP1252"));
  EXPECT_EQ("é", HtmlAsUtf8(std::string_view("\xFE\xFF\0\xE9", 4), "CP1252"));
}

TEST(CodePageTest, ANamedCharsetTells) {
  const struct {
    const char* Charset;
    const char* Bytes;
    const char* Text;
  } rows[] = {
      {"windows-1252", "\x93\xE9\x94 \x80", "“é” €"},
      {"iso-8859-1", "\x93\xE9\x94", "“é”"},
      {"WINDOWS-1251", "\xCF\xF0\xE8", "При"},
      {"windows-1250", "\xE8", "č"},
      {"iso-8859-2", "\xB1", "ą"},
      {"shift_jis", "\x93\xFA", "日"},
      {"utf-8", "\xC3\xA9", "é"},
      {"utf-8", "\xE9", "\xEF\xBF\xBD"},
      {"windows-1252", "\x81", "\xEF\xBF\xBD"},
  };
  for (const auto& row : rows) {
    const std::string head =
        std::string("<meta content=\"text/html; charset=") + row.Charset + "\">";
    EXPECT_EQ(head + row.Text, HtmlAsUtf8(head + row.Bytes, "CP1253")) << row.Charset;
  }
}

TEST(CodePageTest, ACharsetInQuotesTells) {
  EXPECT_EQ("<meta charset='windows-1251'>П", HtmlAsUtf8("<meta charset='windows-1251'>\xCF", ""));
}

TEST(CodePageTest, WithoutAWordOnItValidUtf8IsUtf8) {
  EXPECT_EQ("café", HtmlAsUtf8("café", "CP1252"));
}

TEST(CodePageTest, WithoutAWordOnItTheFilesCodePageCounts) {
  EXPECT_EQ("café", HtmlAsUtf8("caf\xE9", "CP1252"));
  EXPECT_EQ("При", HtmlAsUtf8("\xCF\xF0\xE8", "CP1251"));
}

TEST(CodePageTest, AnUnknownCharsetCountsAsTheFilesCodePage) {
  EXPECT_EQ("<meta charset=klingon>é", HtmlAsUtf8("<meta charset=klingon>\xE9", "CP1252"));
  EXPECT_EQ("<meta charset=windows-9999>é", HtmlAsUtf8("<meta charset=windows-9999>\xC3\xA9", ""));
}

TEST(CodePageTest, LongTextsAreConvertedWhole) {
  const std::string converted = HtmlAsUtf8(std::string(100000, '\xE9'), "CP1252");
  EXPECT_EQ(200000U, converted.size());
}

TEST(CodePageTest, ALanguageHasItsCodePage) {
  EXPECT_EQ("CP1252", CodePageOfLanguage(0x0409));
  EXPECT_EQ("CP1251", CodePageOfLanguage(0x0419));
  EXPECT_EQ("CP1250", CodePageOfLanguage(0x0415));
  EXPECT_EQ("CP936", CodePageOfLanguage(0x0804));
  EXPECT_EQ("CP950", CodePageOfLanguage(0x0404));
  EXPECT_EQ("CP1252", CodePageOfLanguage(0xFFFFFFFF));
}

}  // namespace
}  // namespace veyra
