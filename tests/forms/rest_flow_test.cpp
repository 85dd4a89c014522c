#include "forms/print/rest_flow.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace veyra {
namespace {

/// Pages of two columns, each with room for a date and four rows.
constexpr RestColumns kColumns{
    .PerPage = 2, .Height = 60, .DateHeight = 20, .RowHeight = 10, .Gap = 10};

/// The pieces, one a line: "page column top: day" or "... day/line rows first+rows".
std::string Flowed(const std::vector<RestOfDay>& rest) {
  std::ostringstream out;
  for (const RestPiece& piece : FlowRest(rest, kColumns)) {
    out << piece.Page << ' ' << piece.Column << ' ' << piece.Top << ": " << piece.Day;
    if (piece.Line) {
      out << '/' << *piece.Line << " rows " << piece.FirstRow << '+' << piece.Rows;
    } else if (piece.IsContinued) {
      out << " continued";
    }
    out << '\n';
  }
  return out.str();
}

TEST(RestFlow, OfNothingIsEmpty) {
  EXPECT_EQ("", Flowed({}));
}

TEST(RestFlow, PutsTheLinesOfADayUnderItsDate) {
  EXPECT_EQ(
      "0 0 0: 4\n"
      "0 0 20: 4/7 rows 0+1\n"
      "0 0 30: 4/8 rows 0+2\n",
      Flowed({{4, {7, 8}, {1, 2}}}));
}

TEST(RestFlow, LeavesAGapBetweenTwoDays) {
  EXPECT_EQ(
      "0 0 0: 1\n"
      "0 0 20: 1/0 rows 0+1\n"
      "0 1 0: 2\n"
      "0 1 20: 2/0 rows 0+1\n",
      Flowed({{1, {0}, {1}}, {2, {0}, {1}}}));
}

TEST(RestFlow, NamesTheDateAgainInTheNextColumn) {
  EXPECT_EQ(
      "0 0 0: 1\n"
      "0 0 20: 1/0 rows 0+4\n"
      "0 1 0: 1 continued\n"
      "0 1 20: 1/1 rows 0+1\n",
      Flowed({{1, {0, 1}, {4, 1}}}));
}

TEST(RestFlow, BreaksALongLineBetweenItsRows) {
  EXPECT_EQ(
      "0 0 0: 1\n"
      "0 0 20: 1/0 rows 0+4\n"
      "0 1 0: 1 continued\n"
      "0 1 20: 1/0 rows 4+4\n"
      "1 0 0: 1 continued\n"
      "1 0 20: 1/0 rows 8+1\n",
      Flowed({{1, {0}, {9}}}));
}

TEST(RestFlow, KeepsTheRowsOfALineTogether) {
  EXPECT_EQ(
      "0 0 0: 1\n"
      "0 0 20: 1/0 rows 0+3\n"
      "0 1 0: 1 continued\n"
      "0 1 20: 1/1 rows 0+2\n",
      Flowed({{1, {0, 1}, {3, 2}}}));
}

TEST(RestFlow, StartsADayInTheNextColumnWhereOnlyItsDateWouldFit) {
  EXPECT_EQ(
      "0 0 0: 1\n"
      "0 0 20: 1/0 rows 0+2\n"
      "0 1 0: 2\n"
      "0 1 20: 2/0 rows 0+1\n",
      Flowed({{1, {0}, {2}}, {2, {0}, {1}}}));
}

TEST(RestFlow, ColumnsTooLowForARowHoldOneEach) {
  const auto pieces = FlowRest(
      {{1, {0}, {2}}}, {.PerPage = 1, .Height = 5, .DateHeight = 20, .RowHeight = 10, .Gap = 10});
  ASSERT_EQ(4U, pieces.size());
  EXPECT_EQ(1, pieces.back().Page);
}

}  // namespace
}  // namespace veyra
