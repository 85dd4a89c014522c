#include "data/date.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>

namespace veyra {
namespace {

Date Day(int year, int month, int day) {
  return MakeDate(year, month, day).value();
}

std::string IsoOf(const std::optional<Date>& date) {
  return date ? IsoText(*date) : "no date";
}

TEST(MakeDateTest, TakesTheFirstDayOfTheFirstYear) {
  EXPECT_EQ("0100-01-01", IsoOf(MakeDate(100, 1, 1)));
}

TEST(MakeDateTest, TakesTheLastDayOfTheLastYear) {
  EXPECT_EQ("9999-12-31", IsoOf(MakeDate(9999, 12, 31)));
}

TEST(MakeDateTest, TakesALeapDay) {
  EXPECT_EQ("2012-02-29", IsoOf(MakeDate(2012, 2, 29)));
}

TEST(MakeDateTest, TakesALeapDayOfAFourthCentury) {
  EXPECT_EQ("2000-02-29", IsoOf(MakeDate(2000, 2, 29)));
}

struct NoDay {
  std::string Name;
  int Year;
  int Month;
  int Day;
};

void PrintTo(const NoDay& value, std::ostream* out) {
  *out << value.Name;
}

class NoDateTest : public testing::TestWithParam<NoDay> {};

TEST_P(NoDateTest, IsNotMade) {
  const NoDay& day = GetParam();
  EXPECT_EQ("no date", IsoOf(MakeDate(day.Year, day.Month, day.Day)));
}

INSTANTIATE_TEST_SUITE_P(
    , NoDateTest,
    testing::Values(NoDay{"YearBeforeTheFirst", 99, 12, 31}, NoDay{"YearAfterTheLast", 10000, 1, 1},
                    NoDay{"YearZero", 0, 1, 1}, NoDay{"NegativeYear", -2014, 1, 1},
                    NoDay{"YearThatWouldWrap", 65536 + 2014, 1, 1}, NoDay{"MonthZero", 2014, 0, 5},
                    NoDay{"MonthThirteen", 2014, 13, 5}, NoDay{"NegativeMonth", 2014, -3, 5},
                    NoDay{"MonthThatWouldWrap", 2014, 259, 5}, NoDay{"DayZero", 2014, 3, 0},
                    NoDay{"NegativeDay", 2014, 3, -5}, NoDay{"DayThirtyTwo", 2014, 3, 32},
                    NoDay{"DayThatWouldWrap", 2014, 3, 261}, NoDay{"April31", 2014, 4, 31},
                    NoDay{"February29OfACommonYear", 2014, 2, 29},
                    NoDay{"February29OfACentury", 1900, 2, 29},
                    NoDay{"February30OfALeapYear", 2012, 2, 30}),
    [](const auto& test) { return test.param.Name; });

TEST(DateTest, GivesItsYear) {
  EXPECT_EQ(2014, YearOf(Day(2014, 3, 5)));
}

TEST(DateTest, GivesItsMonth) {
  EXPECT_EQ(3, MonthOf(Day(2014, 3, 5)));
}

TEST(DateTest, GivesItsDay) {
  EXPECT_EQ(5, DayOf(Day(2014, 3, 5)));
}

TEST(WeekdayNumberTest, IsOneOnASunday) {
  EXPECT_EQ(1, WeekdayNumber(Day(2014, 4, 6)));
}

TEST(WeekdayNumberTest, IsFourOnAWednesday) {
  EXPECT_EQ(4, WeekdayNumber(Day(2014, 3, 5)));
}

TEST(WeekdayNumberTest, IsSevenOnASaturday) {
  EXPECT_EQ(7, WeekdayNumber(Day(2014, 4, 12)));
}

TEST(WeekdayNumberTest, ReachesBackBeforeTheEpoch) {
  EXPECT_EQ(2, WeekdayNumber(Day(1900, 1, 1)));
}

TEST(AddDaysTest, CrossesALeapDay) {
  EXPECT_EQ(Day(2012, 3, 1), AddDays(Day(2012, 2, 28), 2));
}

TEST(AddDaysTest, GoesBackOverNewYear) {
  EXPECT_EQ(Day(2013, 12, 31), AddDays(Day(2014, 1, 1), -1));
}

TEST(AddDaysTest, StaysWithNoDays) {
  EXPECT_EQ(Day(2014, 3, 5), AddDays(Day(2014, 3, 5), 0));
}

TEST(AddDaysTest, ReachesTheDaysAfterTheLastYear) {
  EXPECT_EQ("1/9/10000", DateText(AddDays(Day(9999, 12, 31), 9)));
}

TEST(DaysBetweenTest, CountsALeapYear) {
  EXPECT_EQ(366, DaysBetween(Day(2012, 1, 1), Day(2013, 1, 1)));
}

TEST(DaysBetweenTest, IsNegativeBackwards) {
  EXPECT_EQ(-31, DaysBetween(Day(2014, 4, 1), Day(2014, 3, 1)));
}

TEST(DaysBetweenTest, IsUndoneByAddDaysOverAllYears) {
  const Date first = Day(kFirstYear, 1, 1);
  const Date last = Day(kLastYear, 12, 31);
  EXPECT_EQ(last, AddDays(first, DaysBetween(first, last)));
}

TEST(DateTextTest, IsMonthDayYearWithoutPadding) {
  EXPECT_EQ("3/5/2014", DateText(Day(2014, 3, 5)));
}

TEST(DateTextTest, HasTwoDigitsWhereNeeded) {
  EXPECT_EQ("12/31/2014", DateText(Day(2014, 12, 31)));
}

TEST(DateTextTest, DoesNotPadTheYear) {
  EXPECT_EQ("3/5/100", DateText(Day(100, 3, 5)));
}

TEST(IsoTextTest, PadsMonthAndDay) {
  EXPECT_EQ("2014-03-05", IsoText(Day(2014, 3, 5)));
}

TEST(IsoTextTest, PadsTheYear) {
  EXPECT_EQ("0987-12-31", IsoText(Day(987, 12, 31)));
}

TEST(IsoTextTest, IsReadBackForEveryDayOfALeapYear) {
  for (Date date = Day(2012, 1, 1); YearOf(date) == 2012; date = AddDays(date, 1)) {
    ASSERT_EQ(date, DateFromIsoText(IsoText(date)));
  }
}

struct IsoCase {
  std::string Name;
  std::string Text;
  std::string Expected;
};

void PrintTo(const IsoCase& value, std::ostream* out) {
  *out << value.Name;
}

class DateFromIsoTextTest : public testing::TestWithParam<IsoCase> {};

TEST_P(DateFromIsoTextTest, Reads) {
  EXPECT_EQ(GetParam().Expected, IsoOf(DateFromIsoText(GetParam().Text)));
}

INSTANTIATE_TEST_SUITE_P(
    Good, DateFromIsoTextTest,
    testing::Values(IsoCase{"Plain", "2014-03-05", "2014-03-05"},
                    IsoCase{"FirstDay", "0100-01-01", "0100-01-01"},
                    IsoCase{"LastDay", "9999-12-31", "9999-12-31"},
                    IsoCase{"TimeToTheMinute", "2014-03-05 17:30", "2014-03-05"},
                    IsoCase{"TimeToTheSecond", "2014-03-05 00:00:00", "2014-03-05"},
                    IsoCase{"TimeAfterT", "2014-03-05T23:59:60", "2014-03-05"},
                    IsoCase{"FractionOfASecond", "2014-03-05 17:30:00.000", "2014-03-05"},
                    IsoCase{"UniversalTime", "2014-03-05T17:30:00.000Z", "2014-03-05"}),
    [](const auto& test) { return test.param.Name; });

INSTANTIATE_TEST_SUITE_P(
    Bad, DateFromIsoTextTest,
    testing::Values(IsoCase{"Empty", "", "no date"}, IsoCase{"TooShort", "2014-03-0", "no date"},
                    IsoCase{"NotPadded", "2014-3-5", "no date"},
                    IsoCase{"BlankFirst", " 2014-03-05", "no date"},
                    IsoCase{"OtherSeparators", "2014/03/05", "no date"},
                    IsoCase{"MonthFirst", "03-05-2014", "no date"},
                    IsoCase{"FiveDigitYear", "12014-03-05", "no date"},
                    IsoCase{"YearBeforeTheFirst", "0099-12-31", "no date"},
                    IsoCase{"NoSuchMonth", "2014-13-01", "no date"},
                    IsoCase{"NoSuchDay", "2014-02-29", "no date"},
                    IsoCase{"SignForADigit", "2014-+3-05", "no date"},
                    IsoCase{"MoreDigits", "2014-03-051", "no date"},
                    IsoCase{"Garbage", "2014-03-05 or so", "no date"},
                    IsoCase{"BlankLast", "2014-03-05 ", "no date"},
                    IsoCase{"HourOnly", "2014-03-05 17", "no date"},
                    IsoCase{"NoSuchHour", "2014-03-05 24:00", "no date"},
                    IsoCase{"NoSuchMinute", "2014-03-05 17:60", "no date"},
                    IsoCase{"NoSuchSecond", "2014-03-05 17:30:61", "no date"},
                    IsoCase{"EmptyFraction", "2014-03-05 17:30:00.", "no date"},
                    IsoCase{"ANulByte", std::string("2014-03-05\0", 11), "no date"}),
    [](const auto& test) { return test.param.Name; });

}  // namespace
}  // namespace veyra
