#include "help/html_text.h"

#include <gtest/gtest.h>

#include "help/html_reading.h"

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
      {"no entity after all", "Smith & Sons; AT&T &nonsense; &", "Smith & Sons; AT&T &nonsense; &"},
      {"numbers of no character", "one &#0; &#xD800; two", "one two"},
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

/// "<a name=x>text</a>" of a text, as the visitor gets it.
class Echo : public HtmlVisitor {
 public:
  static std::string Of(std::string_view html) {
    Echo echo;
    ReadHtml(html, echo);
    return echo.text_;
  }

 private:
  void BeginTag(std::string_view name, const HtmlAttributes& attributes) override {
    text_ += "<" + std::string(name);
    for (const auto& [attribute, value] : attributes) {
      text_ += " " + attribute + "=" + value;
    }
    text_ += ">";
  }
  void EndTag(std::string_view name) override { text_ += "</" + std::string(name) + ">"; }
  void TakeText(std::string_view text) override { text_ += text; }

  std::string text_;
};

TEST(HtmlTextTest, AttributesAreFoundInAnyForm) {
  EXPECT_EQ("<html><body><a checked= href=a b.htm name=plain title=x&y></a></body></html>",
            Echo::Of("<A Href='a b.htm' NAME = plain  checked title=\"x&amp;y\"></A>"));
}

TEST(HtmlTextTest, AnAttributeWhoseQuoteNeverEndsReachesToTheEnd) {
  EXPECT_EQ("one", PlainText("one<a href=\"month.htm"));
}

TEST(HtmlTextTest, EveryTagThatBeganEnds) {
  EXPECT_EQ("<html><body><ul><li><b>one</b></li></ul></body></html>", Echo::Of("<ul><li><b>one"));
}

TEST(HtmlTextTest, WhatLiesDeeperThanTheDeepestTagIsNotRead) {
  std::string html;
  for (int i = 0; i < 2 * kDeepestTag; ++i) {
    html += "<div>";
  }
  EXPECT_EQ("seen", PlainText("seen" + html + "unseen"));
}

TEST(HtmlTextTest, APageThatNamesAnotherEncodingIsReadAsUtf8AllTheSame) {
  EXPECT_EQ("café", PlainText("<html><head><meta http-equiv=\"Content-Type\" "
                              "content=\"text/html; charset=windows-1252\"></head>café</html>"));
}

}  // namespace
}  // namespace veyra
