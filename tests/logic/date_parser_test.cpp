#include "logic/date_parser.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "tests/random_text.h"

namespace veyra {
namespace {

Date Day(int year, int month, int day) {
  return MakeDate(year, month, day).value();
}

/// A day of a common year.
Date Today() {
  return Day(2014, 7, 20);
}

std::string Parsed(std::string_view text) {
  const std::optional<Date> date = ParseDate(text, Today());
  return date ? IsoText(*date) : "no date";
}

struct GoodText {
  std::string Name;
  std::string Text;
  std::string Expected;
};

void PrintTo(const GoodText& value, std::ostream* out) {
  *out << value.Name;
}

class GoodDateTextTest : public testing::TestWithParam<GoodText> {};

TEST_P(GoodDateTextTest, IsThatDate) {
  EXPECT_EQ(GetParam().Expected, Parsed(GetParam().Text));
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, GoodDateTextTest,
    testing::Values(GoodText{"Slashes", "3/5/2014", "2014-03-05"},
                    GoodText{"Hyphens", "3-5-2014", "2014-03-05"},
                    GoodText{"FullStops", "3.5.2014", "2014-03-05"},
                    GoodText{"Blanks", "3 5 2014", "2014-03-05"},
                    GoodText{"SeveralBlanks", "3   5  2014", "2014-03-05"},
                    GoodText{"Padded", "03/05/2014", "2014-03-05"},
                    GoodText{"OuterBlanks", "  3/5/2014 ", "2014-03-05"},
                    GoodText{"BlanksAroundSlashes", "3 / 5 /  2014", "2014-03-05"},
                    GoodText{"Tabs", "\t3/\t5/2014\t", "2014-03-05"},
                    GoodText{"DifferentSeparators", "3/5-2014", "2014-03-05"},
                    GoodText{"LastDayOfAYear", "12/31/2014", "2014-12-31"},
                    GoodText{"LeapDay", "2/29/2012", "2012-02-29"},
                    GoodText{"LeapDayOfAFourthCentury", "2/29/2000", "2000-02-29"}),
    [](const auto& test) { return test.param.Name; });

INSTANTIATE_TEST_SUITE_P(Swapped, GoodDateTextTest,
                         testing::Values(GoodText{"FirstIsNoMonth", "17/3/2014", "2014-03-17"},
                                         GoodText{"FirstIsJustNoMonth", "13/12/2014", "2014-12-13"},
                                         GoodText{"FirstIsJustAMonth", "12/13/2014", "2014-12-13"},
                                         GoodText{"ShortYear", "17.3.14", "2014-03-17"},
                                         GoodText{"NoYear", "31-12", "2014-12-31"},
                                         GoodText{"NoFourDigitYearComesFirst", "14/3/5",
                                                  "2005-03-14"}),
                         [](const auto& test) { return test.param.Name; });

INSTANTIATE_TEST_SUITE_P(Years, GoodDateTextTest,
                         testing::Values(GoodText{"TwoDigits00", "3/5/00", "2000-03-05"},
                                         GoodText{"TwoDigits14", "3/5/14", "2014-03-05"},
                                         GoodText{"TwoDigits29", "3/5/29", "2029-03-05"},
                                         GoodText{"TwoDigits30", "3/5/30", "1930-03-05"},
                                         GoodText{"TwoDigits99", "3/5/99", "1999-03-05"},
                                         GoodText{"OneDigit", "3/5/7", "2007-03-05"},
                                         GoodText{"ThreeDigits", "3/5/100", "0100-03-05"},
                                         GoodText{"ThreeDigitsPadded", "3/5/0100", "0100-03-05"},
                                         GoodText{"LastYear", "12/31/9999", "9999-12-31"},
                                         GoodText{"Missing", "3/5", "2014-03-05"},
                                         GoodText{"MissingWithBlank", "3 5", "2014-03-05"}),
                         [](const auto& test) { return test.param.Name; });

INSTANTIATE_TEST_SUITE_P(
    MonthNames, GoodDateTextTest,
    testing::Values(GoodText{"MonthDayCommaYear", "March 5, 2014", "2014-03-05"},
                    GoodText{"MonthDayYear", "March 5 2014", "2014-03-05"},
                    GoodText{"CommaWithoutBlank", "March 5,2014", "2014-03-05"},
                    GoodText{"CommaAfterBlank", "March 5 , 2014", "2014-03-05"},
                    GoodText{"DayMonthYear", "5 Mar 2014", "2014-03-05"},
                    GoodText{"DayMonthCommaYear", "5 March, 2014", "2014-03-05"},
                    GoodText{"DayFullStopMonth", "5. March 2014", "2014-03-05"},
                    GoodText{"MonthDay", "Mar 5", "2014-03-05"},
                    GoodText{"DayMonth", "5 March", "2014-03-05"},
                    GoodText{"ShortYear", "5 Mar 99", "1999-03-05"},
                    GoodText{"DayNotYear", "Mar 14", "2014-03-14"},
                    GoodText{"DayThatCouldBeAMonth", "12 Mar 2014", "2014-03-12"},
                    GoodText{"Hyphens", "5-Mar-2014", "2014-03-05"},
                    GoodText{"Slashes", "Mar/5/2014", "2014-03-05"},
                    GoodText{"UpperCase", "MARCH 5, 2014", "2014-03-05"},
                    GoodText{"LowerCase", "5 mar 2014", "2014-03-05"},
                    GoodText{"MixedCase", "5 mArCh 2014", "2014-03-05"},
                    GoodText{"ShortenedWithFullStop", "Mar. 5, 2014", "2014-03-05"},
                    GoodText{"FullStopsOnly", "5.Mar.2014", "2014-03-05"},
                    GoodText{"FullStopAtTheEnd", "5 Mar.", "2014-03-05"},
                    GoodText{"LeapDay", "29 Feb 2012", "2012-02-29"},
                    GoodText{"Sept", "Sept 5, 2014", "2014-09-05"},
                    GoodText{"SeptWithFullStop", "5 Sept. 2014", "2014-09-05"}),
    [](const auto& test) { return test.param.Name; });

INSTANTIATE_TEST_SUITE_P(YearFirst, GoodDateTextTest,
                         testing::Values(GoodText{"Iso", "2014-03-05", "2014-03-05"},
                                         GoodText{"IsoOfTheFirstYear", "0100-01-01", "0100-01-01"},
                                         GoodText{"NotPadded", "2014-3-5", "2014-03-05"},
                                         GoodText{"Slashes", "2014/03/05", "2014-03-05"},
                                         GoodText{"DayThatIsNoMonth", "2014-03-17", "2014-03-17"},
                                         GoodText{"MonthName", "2014-Mar-05", "2014-03-05"}),
                         [](const auto& test) { return test.param.Name; });

struct BadText {
  std::string Name;
  std::string Text;
};

void PrintTo(const BadText& value, std::ostream* out) {
  *out << value.Name;
}

class BadDateTextTest : public testing::TestWithParam<BadText> {};

TEST_P(BadDateTextTest, IsNoDate) {
  EXPECT_EQ("no date", Parsed(GetParam().Text));
}

INSTANTIATE_TEST_SUITE_P(
    Incomplete, BadDateTextTest,
    testing::Values(BadText{"Empty", ""}, BadText{"OneBlank", " "}, BadText{"Blanks", "   "},
                    BadText{"OneNumber", "5"}, BadText{"YearOnly", "2014"},
                    BadText{"MonthNameOnly", "March"}, BadText{"MonthNameAndYear", "March 2014"},
                    BadText{"YearAndMonthName", "2014 March"}, BadText{"MonthAndYear", "3/2014"},
                    BadText{"YearAndMonth", "2014-03"}, BadText{"SeparatorOnly", "/"},
                    BadText{"SeparatorsOnly", "//"}, BadText{"SeparatorLast", "3/5/"},
                    BadText{"SeparatorAfterTheYear", "3/5/2014/"},
                    BadText{"SeparatorFirst", "/3/5/2014"}, BadText{"CommaLast", "March 5,"},
                    BadText{"FullStopLast", "March 5."}),
    [](const auto& test) { return test.param.Name; });

INSTANTIATE_TEST_SUITE_P(
    NoSuchDay, BadDateTextTest,
    testing::Values(
        BadText{"MonthZero", "0/5/2014"}, BadText{"DayZero", "3/0/2014"},
        BadText{"NeitherIsAMonth", "13/13/2014"}, BadText{"DayThirtyTwo", "3/32/2014"},
        BadText{"February30", "2/30/2014"}, BadText{"April31", "4/31/2014"},
        BadText{"April31Swapped", "31/4/2014"}, BadText{"LeapDayOfACommonYear", "2/29/2014"},
        BadText{"LeapDayOfACentury", "2/29/1900"}, BadText{"LeapDayOfThisCommonYear", "2/29"},
        BadText{"NamedLeapDayOfThisCommonYear", "Feb 29"}, BadText{"NamedDayZero", "March 0, 2014"},
        BadText{"NamedDayThirtyTwo", "32 Mar 2014"},
        BadText{"YearFirstMonthThirteen", "2014-13-05"},
        BadText{"YearFirstDayBeforeMonth", "2014-17-03"}),
    [](const auto& test) { return test.param.Name; });

INSTANTIATE_TEST_SUITE_P(
    WrongNumbers, BadDateTextTest,
    testing::Values(
        BadText{"YearBeforeTheFirst", "3/5/0099"}, BadText{"YearZero", "3/5/0000"},
        BadText{"ThreeDigitYearBeforeTheFirst", "3/5/099"}, BadText{"FiveDigitYear", "3/5/20145"},
        BadText{"YearAfterTheLast", "1/1/10000"}, BadText{"FiveDigitYearFirst", "20145-03-05"},
        BadText{"ThreeDigitYearFirst", "100-03-05"},
        BadText{"YearFirstBeforeTheFirst", "0099-03-05"}, BadText{"ThreeDigitMonth", "003/5/2014"},
        BadText{"ThreeDigitDay", "3/005/2014"}, BadText{"YearFirstThreeDigitDay", "2014-03-005"},
        BadText{"YearInTheMiddle", "3/2014/5"}, BadText{"FourNumbers", "3/5/2014/1"},
        BadText{"DigitsOnly", "03052014"},
        BadText{"MoreDigitsThanAnyNumber", "3/5/99999999999999999999999999999999"},
        BadText{"DigitsThatWouldWrap", "3/5/4294969310"}, BadText{"NegativeDay", "3/-5/2014"},
        BadText{"NegativeMonth", "-3/5/2014"}, BadText{"Plus", "+3/5/2014"}),
    [](const auto& test) { return test.param.Name; });

INSTANTIATE_TEST_SUITE_P(WrongWords, BadDateTextTest,
                         testing::Values(BadText{"NoMonth", "Foo 5, 2014"},
                                         BadText{"FourLetters", "Marc 5, 2014"},
                                         BadText{"TwoLetters", "Ma 5, 2014"},
                                         BadText{"TwoMonths", "March April 2014"},
                                         BadText{"MonthNameForTheYear", "3 5 March"},
                                         BadText{"MonthNameForTheDay", "2014 3 March"},
                                         BadText{"NameRunsIntoTheDay", "March5, 2014"},
                                         BadText{"DayRunsIntoTheName", "5March 2014"},
                                         BadText{"OtherLanguage", "5 M\xC3\xA4rz 2014"},
                                         BadText{"Ordinal", "March 5th, 2014"}),
                         [](const auto& test) { return test.param.Name; });

INSTANTIATE_TEST_SUITE_P(
    Garbage, BadDateTextTest,
    testing::Values(BadText{"Words", "next Tuesday"}, BadText{"LettersAfter", "3/5/2014x"},
                    BadText{"WordsAfter", "3/5/2014 or so"}, BadText{"TimeAfter", "3/5/2014 10:30"},
                    BadText{"LettersBefore", "x3/5/2014"}, BadText{"TwoSlashes", "3//5/2014"},
                    BadText{"TwoSlashesWithABlank", "3/ /5/2014"},
                    BadText{"TwoCommas", "March 5,, 2014"},
                    BadText{"CommasBetweenNumbers", "3,5,2014"}, BadText{"Colons", "3:5:2014"},
                    BadText{"Backslashes", "3\\5\\2014"}, BadText{"HashMarks", "#3/5/2014#"},
                    BadText{"NulAfter", std::string("3/5/2014\0", 9)},
                    BadText{"NulBetween", std::string("3\0005/2014", 8)},
                    BadText{"NulOnly", std::string("\0", 1)},
                    BadText{"ArabicIndicDigits", "\xD9\xA3/\xD9\xA5/2014"},
                    BadText{"FullWidthDigits", "\xEF\xBC\x93/\xEF\xBC\x95/2014"},
                    BadText{"NoUtf8", "3/5/2014\xFF"}, BadText{"HighByteOnly", "\x80"}),
    [](const auto& test) { return test.param.Name; });

TEST(ParseDateTest, TakesALeapDayOfThisLeapYear) {
  EXPECT_EQ(Day(2012, 2, 29), ParseDate("2/29", Day(2012, 12, 31)));
}

TEST(ParseDateTest, RefusesAVeryLongText) {
  EXPECT_EQ("no date", Parsed(std::string(100000, '1')));
}

TEST(ParseDateTest, RefusesVeryManyNumbers) {
  std::string text = "3";
  for (int i = 0; i < 100000; ++i) {
    text += "/5";
  }
  EXPECT_EQ("no date", Parsed(text));
}

TEST(ParseDateTest, KnowsEveryMonthByItsWholeName) {
  int month = 0;
  for (const char* name : {"January", "February", "March", "April", "May", "June", "July", "August",
                           "September", "October", "November", "December"}) {
    ++month;
    EXPECT_EQ(Day(2014, month, 5), ParseDate(std::string(name) + " 5, 2014", Today()));
  }
}

TEST(ParseDateTest, KnowsEveryMonthByThreeLetters) {
  int month = 0;
  for (const char* name :
       {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"}) {
    ++month;
    EXPECT_EQ(Day(2014, month, 5), ParseDate("5 " + std::string(name) + " 2014", Today()));
  }
}

TEST(ParseDateTest, ReadsTheDateTextOfEveryDay) {
  for (const int year : {100, 999, 1000, 1900, 1999, 2000, 2012, 2014, 2029, 2030, 9999}) {
    for (Date date = Day(year, 1, 1); YearOf(date) == year; date = AddDays(date, 1)) {
      ASSERT_EQ(date, ParseDate(DateText(date), Today())) << DateText(date);
    }
  }
}

TEST(ParseDateTest, ReadsTheDateTextOfEveryYear) {
  for (int year = kFirstYear; year <= kLastYear; ++year) {
    const Date date = Day(year, 1, 1);
    ASSERT_EQ(date, ParseDate(DateText(date), Today())) << DateText(date);
  }
}

TEST(ParseDateTest, ReadsTheIsoTextOfEveryYear) {
  for (int year = kFirstYear; year <= kLastYear; ++year) {
    const Date date = Day(year, 2, 1);
    ASSERT_EQ(date, ParseDate(IsoText(date), Today())) << IsoText(date);
  }
}

constexpr std::array<std::string_view, 16> kDatePieces = {
    "3", "5", "17", "29", "2014", "100", "/", "-", ".", ",", " ", "\t", "Mar", "sept", "May.", "x"};

TEST(ParseDateTest, GivesOnlyDatesThatItReadsAgain) {
  RandomText random(kDatePieces);
  int dates = 0;
  for (int i = 0; i < 100000; ++i) {
    const std::string text = random.Next();
    const std::optional<Date> date = ParseDate(text, Today());
    if (!date) {
      continue;
    }
    ++dates;
    ASSERT_EQ(date, ParseDate(DateText(*date), Today())) << text;
  }
  EXPECT_GT(dates, 100);
}

}  // namespace
}  // namespace veyra
