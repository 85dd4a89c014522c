#include "data/query.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "data/errors.h"
#include "tests/random_text.h"

namespace veyra {
namespace {

std::string Shown(const Operand& operand) {
  if (const auto* column = std::get_if<ColumnName>(&operand)) {
    return "[" + column->Name + "]";
  }
  const Value& value = std::get<Value>(operand);
  constexpr std::array kKinds{"null", "int", "double", "text", "date"};
  return std::string(kKinds.at(value.index())) + ":" + ToText(value);
}

std::string Shown(const Condition& condition);

std::string Shown(const Comparison& comparison) {
  constexpr std::array kTests{"=", "<>", "<", "<=", ">", ">="};
  return Shown(comparison.Left) + kTests.at(static_cast<std::size_t>(comparison.Test)) +
         Shown(comparison.Right);
}

std::string Shown(const Junction& junction) {
  std::string parts;
  for (const Condition& part : junction.Parts) {
    parts += " " + Shown(part);
  }
  return (junction.By == Junction::Kind::And ? "(and" : "(or") + parts + ")";
}

std::string Shown(const Condition& condition) {
  return std::visit([](const auto& one) { return Shown(one); }, condition);
}

/// The query in a form that shows how it was understood.
std::string Shown(const Query& query) {
  std::string text = query.Table;
  if (query.Where) {
    text += " where " + Shown(*query.Where);
  }
  for (const OrderTerm& term : query.OrderBy) {
    text += " by [" + term.Column + "]" + (term.Descending ? " down" : "");
  }
  return text;
}

struct Good {
  const char* Name;
  const char* Sql;
  const char* Understood;
};

class GoodQueryTest : public testing::TestWithParam<Good> {};

TEST_P(GoodQueryTest, IsUnderstood) {
  EXPECT_EQ(GetParam().Understood, Shown(ParseQuery(GetParam().Sql)));
}

INSTANTIATE_TEST_SUITE_P(
    Queries, GoodQueryTest,
    testing::Values(
        Good{"WholeTable", "SELECT * FROM Rooms", "Rooms"},
        Good{"ById", "SELECT * FROM Settings Where ID = 1", "Settings where [ID]=int:1"},
        Good{"DayOfMonth",
             "SELECT * FROM Reserv Where RmID = 3 And DateOfRes = #3/15/2014# Order By TimeFrom;",
             "Reserv where (and [RmID]=int:3 [DateOfRes]=date:2014-03-15) by [TimeFrom]"},
        Good{"Clash",
             "SELECT * FROM Reserv Where DateOfRes = #3/17/2014# And ((18 >= TimeFrom AND 18 <= "
             "TimeTo) OR (20 >= TimeFrom AND 20 <= TimeTo));",
             "Reserv where (and [DateOfRes]=date:2014-03-17 (or (and int:18>=[TimeFrom] "
             "int:18<=[TimeTo]) (and int:20>=[TimeFrom] int:20<=[TimeTo])))"},
        Good{"Picked",
             "SELECT * FROM Reserv Where RmID = 1 And DateOfRes = #4/6/2014# And TimeFrom <= 20 "
             "And TimeTo >= 20",
             "Reserv where (and [RmID]=int:1 [DateOfRes]=date:2014-04-06 [TimeFrom]<=int:20 "
             "[TimeTo]>=int:20)"},
        Good{"Group", "SELECT * FROM Reserv Where RmID = 1 And MultKey = 20140406153012",
             "Reserv where (and [RmID]=int:1 [MultKey]=int:20140406153012)"},
        Good{"KeyWordsInAnyCase", "select * from T where a=1 or b=2 order by c desc",
             "T where (or [a]=int:1 [b]=int:2) by [c] down"},
        Good{"NoBlanks", "SELECT*FROM T WHERE(a=1)AND(b<>2)", "T where (and [a]=int:1 [b]<>int:2)"},
        Good{"LineBreaks", "SELECT *\r\nFROM\tT\nWHERE a\n=\n1\n;\n", "T where [a]=int:1"},
        Good{"AndBeforeOr", "SELECT * FROM T WHERE a=1 OR b=2 AND c=3",
             "T where (or [a]=int:1 (and [b]=int:2 [c]=int:3))"},
        Good{"Parentheses", "SELECT * FROM T WHERE (a=1 OR b=2) AND c=3",
             "T where (and (or [a]=int:1 [b]=int:2) [c]=int:3)"},
        Good{"ParenthesesTwice", "SELECT * FROM T WHERE ((a=1))", "T where [a]=int:1"},
        Good{"EachTest", "SELECT * FROM T WHERE a=1 AND a<>1 AND a<1 AND a<=1 AND a>1 AND a>=1",
             "T where (and [a]=int:1 [a]<>int:1 [a]<int:1 [a]<=int:1 [a]>int:1 [a]>=int:1)"},
        Good{"TwoColumns", "SELECT * FROM T WHERE a = b", "T where [a]=[b]"},
        Good{"TwoNumbers", "SELECT * FROM T WHERE 1 = 2", "T where int:1=int:2"},
        Good{"Negative", "SELECT * FROM T WHERE a = -5", "T where [a]=int:-5"},
        Good{"Decimal", "SELECT * FROM T WHERE a = 1.5", "T where [a]=double:1.5"},
        Good{"DecimalWithoutWhole", "SELECT * FROM T WHERE a = .5", "T where [a]=double:0.5"},
        Good{"TooLongForAnInteger", "SELECT * FROM T WHERE a = 9223372036854775808",
             "T where [a]=double:9223372036854775808"},
        Good{"Exponent", "SELECT * FROM T WHERE a = 1e+20", "T where [a]=double:1e+20"},
        Good{"ExponentOfADecimal", "SELECT * FROM T WHERE a = 1.5E-07;",
             "T where [a]=double:1.5e-07"},
        Good{"ExponentWithoutASign", "SELECT * FROM T WHERE a = -2E3", "T where [a]=double:-2000"},
        Good{"Text", "SELECT * FROM T WHERE a = 'x y'", "T where [a]=text:x y"},
        Good{"EmptyText", "SELECT * FROM T WHERE a = ''", "T where [a]=text:"},
        Good{"QuoteInText", "SELECT * FROM T WHERE a = 'it''s'", "T where [a]=text:it's"},
        Good{"KeyWordInText", "SELECT * FROM T WHERE a = 'x OR 1=1; #1/1/2014#'",
             "T where [a]=text:x OR 1=1; #1/1/2014#"},
        Good{"EmojiInText", "SELECT * FROM T WHERE a = '\xF0\x9F\x8E\x89'",
             "T where [a]=text:\xF0\x9F\x8E\x89"},
        Good{"PaddedDate", "SELECT * FROM T WHERE d = #03/05/2014#", "T where [d]=date:2014-03-05"},
        Good{"LeapDay", "SELECT * FROM T WHERE d = #2/29/2012#", "T where [d]=date:2012-02-29"},
        Good{"EarlyDate", "SELECT * FROM T WHERE d = #1/1/100#", "T where [d]=date:0100-01-01"},
        Good{"LateDate", "SELECT * FROM T WHERE d = #12/31/9999#", "T where [d]=date:9999-12-31"},
        Good{"BracketedNames", "SELECT * FROM [my table] WHERE [Order] = 1 ORDER BY [a,b]",
             "my table where [Order]=int:1 by [a,b]"},
        Good{"NameOfAnyScript", "SELECT * FROM R\xC3\xA4ume WHERE _x1 = 1",
             "R\xC3\xA4ume where [_x1]=int:1"},
        Good{"NameThatBeginsLikeAKeyWord", "SELECT * FROM FromTable WHERE Orders = ANDx",
             "FromTable where [Orders]=[ANDx]"},
        Good{"SeveralOrders", "SELECT * FROM T ORDER BY a, b DESC, c ASC",
             "T by [a] by [b] down by [c]"}),
    [](const auto& query) { return query.param.Name; });

struct Bad {
  const char* Name;
  const char* Sql;
};

class BadQueryTest : public testing::TestWithParam<Bad> {};

TEST_P(BadQueryTest, IsReportedWithItsText) {
  const std::string sql = GetParam().Sql;
  try {
    ParseQuery(sql);
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_NE(std::string::npos, error.report().Cause.English().find("\"" + sql + "\""));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Queries, BadQueryTest,
    testing::Values(
        Bad{"Empty", ""}, Bad{"Blank", "   "}, Bad{"OneWord", "SELECT"},
        Bad{"Columns", "SELECT a FROM T"}, Bad{"NoTable", "SELECT * FROM"},
        Bad{"KeyWordForATable", "SELECT * FROM Where a = 1"},
        Bad{"NumberForATable", "SELECT * FROM 12"}, Bad{"TwoTables", "SELECT * FROM A, B"},
        Bad{"AnotherStatement", "DELETE FROM T"},
        Bad{"TwoStatements", "SELECT * FROM T; DELETE FROM T"}, Bad{"TwoEnds", "SELECT * FROM T;;"},
        Bad{"Comment", "SELECT * FROM T -- all"}, Bad{"NoCondition", "SELECT * FROM T WHERE"},
        Bad{"OneSide", "SELECT * FROM T WHERE a"}, Bad{"NoRightSide", "SELECT * FROM T WHERE a ="},
        Bad{"NoTest", "SELECT * FROM T WHERE a 1"},
        Bad{"UnknownTest", "SELECT * FROM T WHERE a LIKE 'x'"},
        Bad{"SplitTest", "SELECT * FROM T WHERE a < = 1"},
        Bad{"ThreeSides", "SELECT * FROM T WHERE a = b = c"},
        Bad{"AndAtTheEnd", "SELECT * FROM T WHERE a = 1 AND"},
        Bad{"OrAtTheStart", "SELECT * FROM T WHERE OR a = 1"},
        Bad{"OpenParenthesis", "SELECT * FROM T WHERE (a = 1"},
        Bad{"ParenthesisTooMany", "SELECT * FROM T WHERE a = 1)"},
        Bad{"EmptyParentheses", "SELECT * FROM T WHERE ()"},
        Bad{"OpenText", "SELECT * FROM T WHERE a = 'x"},
        Bad{"OpenTextAfterAQuote", "SELECT * FROM T WHERE a = 'x''"},
        Bad{"OpenDate", "SELECT * FROM T WHERE d = #3/5/2014"},
        Bad{"NoSuchDay", "SELECT * FROM T WHERE d = #2/30/2014#"},
        Bad{"DayFirst", "SELECT * FROM T WHERE d = #17/3/2014#"},
        Bad{"YearTooLow", "SELECT * FROM T WHERE d = #1/1/99#"},
        Bad{"YearTooLong", "SELECT * FROM T WHERE d = #1/1/10000#"},
        Bad{"NoYear", "SELECT * FROM T WHERE d = #3/5#"},
        Bad{"IsoDate", "SELECT * FROM T WHERE d = #2014-03-05#"},
        Bad{"EmptyDate", "SELECT * FROM T WHERE d = ##"},
        Bad{"WordForADate", "SELECT * FROM T WHERE d = #today#"},
        Bad{"NumberWithALetter", "SELECT * FROM T WHERE a = 1x"},
        Bad{"ExponentWithoutDigits", "SELECT * FROM T WHERE a = 1e"},
        Bad{"ExponentOfASignOnly", "SELECT * FROM T WHERE a = 1e+"},
        Bad{"ExponentWithALetter", "SELECT * FROM T WHERE a = 1e5x"},
        Bad{"ExponentAlone", "SELECT * FROM T WHERE a = -e5"},
        Bad{"ExponentTooHigh", "SELECT * FROM T WHERE a = 1e999"},
        Bad{"OnlyASign", "SELECT * FROM T WHERE a = -"},
        Bad{"OnlyAPoint", "SELECT * FROM T WHERE a = ."},
        Bad{"TwoPoints", "SELECT * FROM T WHERE a = 1.2.3"}, Bad{"OpenBracket", "SELECT * FROM [T"},
        Bad{"EmptyBrackets", "SELECT * FROM []"}, Bad{"OrderWithoutBy", "SELECT * FROM T ORDER a"},
        Bad{"OrderByNothing", "SELECT * FROM T ORDER BY"},
        Bad{"OrderWithACommaTooMany", "SELECT * FROM T ORDER BY a,"},
        Bad{"WhereAfterOrder", "SELECT * FROM T ORDER BY a WHERE b = 1"},
        Bad{"DoubleQuotes", "SELECT * FROM \"T\""}),
    [](const auto& query) { return query.param.Name; });

TEST(ParseQueryTest, ReportsAByteOfNulInTheMiddle) {
  EXPECT_THROW(ParseQuery(std::string("SELECT * FROM T\0 WHERE a = 1", 28)), DatabaseError);
}

std::string Nested(std::size_t depth) {
  return "SELECT * FROM T WHERE " + std::string(depth, '(') + "a=1" + std::string(depth, ')');
}

TEST(ParseQueryTest, UnderstandsFiftyParenthesesInsideEachOther) {
  EXPECT_EQ("T where [a]=int:1", Shown(ParseQuery(Nested(50))));
}

TEST(ParseQueryTest, RefusesMoreThanFiftyParenthesesInsideEachOther) {
  EXPECT_THROW(ParseQuery(Nested(51)), DatabaseError);
}

TEST(ParseQueryTest, RefusesAMillionParenthesesWithoutFallingOver) {
  EXPECT_THROW(ParseQuery(Nested(1000000)), DatabaseError);
}

TEST(ParseQueryTest, UnderstandsAnyNumberOfParenthesesBesideEachOther) {
  std::string sql = "SELECT * FROM T WHERE (a=1)";
  for (int i = 0; i < 200; ++i) {
    sql += " AND (a=1)";
  }
  EXPECT_EQ(201u, std::get<Junction>(ParseQuery(sql).Where.value()).Parts.size());
}

TEST(ParseQueryTest, UnderstandsOrReportsAnyText) {
  RandomText texts(std::array<std::string_view, 20>{
      "SELECT ", "* ", "FROM ",       "T ", "WHERE ", "a ", "= ",   "<",         ">", "1 ",
      "'x' ",    "'",  "#1/2/2014# ", "#",  "( ",     ") ", "AND ", "ORDER BY ", "[", "] "});
  for (int i = 0; i < 20000; ++i) {
    const std::string text = texts.Next();
    for (const std::string& sql : {text, "SELECT * FROM T WHERE " + text}) {
      try {
        EXPECT_FALSE(ParseQuery(sql).Table.empty()) << sql;
      } catch (const DatabaseError& error) {
        ASSERT_NE("", error.report().Cause);
      }
    }
  }
}

}  // namespace
}  // namespace veyra
