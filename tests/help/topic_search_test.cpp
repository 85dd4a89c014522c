#include "help/topic_search.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

class TopicSearchTest : public testing::Test {
 protected:
  /// The pages found, parted by blanks.
  std::string Found(const std::string& words) {
    std::string pages;
    for (const FoundTopic& topic : search_.Find(words)) {
      pages += (pages.empty() ? "" : " ") + topic.Page;
    }
    return pages;
  }

  ChmArchive archive_{{{"/a.htm", "<title>Printing</title>Print the <b>month</b>."},
                       {"/b.htm", "<title>Other</title>print, print again. Über die Straße"},
                       {"/c.htm", "<p>The month &amp; the year"},
                       {"/d.css", "print"}}};
  TopicSearch search_{archive_};
};

TEST_F(TopicSearchTest, APageWithTheWordInItsTitleComesFirst) {
  EXPECT_EQ("a.htm b.htm", Found("print"));
}

TEST_F(TopicSearchTest, EveryWordMustOccur) {
  EXPECT_EQ("a.htm", Found(" month  print "));
}

TEST_F(TopicSearchTest, LetterCaseDoesNotMatterInAnyScript) {
  EXPECT_EQ("b.htm", Found("ÜBER"));
  EXPECT_EQ("b.htm", Found("über"));
}

TEST_F(TopicSearchTest, TagsAreNotSearched) {
  EXPECT_EQ("", Found("title"));
}

TEST_F(TopicSearchTest, NoWordFindsNothing) {
  EXPECT_EQ("", Found(""));
  EXPECT_EQ("", Found("  "));
}

TEST_F(TopicSearchTest, APageWithoutATitleIsCalledByItsName) {
  const auto found = search_.Find("year");
  ASSERT_EQ(1U, found.size());
  EXPECT_EQ("c.htm", found[0].Title);
}

TEST_F(TopicSearchTest, TheExcerptOfAShortPageIsAllOfIt) {
  const auto found = search_.Find("month print");
  ASSERT_EQ(1U, found.size());
  EXPECT_EQ("Print the month.", found[0].Excerpt);
}

TEST(TopicSearchExcerptTest, TheExcerptDoesNotRepeatTheTitle) {
  const ChmArchive archive(
      std::vector<HelpObject>{{"/a.htm", "<title>The month</title><h1>The month</h1>One month."}});
  const auto found = TopicSearch(archive).Find("month");
  ASSERT_EQ(1U, found.size());
  EXPECT_EQ("One month.", found[0].Excerpt);
}

TEST(TopicSearchExcerptTest, TheExcerptShowsTheWordsAroundTheFirstPlace) {
  std::string text;
  for (int i = 0; i < 50; ++i) {
    text += "wörd ";
  }
  const ChmArchive archive({{"/a.htm", text + "Target " + text}});
  const auto found = TopicSearch(archive).Find("target");
  ASSERT_EQ(1U, found.size());
  const std::string before = "… wörd wörd wörd wörd wörd Target";
  const std::string behind =
      " wörd wörd wörd wörd wörd wörd wörd wörd wörd wörd wörd wörd wörd wörd …";
  EXPECT_EQ(before + behind, found[0].Excerpt);
}

}  // namespace
}  // namespace veyra
