#include "data/text.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>
#include <string_view>

#include "tests/random_text.h"

namespace veyra {
namespace {

struct Case {
  std::string Name;
  std::string Text;
  std::string Expected;
};

void PrintTo(const Case& value, std::ostream* out) {
  *out << value.Name;
}

std::string NameOf(const testing::TestParamInfo<Case>& test) {
  return test.param.Name;
}

struct Count {
  std::string Name;
  std::string Text;
  std::size_t Expected;
};

void PrintTo(const Count& value, std::ostream* out) {
  *out << value.Name;
}

class CharacterCountTest : public testing::TestWithParam<Count> {};

TEST_P(CharacterCountTest, IsThatOf) {
  EXPECT_EQ(GetParam().Expected, CharacterCount(GetParam().Text));
}

INSTANTIATE_TEST_SUITE_P(, CharacterCountTest,
                         testing::Values(Count{"Empty", "", 0}, Count{"Letters", "Pool", 4},
                                         Count{"TwoByteLetter", "Caf\xC3\xA9", 4},
                                         Count{"ThreeByteSign", "\xE2\x82\xAC", 1},
                                         Count{"Emoji", "\xF0\x9F\x8E\x89!", 2},
                                         Count{"Nul", std::string("a\0b", 3), 3},
                                         Count{"CombiningAccent", "e\xCC\x81", 2},
                                         Count{"StrayByte",
                                               "a\xFF"
                                               "b",
                                               3},
                                         Count{"CutSequence", "a\xE2\x82", 3},
                                         Count{"OverlongSlash", "\xC0\xAF", 2},
                                         Count{"Surrogate", "\xED\xA0\x80", 3}),
                         [](const auto& test) { return test.param.Name; });

TEST(Utf16LengthTest, CountsACharacterBeyondTheFirst65536Twice) {
  EXPECT_EQ(0U, Utf16Length(""));
  EXPECT_EQ(3U, Utf16Length("a\xC3\xA9\xE2\x82\xAC"));
  EXPECT_EQ(4U, Utf16Length("\xF0\x9F\x8E\x89\xF0\x9F\x8E\x89"));
  EXPECT_EQ(1U, Utf16Length("\xFF"));
}

TEST(FirstCharactersTest, CutsBetweenCharacters) {
  EXPECT_EQ("Caf\xC3\xA9", FirstCharacters("Caf\xC3\xA9 Noir", 4));
}

TEST(FirstCharactersTest, GivesTheWholeOfAShorterText) {
  EXPECT_EQ("Pool", FirstCharacters("Pool", 50));
}

TEST(FirstCharactersTest, GivesTheWholeOfATextOfThatLength) {
  EXPECT_EQ("Pool", FirstCharacters("Pool", 4));
}

TEST(FirstCharactersTest, GivesNothingOfNoCharacters) {
  EXPECT_EQ("", FirstCharacters("Pool", 0));
}

TEST(FirstCharactersTest, CountsAStrayByteAsOne) {
  EXPECT_EQ("\xFF\xC3\xA9", FirstCharacters("\xFF\xC3\xA9x", 2));
}

class UpperCaseTest : public testing::TestWithParam<Case> {};

TEST_P(UpperCaseTest, Gives) {
  EXPECT_EQ(GetParam().Expected, UpperCase(GetParam().Text));
}

INSTANTIATE_TEST_SUITE_P(
    , UpperCaseTest,
    testing::Values(Case{"Empty", "", ""}, Case{"Latin", "Main Hall 2", "MAIN HALL 2"},
                    Case{"Accents", "\xC3\xA9t\xC3\xA9", "\xC3\x89T\xC3\x89"},
                    Case{"Greek", "\xCE\xB1\xCF\x89", "\xCE\x91\xCE\xA9"},
                    Case{"FinalSigma", "\xCF\x82", "\xCE\xA3"},
                    Case{"Cyrillic", "\xD0\xB4\xD1\x8F", "\xD0\x94\xD0\xAF"},
                    Case{"Deseret", "\xF0\x90\x90\xA8", "\xF0\x90\x90\x80"},
                    Case{"LetterThatGetsLonger", "\xC9\x90", "\xE2\xB1\xAF"},
                    Case{"LetterThatGetsShorter", "\xC4\xB1", "I"},
                    Case{"SharpSStays",
                         "Stra\xC3\x9F"
                         "e",
                         "STRA\xC3\x9F"
                         "E"},
                    Case{"Digraph", "\xC7\x86", "\xC7\x84"},
                    Case{"ScriptWithoutCase", "\xE6\x9D\xB1\xE4\xBA\xAC",
                         "\xE6\x9D\xB1\xE4\xBA\xAC"},
                    Case{"Emoji", "\xF0\x9F\x8E\x89", "\xF0\x9F\x8E\x89"},
                    Case{"StrayBytesStay",
                         "a\xFF"
                         "b\xC3",
                         "A\xFF"
                         "B\xC3"},
                    Case{"NulStays", std::string("a\0b", 3), std::string("A\0B", 3)}),
    NameOf);

class ProperCaseTest : public testing::TestWithParam<Case> {};

TEST_P(ProperCaseTest, Gives) {
  EXPECT_EQ(GetParam().Expected, ProperCase(GetParam().Text));
}

INSTANTIATE_TEST_SUITE_P(
    , ProperCaseTest,
    testing::Values(Case{"Empty", "", ""}, Case{"TwoWords", "main hall", "Main Hall"},
                    Case{"RestInLowerCase", "MAIN HALL", "Main Hall"},
                    Case{"CapitalsWithin", "mcDonald", "Mcdonald"},
                    Case{"BlanksStay", "  main   hall ", "  Main   Hall "},
                    Case{"OnlyBlanks", "   ", "   "}, Case{"Tab", "main\thall", "Main\tHall"},
                    Case{"Newline", "main\r\nhall", "Main\r\nHall"},
                    Case{"NoBreakSpace", "main\xC2\xA0hall", "Main\xC2\xA0Hall"},
                    Case{"IdeographicSpace",
                         "a\xE3\x80\x80"
                         "b",
                         "A\xE3\x80\x80"
                         "B"},
                    Case{"HyphenEndsNoWord", "SWIM-UP bar", "Swim-up Bar"},
                    Case{"ApostropheEndsNoWord", "O'NEIL room", "O'neil Room"},
                    Case{"DigitFirst", "3RD floor", "3rd Floor"},
                    Case{"BracketFirst", "pool (NEW)", "Pool (new)"},
                    Case{"Accents", "\xC3\x89T\xC3\x89 \xC3\xA9t\xC3\xA9",
                         "\xC3\x89t\xC3\xA9 \xC3\x89t\xC3\xA9"},
                    Case{"Cyrillic", "\xD0\xB7\xD0\x90\xD0\x9B", "\xD0\x97\xD0\xB0\xD0\xBB"},
                    Case{"DigraphInTitleCase",
                         "\xC7\x86"
                         "ep",
                         "\xC7\x85"
                         "ep"},
                    Case{"SharpSStays",
                         "\xC3\x9F STRA\xC3\x9F"
                         "E",
                         "\xC3\x9F Stra\xC3\x9F"
                         "e"},
                    Case{"StrayByteIsNoBlank", "main\x85HALL", "Main\x85hall"},
                    Case{"StrayByteFirst", "\xFFHALL", "\xFFhall"}),
    NameOf);

class CapitalizeWordsTest : public testing::TestWithParam<Case> {};

TEST_P(CapitalizeWordsTest, Gives) {
  EXPECT_EQ(GetParam().Expected, CapitalizeWords(GetParam().Text));
}

INSTANTIATE_TEST_SUITE_P(
    , CapitalizeWordsTest,
    testing::Values(
        Case{"Empty", "", ""}, Case{"OneBlank", " ", ""}, Case{"OnlyBlanks", "    ", ""},
        Case{"OneLetter", "j", "J"}, Case{"TwoWords", "john smith", "John Smith"},
        Case{"LeadingBlankKeepsTheFirstWord", " john smith", "john Smith"},
        Case{"LeadingBlanksKeepTheFirstWord", "   john smith", "john Smith"},
        Case{"TrailingBlank", "john smith ", "John Smith"},
        Case{"BlanksAtBothEnds", "  john smith  ", "john Smith"},
        Case{"SeveralBlanksBetween", "john   smith", "John   Smith"},
        Case{"CapitalsWithinStay", "mcDonald party", "McDonald Party"},
        Case{"AllCapitalsStay", "ANN", "ANN"}, Case{"SecondWordInCapitals", "ann LEE", "Ann LEE"},
        Case{"OneLetterWords", "a b c", "A B C"}, Case{"LastWordOfOneLetter", "john s", "John S"},
        Case{"DigitsFirst", "3rd floor", "3rd Floor"},
        Case{"TabIsNoBlank", "\tjohn\tsmith", "\tjohn\tsmith"},
        Case{"NoBreakSpaceIsNoBlank", "john\xC2\xA0smith", "John\xC2\xA0smith"},
        Case{"Accents", "\xC3\xA9mile \xC3\xA9t\xC3\xA9", "\xC3\x89mile \xC3\x89t\xC3\xA9"},
        Case{"AccentAfterALeadingBlank", " \xC3\xA9mile zola", "\xC3\xA9mile Zola"},
        Case{"Greek", "\xCE\xB1 \xCF\x89", "\xCE\x91 \xCE\xA9"},
        Case{"Emoji", "\xF0\x9F\x8E\x89 party", "\xF0\x9F\x8E\x89 Party"},
        Case{"StrayBytesStay", "\xFF john\xC3 smith", "\xFF John\xC3 Smith"},
        Case{"StrayByteAfterALeadingBlank", " \xFF john", "\xFF John"}),
    NameOf);

TEST(LongNameTest, IsTidied) {
  std::string typed;
  std::string tidied;
  for (int i = 0; i < 10000; ++i) {
    typed += "ab ";
    tidied += "Ab ";
  }
  tidied.pop_back();
  EXPECT_EQ(tidied, CapitalizeWords(typed));
}

class ValidUtf8Test : public testing::TestWithParam<Case> {};

TEST_P(ValidUtf8Test, Gives) {
  EXPECT_EQ(GetParam().Expected, ValidUtf8(GetParam().Text));
}

INSTANTIATE_TEST_SUITE_P(, ValidUtf8Test,
                         testing::Values(Case{"Empty", "", ""},
                                         Case{"ValidStays", "Caf\xC3\xA9 \xF0\x9F\x8E\x89",
                                              "Caf\xC3\xA9 \xF0\x9F\x8E\x89"},
                                         Case{"Latin1", "Caf\xE9 bar", "Caf\xEF\xBF\xBD bar"},
                                         Case{"CutSequence", "\xE2\x82",
                                              "\xEF\xBF\xBD\xEF\xBF\xBD"},
                                         Case{"Overlong", "\xC0\xAF", "\xEF\xBF\xBD\xEF\xBF\xBD"}),
                         NameOf);

struct Bytes {
  std::string Name;
  std::string Text;
  bool Expected;
};

void PrintTo(const Bytes& value, std::ostream* out) {
  *out << value.Name;
}

class IsUtf8Test : public testing::TestWithParam<Bytes> {};

TEST_P(IsUtf8Test, Tells) {
  EXPECT_EQ(GetParam().Expected, IsUtf8(GetParam().Text));
}

INSTANTIATE_TEST_SUITE_P(
    , IsUtf8Test,
    testing::Values(Bytes{"Empty", "", true}, Bytes{"Ascii", "Pool", true},
                    Bytes{"Nul", std::string(1, '\0'), true}, Bytes{"TwoBytes", "\xC3\xA9", true},
                    Bytes{"LastCodePoint", "\xF4\x8F\xBF\xBF", true},
                    Bytes{"NonCharacter", "\xEF\xBF\xBF", true},
                    Bytes{"AfterTheLastCodePoint", "\xF4\x90\x80\x80", false},
                    Bytes{"Surrogate", "\xED\xA0\x80", false},
                    Bytes{"OverlongNul", "\xC0\x80", false},
                    Bytes{"OverlongThreeBytes", "\xE0\x80\xAF", false},
                    Bytes{"LoneContinuation", "\x80", false}, Bytes{"LoneLead", "\xC3", false},
                    Bytes{"CutFourBytes", "\xF0\x9F\x8E", false}, Bytes{"FE", "\xFE", false},
                    Bytes{"ValidThenNot", "Pool\xFF", false}),
    [](const auto& test) { return test.param.Name; });

constexpr std::array<std::string_view, 18> kTextPieces = {
    "a",        "B",        " ",        "  ",       "\t",           "\xC3\xA9",
    "\xC3",     "\xE2\x82", "\xA0",     "\xC2\xA0", "\xF0\x9F\x8E", "\xED\xA0\x80",
    "\xC3\x9F", "\xC4\xB1", "\xC7\x86", "\xF4",     "\xEF\xBF\xBF", std::string_view("\0", 1)};

TEST(RandomTextTest, IsMadeValid) {
  RandomText random(kTextPieces);
  for (int i = 0; i < 100000; ++i) {
    const std::string text = random.Next();
    ASSERT_TRUE(IsUtf8(ValidUtf8(text))) << testing::PrintToString(text);
  }
}

TEST(RandomTextTest, IsLeftAloneWhenValid) {
  RandomText random(kTextPieces);
  for (int i = 0; i < 100000; ++i) {
    const std::string text = ValidUtf8(random.Next());
    ASSERT_EQ(text, ValidUtf8(text));
  }
}

TEST(RandomTextTest, KeepsItsLengthInProperCase) {
  RandomText random(kTextPieces);
  for (int i = 0; i < 100000; ++i) {
    const std::string text = random.Next();
    ASSERT_EQ(CharacterCount(text), CharacterCount(ProperCase(text)))
        << testing::PrintToString(text);
  }
}

TEST(RandomTextTest, KeepsItsLettersWhenCapitalized) {
  RandomText random(kTextPieces);
  for (int i = 0; i < 100000; ++i) {
    const std::string text = random.Next();
    const std::string tidied = CapitalizeWords(text);
    ASSERT_NE(std::string::npos, UpperCase(text).find(UpperCase(tidied)))
        << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace veyra
