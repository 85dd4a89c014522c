#include "data/phrase.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace veyra {
namespace {

/// Translates what the table holds.
Phrase::Translator Into(const std::map<std::string, std::string>& table) {
  return [table](const std::string& pattern) {
    const auto found = table.find(pattern);
    return found == table.end() ? pattern : found->second;
  };
}

TEST(PhraseTest, InEnglishIsItsPatternFilled) {
  EXPECT_EQ("The table Reserv has no column MultKey.",
            Phrase::Tr("The table %1 has no column %2.", "Reserv", "MultKey").English());
  EXPECT_EQ("8 of 30", Phrase::Tr("%1 of %2", 8, std::size_t{30}).English());
}

TEST(PhraseTest, IsTranslatedWhereItIsMarkedAndThereOnly) {
  const auto german = Into({{"Looking ...", "Suche läuft ..."}});
  EXPECT_EQ("Suche läuft ...", Phrase::Tr("Looking ...").TranslatedBy(german));
  EXPECT_EQ("Looking ...", Phrase("Looking ...").TranslatedBy(german));
  EXPECT_EQ("Looking ...", Phrase(std::string("Looking ...")).TranslatedBy(german));
}

TEST(PhraseTest, WithoutATranslationStaysEnglish) {
  EXPECT_EQ("Booked: Smith", Phrase::Tr("Booked: %1", "Smith").TranslatedBy(Into({})));
}

TEST(PhraseTest, MayHaveItsPlacesInAnotherOrder) {
  const auto german = Into({{"%1 of %2 are taken", "Von %2 sind %1 belegt"}});
  EXPECT_EQ("Von 30 sind 8 belegt", Phrase::Tr("%1 of %2 are taken", 8, 30).TranslatedBy(german));
}

TEST(PhraseTest, MayHaveAPlaceTwice) {
  const auto twice = Into({{"Booked: %1", "%1, %1"}});
  EXPECT_EQ("Ann, Ann", Phrase::Tr("Booked: %1", "Ann").TranslatedBy(twice));
}

TEST(PhraseTest, AValueThatLooksLikeAPlaceIsLeftAlone) {
  EXPECT_EQ("%2 and %1", Phrase::Tr("%1 and %2", "%2", "%1").English());
}

TEST(PhraseTest, APercentSignThatIsNoPlaceStays) {
  EXPECT_EQ("100 % of Ann %", Phrase::Tr("100 % of %1 %", "Ann").English());
  EXPECT_EQ("%9 Ann", Phrase::Tr("%1", "x").TranslatedBy(Into({{"%1", "%9 Ann"}})));
}

TEST(PhraseTest, TranslatesWhatStandsInItsPlaces) {
  const auto german = Into({{"Booked: %1", "Gebucht: %1"}, {"the colours", "die Farben"}});
  EXPECT_EQ("Gebucht: die Farben",
            Phrase::Tr("Booked: %1", Phrase::Tr("the colours")).TranslatedBy(german));
}

TEST(PhraseTest, KeepsNamesOfEveryScript) {
  EXPECT_EQ("Booked: Żółć 山田 😀", Phrase::Tr("Booked: %1", "Żółć 山田 😀").English());
}

TEST(PhraseTest, CanBeWrittenOneAfterTheOther) {
  const auto german = Into({{"Undone.", "Rückgängig gemacht."}});
  Phrase text = Phrase::Tr("Undone.") + " " + std::string("Smith");
  text += text;
  EXPECT_EQ("Rückgängig gemacht. SmithRückgängig gemacht. Smith", text.TranslatedBy(german));
}

TEST(PhraseTest, IsEmptyWhenItHasNothingToSay) {
  EXPECT_TRUE(Phrase().IsEmpty());
  EXPECT_TRUE(Phrase("").IsEmpty());
  EXPECT_FALSE(Phrase::Tr("free").IsEmpty());
}

TEST(JoinedLinesTest, LeavesOutEmptyLines) {
  EXPECT_EQ("one\r\nthree", JoinedLines({"", "one", Phrase(), "three", ""}, "\r\n").English());
  EXPECT_TRUE(JoinedLines({}, "\n").IsEmpty());
}

}  // namespace
}  // namespace veyra
