#include "logic/name_matches.h"

#include <gtest/gtest.h>

namespace veyra::modRes {
namespace {

using Names = std::vector<std::string>;

class NameMatchesTest : public testing::Test {
 protected:
  Names Find(const std::string& text, std::size_t most = 8) { return matches_.Find(text, most); }

  NameMatches matches_;
};

TEST_F(NameMatchesTest, AMatchStandsAnywhereInTheNameInAnyLetterCase) {
  matches_.SetNames({"Ann Smith", "Bob", "Blacksmith Guild"}, {});
  EXPECT_EQ((Names{"Ann Smith", "Blacksmith Guild"}), Find("sMiTh"));
  EXPECT_EQ((Names{"Ann Smith"}), Find("n s"));
  EXPECT_EQ(Names(), Find("smithe"));
}

TEST_F(NameMatchesTest, AccentsAreIgnoredOnBothSides) {
  matches_.SetNames({"Jos\u00e9 Mu\u00f1oz", "\u0141ukasz", "Jose\u0301 Diaz", "Nguy\u1ec5n"}, {});
  EXPECT_EQ((Names{"Jos\u00e9 Mu\u00f1oz", "Jose\u0301 Diaz"}), Find("jose"));
  EXPECT_EQ((Names{"Jos\u00e9 Mu\u00f1oz"}), Find("MUN\u014cZ"));
  EXPECT_EQ((Names{"\u0141ukasz"}), Find("luk"));
  EXPECT_EQ((Names{"Nguy\u1ec5n"}), Find("nguyen"));
}

TEST_F(NameMatchesTest, OtherScriptsAreComparedAsTheyAre) {
  matches_.SetNames({"\u041c\u0430\u0440\u0438\u044f", "\u05d3\u05d5\u05d3", "\U0001F600 Club"},
                    {});
  EXPECT_EQ((Names{"\u041c\u0430\u0440\u0438\u044f"}), Find("\u043c\u0410\u0440"));
  EXPECT_EQ((Names{"\u05d3\u05d5\u05d3"}), Find("\u05d5\u05d3"));
  EXPECT_EQ((Names{"\U0001F600 Club"}), Find("\U0001F600"));
}

TEST_F(NameMatchesTest, ThoseUsedLastComeFirstThenThoseThatBeginSo) {
  matches_.SetNames({"The Anns", "Ann", "Annabel", "Joann"}, {"Joann", "Choir of Ann"});
  EXPECT_EQ((Names{"Joann", "Choir of Ann", "Ann", "Annabel", "The Anns"}), Find("ann"));
}

TEST_F(NameMatchesTest, EachNameIsOfferedOnceAndNotMoreThanAskedFor) {
  matches_.SetNames({"Ann", "Ann", "Anna", "Hanna"}, {"Ann"});
  EXPECT_EQ((Names{"Ann", "Anna", "Hanna"}), Find("ann"));
  EXPECT_EQ((Names{"Ann", "Anna"}), Find("ann", 2));
}

TEST_F(NameMatchesTest, AnEmptyTextOffersNothing) {
  matches_.SetNames({"Ann"}, {"Ann"});
  EXPECT_EQ(Names(), Find(""));
  EXPECT_EQ(Names(), Find("\u0301"));
}

TEST_F(NameMatchesTest, TextsThatAreNoUtf8DoNoHarm) {
  matches_.SetNames({"\xC3", "a\xE2\x82", "\xF0\x9F"}, {});
  EXPECT_EQ((Names{"a\xE2\x82"}), Find("A"));
  EXPECT_EQ((Names{"\xC3"}), Find("\xC3"));
}

TEST_F(NameMatchesTest, OtherNamesTakeThePlaceOfTheFirst) {
  matches_.SetNames({"Ann"}, {});
  Find("a");
  matches_.SetNames({"Bea"}, {});
  EXPECT_EQ((Names{"Bea"}), Find("a"));
}

TEST(UsedNamesTest, ANameUsedAgainComesToTheFront) {
  Names used;
  for (const char* name : {"Ann", "Bob", "Ann"}) {
    UseName(used, name);
  }
  EXPECT_EQ((Names{"Ann", "Bob"}), used);
}

TEST(UsedNamesTest, OnlySoManyAreRemembered) {
  Names used;
  for (int i = 0; i < 100; ++i) {
    UseName(used, std::to_string(i));
  }
  EXPECT_EQ(64u, used.size());
  EXPECT_EQ("99", used.front());
}

}  // namespace
}  // namespace veyra::modRes
