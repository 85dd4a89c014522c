#include "help/html_text.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

TEST(HtmlTextTest, PlainTextIsWhatAReaderSees) {
  const struct {
    const char* What;
    const char* Html;
    const char* Text;
  } rows[] = {
      {"nothing", "", ""},
      {"no tags", "one  two\nthree", "one two three"},
      {"blocks part words", "<p>one</p><p>two</p>", "one two"},
      {"inline tags do not", "one<b>two</b>", "onetwo"},
      {"comments", "one<!-- <b>unseen</b> --> two", "one two"},
      {"scripts and styles", "<style>p {}</style>one<script>if (a<b) x();</script>", "one"},
      {"title", "<title>Unseen</title>one", "one"},
      {"entities", "a &amp; b &lt;c&gt; &quot;d&quot;&nbsp;e", "a & b <c> \"d\" e"},
      {"numbers of characters", "caf&#233; &#xE9; &#x1F600;", "café é 😀"},
      {"no entity after all", "Smith & Sons; AT&T &nonsense; &#0; &#xD800; &",
       "Smith & Sons; AT&T &nonsense; &#0; &#xD800; &"},
      {"a tag that never ends", "one<p two", "one"},
      {"a comment that never ends", "one<!-- two", "one"},
      {"a lonely less-than", "1 < 2", "1 < 2"},
      {"a greater-than in quotes", "<img alt=\"a > b\">one", "one"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.Text, PlainText(row.Html)) << row.What;
  }
}

TEST(HtmlTextTest, TheTitleIsThatOfTheHead) {
  EXPECT_EQ("Book & go", PageTitle("<HTML><HEAD><TITLE>\n Book &amp;\n go </TITLE></HEAD></HTML>"));
}

TEST(HtmlTextTest, APageMayHaveNoTitle) {
  EXPECT_EQ("", PageTitle("<html><body>text</body></html>"));
  EXPECT_EQ("", PageTitle("<title></title>"));
  EXPECT_EQ("", PageTitle("<title>"));
}

TEST(HtmlTextTest, AttributesAreFoundInAnyForm) {
  const auto pieces = HtmlPieces("<A Href='a b.htm' NAME = plain  checked title=\"x&amp;y\" end=>");
  ASSERT_EQ(1U, pieces.size());
  EXPECT_EQ("a", pieces[0].Tag);
  EXPECT_EQ("a b.htm", Attribute(pieces[0], "href"));
  EXPECT_EQ("plain", Attribute(pieces[0], "name"));
  EXPECT_EQ("", Attribute(pieces[0], "checked"));
  EXPECT_EQ("x&y", Attribute(pieces[0], "title"));
  EXPECT_EQ("", Attribute(pieces[0], "end"));
  EXPECT_EQ(std::nullopt, Attribute(pieces[0], "width"));
}

TEST(HtmlTextTest, AnAttributeWhoseQuoteNeverEndsReachesToTheEnd) {
  const auto pieces = HtmlPieces("<a href=\"month.htm");
  ASSERT_EQ(1U, pieces.size());
  EXPECT_EQ("month.htm", Attribute(pieces[0], "href"));
}

}  // namespace
}  // namespace veyra
