#include "data/charset.h"

#include <gtest/gtest.h>

namespace {

using veyra::AppendUtf8;
using veyra::Charset;

std::string Utf8(char32_t character) {
  std::string text = "a";
  AppendUtf8(text, character);
  return text;
}

TEST(CharsetTest, ConvertsByTheNameOfTheCharset) {
  EXPECT_EQ("Caf\u00E9 \u20AC", Charset::Named("CP1252")->ToUtf8("Caf\xE9 \x80"));
  EXPECT_EQ("\u041C", Charset::Named("CP1251")->ToUtf8("\xCC"));
}

TEST(CharsetTest, OfAnUnknownNameIsNothing) {
  EXPECT_FALSE(Charset::Named("CP-no-such-page").has_value());
}

TEST(CharsetTest, GivesEachByteOfNoCharacterAPlaceHolder) {
  EXPECT_EQ(
      "a\uFFFD"
      "b\uFFFD",
      Charset::Named("UTF-8")->ToUtf8("a\xFF"
                                      "b\xC3"));
}

TEST(CharsetTest, ConvertsATextLongerThanItsBuffer) {
  const std::string long_text(2000, '\xE9');
  std::string expected;
  for (int i = 0; i < 2000; ++i) {
    expected += "\u00E9";
  }
  EXPECT_EQ(expected, Charset::Named("CP1252")->ToUtf8(long_text));
}

TEST(CharsetTest, BeginsEachTextAnew) {
  const auto charset = Charset::Named("ISO-2022-JP");
  ASSERT_TRUE(charset.has_value());
  charset->ToUtf8("\x1B$B0!");
  EXPECT_EQ("0!", charset->ToUtf8("0!"));
}

TEST(AppendUtf8Test, AddsACharacterOfAnyLength) {
  EXPECT_EQ("az", Utf8('z'));
  EXPECT_EQ("a\u00E9", Utf8(0xE9));
  EXPECT_EQ("a\u20AC", Utf8(0x20AC));
  EXPECT_EQ("a\U0001F600", Utf8(0x1F600));
}

TEST(AppendUtf8Test, AddsAPlaceHolderForWhatStandsForNone) {
  EXPECT_EQ("a\uFFFD", Utf8(0xD800));
  EXPECT_EQ("a\uFFFD", Utf8(0xDFFF));
  EXPECT_EQ("a\uFFFD", Utf8(0x110000));
}

}  // namespace
