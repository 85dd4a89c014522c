#include "tools/exchange/csv_text.h"

#include <gtest/gtest.h>

#include "data/errors.h"

namespace veyra {
namespace {

using Cells = std::vector<std::string>;

Cells OnlyRecord(const std::string& text) {
  const auto records = ParseCsv(text);
  return records.size() == 1 ? records[0].Cells : Cells{"not one record"};
}

TEST(CsvTextTest, CellsArePartedByCommas) {
  EXPECT_EQ((Cells{"a", "", "b c", ""}), OnlyRecord("a,,b c,\r\n"));
  EXPECT_EQ((Cells{"a", "b"}), OnlyRecord("a,b"));
}

TEST(CsvTextTest, QuotedCellsHoldCommasQuotesAndLineBreaks) {
  EXPECT_EQ((Cells{"a,b", "say \"hi\"", "one\r\ntwo"}),
            OnlyRecord("\"a,b\",\"say \"\"hi\"\"\",\"one\r\ntwo\"\r\n"));
}

TEST(CsvTextTest, RecordsKnowTheLineInWhichTheyBegin) {
  const auto records = ParseCsv("\xEF\xBB\xBFhead\n\n\"two\nlines\"\nlast\n");
  ASSERT_EQ(3U, records.size());
  EXPECT_EQ((Cells{"head"}), records[0].Cells);
  EXPECT_EQ(1U, records[0].Line);
  EXPECT_EQ(3U, records[1].Line);
  EXPECT_EQ(5U, records[2].Line);
}

TEST(CsvTextTest, WhatIsNoCsvNamesItsLine) {
  for (const char* text : {"a\n\"no end", "a\n\"b\"c,d\n"}) {
    try {
      ParseCsv(text);
      ADD_FAILURE() << text;
    } catch (const ValueError& error) {
      EXPECT_EQ(0U, error.report().Cause.English().find("Line 2: ")) << error.report().Cause;
    }
  }
  EXPECT_THROW(ParseCsv("Caf\xE9,1\n"), ValueError);
}

TEST(CsvTextTest, WhatIsWrittenIsReadAgain) {
  const Cells cells{"a,b", "say \"hi\"", "one\ntwo", "", "plain"};
  EXPECT_EQ(cells, OnlyRecord(CsvLine(cells)));
}

TEST(CsvTextTest, FormulasAreDefusedAndComeBack) {
  for (const char* text : {"=1+1", "+49 30", "-1", "@SUM(A1)", "\t=1", "'=1", "''-x"}) {
    EXPECT_EQ(std::string("'") + text, Defused(text));
    EXPECT_EQ(text, Undefused(Defused(text)));
  }
  for (const char* text : {"", "Smith", "'", "'tis", "a=1", "O'Neil"}) {
    EXPECT_EQ(text, Defused(text));
    EXPECT_EQ(text, Undefused(text));
  }
}

}  // namespace
}  // namespace veyra
