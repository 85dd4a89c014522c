#include <set>

#include "tests/qt/month_window_fixture.h"

namespace veyra {
namespace {

/// How the room of the month window is shared out.
class MonthRoomTest : public MonthWindowFixture {
 protected:
  /// Resizes the window, and turns so many months on from March 2014.
  void Show(int width, int height, int months = 0) {
    Start();
    Month()->resize(width, height);
    for (int month = 0; month < months; ++month) {
      Key(Qt::Key_PageDown);
    }
    QApplication::processEvents();
  }

  static int Bottom(int cell) {
    return List(cell).mapTo(Month(), QPoint(0, List(cell).height())).y();
  }

  static double PointSize(int cell) { return List(cell).font().pointSizeF(); }
};

TEST_F(MonthRoomTest, TheRoomOfASixthWeekWithoutDaysIsSharedOut) {
  Show(1000, 680);
  const int of_six = List(21).height();
  EXPECT_GT(Bottom(37), Month()->height() - 30);
  Key(Qt::Key_PageDown);
  QApplication::processEvents();
  ASSERT_EQ("April 2014", Title());
  EXPECT_GT(List(21).height(), of_six + 10);
  EXPECT_GT(Bottom(32), Month()->height() - 30);
  EXPECT_NEAR(List(10).height(), List(31).height(), 1);
}

TEST_F(MonthRoomTest, AMonthOfFourWeeksHasMoreRoomStill) {
  Show(1000, 680, 10);
  const int of_five = List(21).height();
  Key(Qt::Key_PageDown);
  QApplication::processEvents();
  ASSERT_EQ("February 2015", Title());
  EXPECT_GT(List(21).height(), of_five + 10);
  EXPECT_GT(Bottom(28), Month()->height() - 30);
}

TEST_F(MonthRoomTest, TheSixthWeekComesBack) {
  Show(1000, 680);
  const int of_six = List(21).height();
  Key(Qt::Key_PageDown);
  Key(Qt::Key_PageUp);
  QApplication::processEvents();
  EXPECT_EQ(of_six, List(21).height());
  EXPECT_TRUE(List(37).isVisible());
}

TEST_F(MonthRoomTest, TheTextGrowsWithTheWindowInOneSize) {
  Show(1000, 680);
  const double small = PointSize(21);
  Month()->resize(1900, 1050);
  QApplication::processEvents();
  EXPECT_GT(PointSize(21), small + 2);
  std::set<double> sizes;
  for (int cell = 7; cell <= 37; ++cell) {
    sizes.insert(PointSize(cell));
  }
  EXPECT_EQ(1u, sizes.size());
  EXPECT_GE(Number(21).font().pointSizeF(), PointSize(21));
}

TEST_F(MonthRoomTest, TheTextIsNeverBelowEightPoints) {
  Show(640, 420);
  EXPECT_DOUBLE_EQ(8, PointSize(21));
}

}  // namespace
}  // namespace veyra
