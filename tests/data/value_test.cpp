#include "data/value.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace veyra {
namespace {

const Value kDay = DateFromIsoText("2014-03-05").value();
constexpr std::int64_t kGreatest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

struct Case {
  const char* Name;
  Value Given;
  std::optional<std::int64_t> Integer;
  std::optional<double> Double;
  std::string Text;
};

class ValueTest : public testing::TestWithParam<Case> {};

TEST_P(ValueTest, ReadsAsInteger) {
  EXPECT_EQ(GetParam().Integer, ToInteger(GetParam().Given));
}
TEST_P(ValueTest, ReadsAsDouble) {
  EXPECT_EQ(GetParam().Double, ToDouble(GetParam().Given));
}
TEST_P(ValueTest, ReadsAsText) {
  EXPECT_EQ(GetParam().Text, ToText(GetParam().Given));
}

INSTANTIATE_TEST_SUITE_P(
    Values, ValueTest,
    testing::Values(
        Case{"Null", Null{}, {}, {}, ""}, Case{"Zero", std::int64_t{0}, 0, 0.0, "0"},
        Case{"Negative", std::int64_t{-7}, -7, -7.0, "-7"},
        Case{"Greatest", kGreatest, kGreatest, 9223372036854775807.0, "9223372036854775807"},
        Case{"Least", kLeast, kLeast, -9223372036854775808.0, "-9223372036854775808"},
        Case{"WholeDouble", 3.0, 3, 3.0, "3"}, Case{"NegativeDouble", -3.0, -3, -3.0, "-3"},
        Case{"GroupKey", 20140406153012.0, 20140406153012, 20140406153012.0, "20140406153012"},
        Case{"RoundGroupKey", 20140000000000.0, 20140000000000, 20140000000000.0, "20140000000000"},
        Case{"LastExactDouble", 9007199254740992.0, 9007199254740992, 9007199254740992.0,
             "9007199254740992"},
        Case{"Fraction", 0.5, {}, 0.5, "0.5"}, Case{"DoubleTooGreat", 1e300, {}, 1e300, "1e+300"},
        Case{"FirstDoubleTooGreat",
             9223372036854775808.0,
             {},
             9223372036854775808.0,
             "9223372036854775808"},
        Case{"DigitsInText", "12", 12, 12.0, "12"},
        Case{"ColourText", "-2147483643", -2147483643, -2147483643.0, "-2147483643"},
        Case{"BlanksAround", "  12 ", 12, 12.0, "  12 "}, Case{"PlusSign", "+5", 5, 5.0, "+5"},
        Case{"WholeDecimal", "12.0", 12, 12.0, "12.0"},
        Case{"FractionText", "12.5", {}, 12.5, "12.5"},
        Case{"LongText", "9223372036854775807", kGreatest, 9223372036854775807.0,
             "9223372036854775807"},
        Case{
            "TooLongText", "9223372036854775808", {}, 9223372036854775808.0, "9223372036854775808"},
        Case{"EmptyText", "", {}, {}, ""}, Case{"BlankText", "  ", {}, {}, "  "},
        Case{"Word", "red", {}, {}, "red"}, Case{"NumberAndWord", "12 red", {}, {}, "12 red"},
        Case{"TwoSigns", "+-5", {}, {}, "+-5"}, Case{"Infinity", "inf", {}, {}, "inf"},
        Case{"NoNumber", "nan", {}, {}, "nan"}, Case{"Hexadecimal", "0x10", {}, {}, "0x10"},
        Case{"NulByte", std::string("1\0", 2), {}, {}, std::string("1\0", 2)},
        Case{"Day", kDay, {}, {}, "2014-03-05"}),
    [](const auto& given) { return given.param.Name; });

TEST(ToDateTest, KeepsADate) {
  EXPECT_EQ(DateFromIsoText("2014-03-05"), ToDate(kDay));
}

TEST(ToDateTest, ReadsIsoText) {
  EXPECT_EQ(DateFromIsoText("2014-03-05"), ToDate(Value("2014-03-05")));
}

TEST(ToDateTest, DropsATimeOfDay) {
  EXPECT_EQ(DateFromIsoText("2014-03-05"), ToDate(Value("2014-03-05 00:00:00")));
}

TEST(ToDateTest, ReadsNoDateFromAnythingElse) {
  for (const Value& value : {Value(Null{}), Value("3/5/2014"), Value("2014-02-30"), Value(""),
                             Value(std::int64_t{41703}), Value(41703.0)}) {
    EXPECT_EQ(std::nullopt, ToDate(value)) << ToText(value);
  }
}

TEST(IsNullTest, HoldsForNullOnly) {
  EXPECT_TRUE(IsNull(Value()));
  EXPECT_FALSE(IsNull(Value(std::string())));
  EXPECT_FALSE(IsNull(Value(std::int64_t{0})));
}

}  // namespace
}  // namespace veyra
