#include "help/contents.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

std::string Line(const std::string& name, const std::string& page) {
  return "<LI> <OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + name +
         "\"><param name=\"Local\" value=\"" + page + "\"></OBJECT>\n";
}

/// "0 Overview (overview.htm)", a line for each entry.
std::string Printed(const std::vector<ContentsEntry>& entries) {
  std::string text;
  for (const ContentsEntry& entry : entries) {
    text += std::to_string(entry.Level) + " " + entry.Title + " (" + entry.Page + ")\n";
  }
  return text;
}

TEST(ContentsTest, NestedListsAreLevels) {
  EXPECT_EQ("0 One (1.htm)\n1 Two (2.htm)\n2 Three (3.htm)\n0 Four (4.htm)\n",
            Printed(ParseContents("<HTML><BODY><UL>" + Line("One", "1.htm") + "<UL>" +
                                  Line("Two", "2.htm") + "<UL>" + Line("Three", "3.htm") +
                                  "</UL></UL>" + Line("Four", "4.htm") + "</UL></BODY></HTML>")));
}

TEST(ContentsTest, AHeadingLeadsNowhere) {
  EXPECT_EQ("0 Booking ()\n",
            Printed(ParseContents("<ul><li><object type=\"text/sitemap\">"
                                  "<param name=\"Name\" value=\"Booking\"></object></ul>")));
}

TEST(ContentsTest, ThePropertiesOfTheFileAreNoEntry) {
  EXPECT_EQ("0 One (1.htm)\n",
            Printed(ParseContents("<OBJECT type=\"text/site properties\">"
                                  "<param name=\"ImageType\" value=\"Folder\"></OBJECT><UL>" +
                                  Line("One", "1.htm") + "</UL>")));
}

TEST(ContentsTest, EntitiesAreResolved) {
  EXPECT_EQ("0 Colours & more (c.htm)\n",
            Printed(ParseContents("<UL>" + Line("Colours &amp; more", "c.htm"))));
}

TEST(ContentsTest, ListsThatNeverEndDoNotGoDeeperThanTheDeepestLevel) {
  std::string hhc;
  for (int i = 0; i < 5000; ++i) {
    hhc += "<UL>" + Line("x", "x.htm");
  }
  const auto entries = ParseContents(hhc);
  ASSERT_EQ(5000U, entries.size());
  EXPECT_EQ(kDeepestLevel, entries.back().Level);
}

TEST(ContentsTest, ListsThatNeverBeganAreNoMatter) {
  EXPECT_EQ("0 One (1.htm)\n", Printed(ParseContents("</UL></UL>" + Line("One", "1.htm"))));
}

}  // namespace
}  // namespace veyra
