#include "help/chm_archive.h"

#include <gtest/gtest.h>

#include "tests/help/help_samples.h"

namespace veyra {
namespace {

/// An archive of two pages, more objects at will.
ChmArchive Archive(std::vector<HelpObject> more = {}) {
  std::vector<HelpObject> objects{{"/month.htm", "<title>The month</title>month"},
                                  {"/sub/Day.HTML", "<title>The day</title>day"},
                                  {"/help.css", "p {}"}};
  objects.insert(objects.end(), more.begin(), more.end());
  return ChmArchive(std::move(objects));
}

std::string TextOf(const std::string* bytes) {
  return bytes != nullptr ? *bytes : "none";
}

std::string TopicFor(const std::string& name_in_table) {
  return Archive(ContextTables({{60, name_in_table}})).Topic(60).value_or("none");
}

TEST(ChmArchiveTest, ObjectsAreFoundInAnyFormOfTheirName) {
  const ChmArchive archive = Archive();
  for (const char* reference :
       {"help.css", "/help.css", "HELP.CSS", "./help.css", "sub/../help.css", "\\help.css",
        "help%2ecss", "other.chm::/help.css", "ms-its:C:\\x.chm::/help.css", "help.css#top"}) {
    EXPECT_EQ("p {}", TextOf(archive.Object(reference))) << reference;
  }
}

TEST(ChmArchiveTest, WhatIsNotThereIsNotFound) {
  const ChmArchive archive = Archive();
  for (const char* reference : {"", "/", "help", "sub", "day.html", "#", "::", "%", "../.."}) {
    EXPECT_EQ("none", TextOf(archive.Object(reference))) << reference;
  }
}

TEST(ChmArchiveTest, AContextNumberLeadsToItsPage) {
  const ChmArchive archive =
      Archive(ContextTables({{20, "month.htm"}, {60, "sub/Day.HTML"}, {80, "gone.htm"}}));
  EXPECT_EQ("month.htm", archive.Topic(20));
  EXPECT_EQ("sub/Day.HTML", archive.Topic(60));
}

TEST(ChmArchiveTest, ANumberThatIsNotMappedLeadsNowhere) {
  EXPECT_EQ(std::nullopt, Archive(ContextTables({{20, "month.htm"}})).Topic(21));
  EXPECT_EQ(std::nullopt, Archive().Topic(20));
}

TEST(ChmArchiveTest, ANumberMappedToAMissingPageLeadsNowhere) {
  EXPECT_EQ("none", TopicFor("gone.htm"));
  EXPECT_EQ("none", TopicFor(""));
}

TEST(ChmArchiveTest, TheFoldersOfTheMachineItWasCompiledOnAreDropped) {
  EXPECT_EQ("month.htm", TopicFor("/home/anna/help/month.htm"));
  EXPECT_EQ("month.htm", TopicFor("C:\\Help\\month.htm"));
  EXPECT_EQ("sub/day.html", TopicFor("C:\\Help\\sub\\day.html"));
}

TEST(ChmArchiveTest, TheAnchorOfATopicIsKept) {
  EXPECT_EQ("month.htm#paging", TopicFor(".\\month.htm#paging"));
}

TEST(ChmArchiveTest, DamagedContextTablesLeadNowhere) {
  const std::string pair = NumberBytes(60, 4) + NumberBytes(5000, 4);
  EXPECT_EQ(std::nullopt,
            Archive({{"/#IVB", NumberBytes(8, 4) + pair}, {"/#STRINGS", "x"}}).Topic(60));
  EXPECT_EQ(std::nullopt, Archive({{"/#IVB", "\x10"}, {"/#STRINGS", ""}}).Topic(60));
  EXPECT_EQ(std::nullopt, Archive({{"/#IVB", NumberBytes(8, 4) + NumberBytes(60, 4) + "\x01"},
                                   {"/#STRINGS", "month.htm"}})
                              .Topic(60));
}

TEST(ChmArchiveTest, TheSystemTableNamesTitleAndFirstPage) {
  const ChmArchive archive =
      Archive({{"/#SYSTEM", NumberBytes(3, 4) + SystemEntry(9, "maker") +
                                SystemEntry(2, std::string("sub\\day.html\0", 13)) +
                                SystemEntry(3, std::string("Help & more\0", 12))}});
  EXPECT_EQ("Help & more", archive.Title());
  EXPECT_EQ("sub/day.html", archive.FirstPage());
}

TEST(ChmArchiveTest, ADamagedSystemTableIsReadAsFarAsItGoes) {
  const ChmArchive archive = Archive({{"/#SYSTEM", NumberBytes(3, 4) + SystemEntry(3, "Title") +
                                                       NumberBytes(2, 2) + NumberBytes(500, 2)}});
  EXPECT_EQ("Title", archive.Title());
  EXPECT_EQ("month.htm", archive.FirstPage());
}

TEST(ChmArchiveTest, WithoutContentsEveryPageIsListedUnderItsTitle) {
  const ChmArchive archive = Archive();
  ASSERT_EQ(2U, archive.Contents().size());
  EXPECT_EQ((ContentsEntry{0, "The month", "month.htm"}), archive.Contents()[0]);
  EXPECT_EQ((ContentsEntry{0, "The day", "sub/Day.HTML"}), archive.Contents()[1]);
}

TEST(ChmArchiveTest, AContentsFileIsFoundThoughNoTableNamesIt) {
  const ChmArchive archive =
      Archive({{"/toc.hhc",
                "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"Day\">"
                "<param name=\"Local\" value=\"sub/day.html\"></OBJECT></UL>"}});
  ASSERT_EQ(1U, archive.Contents().size());
  EXPECT_EQ((ContentsEntry{0, "Day", "sub/day.html"}), archive.Contents()[0]);
  EXPECT_EQ("sub/day.html", archive.FirstPage());
}

TEST(ChmArchiveTest, APageWithoutACharsetIsInTheCodePageOfTheFilesLanguage) {
  const ChmArchive archive =
      Archive({{"/#SYSTEM", NumberBytes(3, 4) + SystemEntry(4, NumberBytes(0x0419, 4)) +
                                SystemEntry(3, "\xCF\xF0\xE8")},
               {"/ru.htm", "\xCF\xF0\xE8"}});
  EXPECT_EQ("При", archive.Page("ru.htm"));
  EXPECT_EQ("При", archive.Title());
}

TEST(ChmArchiveTest, AnEmptyArchiveHasNothing) {
  const ChmArchive archive{{}};
  EXPECT_EQ("", archive.FirstPage());
  EXPECT_EQ("", archive.Title());
  EXPECT_TRUE(archive.Contents().empty());
  EXPECT_EQ(std::nullopt, archive.Page("month.htm"));
}

}  // namespace
}  // namespace veyra
