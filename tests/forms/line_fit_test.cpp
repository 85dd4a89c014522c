#include "forms/print/line_fit.h"

#include <gtest/gtest.h>

#include "tests/forms/fixed_measure.h"

namespace veyra {
namespace {

using Heights = std::vector<double>;
using Places = std::vector<std::size_t>;

// Shares of the height

TEST(ShareHeight, ThatIsEnoughIsSharedEvenly) {
  EXPECT_EQ((Heights{40, 40, 40}), ShareHeight({10, 20, 30}, 120));
}

TEST(ShareHeight, ThatIsEnoughGivesTheNeedyTheirNeedAndTheOthersTheRest) {
  EXPECT_EQ((Heights{25, 70, 25}), ShareHeight({10, 70, 20}, 120));
}

TEST(ShareHeight, ThatIsJustEnoughGivesEachItsNeed) {
  EXPECT_EQ((Heights{10, 70, 40}), ShareHeight({10, 70, 40}, 120));
}

TEST(ShareHeight, ThatIsWantingIsTakenFromTheLargest) {
  EXPECT_EQ((Heights{10, 55, 55}), ShareHeight({10, 90, 80}, 120));
}

// The lines of a cell: a row of size 10 is 11.8 high, the gap between two lines 2

TEST(ShareCell, ShowsAllLinesThatHaveRoom) {
  const CellShare share = ShareCell({1, 2, 1}, {false, false, false}, 10, 51.2);
  EXPECT_EQ((Places{0, 1, 2}), share.Shown);
  EXPECT_TRUE(share.Left.empty());
}

TEST(ShareCell, LeavesARowForTheNoteOnTheOthers) {
  const CellShare share = ShareCell({1, 1, 1}, {false, false, false}, 10, 30);
  EXPECT_EQ(Places{0}, share.Shown);
  EXPECT_EQ((Places{1, 2}), share.Left);
}

TEST(ShareCell, ShowsNothingAfterALineThatHasNoRoom) {
  const CellShare share = ShareCell({1, 5, 1}, {false, false, false}, 10, 40);
  EXPECT_EQ(Places{0}, share.Shown);
  EXPECT_EQ((Places{1, 2}), share.Left);
}

TEST(ShareCell, PassesOverALongLine) {
  const CellShare share = ShareCell({1, 50, 1}, {false, true, false}, 10, 40);
  EXPECT_EQ((Places{0, 2}), share.Shown);
  EXPECT_EQ(Places{1}, share.Left);
}

TEST(ShareCell, OfNoLinesHasNothing) {
  const CellShare share = ShareCell({}, {}, 10, 40);
  EXPECT_TRUE(share.Shown.empty());
  EXPECT_TRUE(share.Left.empty());
}

// The size of the lines

class FitLinesTest : public testing::Test {
 protected:
  /// Two rows of two cells.
  FitLinesTest() {
    for (int place = 0; place < 4; ++place) {
      days_.push_back({.Place = place});
    }
  }

  void Add(int place, int lines, std::size_t characters) {
    for (int line = 0; line < lines; ++line) {
      days_.at(static_cast<std::size_t>(place)).Lines.push_back(std::string(characters, 'x'));
    }
  }

  LineFit Fit(double height) {
    return FitLines(days_,
                    {.Columns = 2, .Width = 100, .Height = height, .Overhead = 20, .Largest = 9},
                    FixedMeasure());
  }

  std::vector<SheetDay> days_;
};

TEST_F(FitLinesTest, LinesWithRoomEnoughAreLarge) {
  Add(0, 1, 20);
  EXPECT_DOUBLE_EQ(9, Fit(200).Size);
}

TEST_F(FitLinesTest, LinesWithLittleRoomAreAllSmaller) {
  Add(0, 8, 20);
  const double size = Fit(150).Size;
  EXPECT_GT(9, size);
  EXPECT_LT(kSmallestLine, size);
}

TEST_F(FitLinesTest, NoLineIsSmallerThanTheSmallest) {
  Add(0, 60, 20);
  EXPECT_DOUBLE_EQ(kSmallestLine, Fit(150).Size);
}

TEST_F(FitLinesTest, ARowOfFullCellsIsHigherThanOneOfEmptyCells) {
  Add(3, 8, 20);
  const Heights heights = Fit(200).RowHeights;
  EXPECT_LT(heights[0], heights[1]);
  EXPECT_DOUBLE_EQ(200, heights[0] + heights[1]);
}

TEST_F(FitLinesTest, AnEmptyRowKeepsHalfOfItsShare) {
  Add(3, 60, 20);
  EXPECT_DOUBLE_EQ(50, Fit(200).RowHeights[0]);
}

TEST_F(FitLinesTest, ALineThatWouldTakeMoreThanAnEvenShareIsLong) {
  Add(0, 1, 2000);
  Add(1, 1, 200);
  const LineFit fit = Fit(200);
  EXPECT_TRUE(fit.IsLong[0][0]);
  EXPECT_FALSE(fit.IsLong[1][0]);
}

TEST_F(FitLinesTest, ALongLineMakesNoOtherSmaller) {
  Add(0, 1, 2000);
  Add(1, 1, 20);
  EXPECT_DOUBLE_EQ(9, Fit(200).Size);
}

TEST_F(FitLinesTest, TheNoteOnALongLineHasItsRow) {
  Add(0, 1, 2000);
  Add(0, 4, 20);
  const LineFit fit = Fit(150);
  const std::vector<int> rows = RowsOfLines(days_[0].Lines, 100, fit.Size, FixedMeasure());
  EXPECT_EQ(1U, ShareCell(rows, fit.IsLong[0], fit.Size, fit.RowHeights[0] - 20).Left.size());
}

}  // namespace
}  // namespace veyra
