#include <gtest/gtest.h>

#include <QHeaderView>
#include <QListWidget>
#include <QTableWidget>

#include "forms/widgets/qt_whole_rows.h"

namespace veyra {
namespace {

constexpr int kRows = 60;
constexpr int kLeast = 100;
constexpr int kMost = 160;

/// A list and a table that are shown in such a place.
class WholeRowsTest : public testing::Test {
 protected:
  void FillList() {
    for (int row = 0; row < kRows; ++row) {
      list_->addItem(QStringLiteral("Ann Smith"));
    }
  }

  int ListRow() const { return list_->sizeHintForRow(0); }
  static int TableRow() { return 19; }

  QListWidget* list_ = new QListWidget;
  QtWholeRows list_place_{list_, [this] { return ListRow(); }};
  QTableWidget* table_ = new QTableWidget(kRows, 20);
  QtWholeRows table_place_{table_, [] { return TableRow(); }};
};

TEST_F(WholeRowsTest, TheLastRowOfAListIsWholeAtEveryHeight) {
  FillList();
  list_place_.show();
  for (int height = kLeast; height <= kMost; ++height) {
    list_place_.resize(200, height);
    EXPECT_EQ(0, list_->viewport()->height() % ListRow()) << height;
    EXPECT_LT(height - list_->height(), ListRow()) << height;
    EXPECT_GE(height, list_->height());
  }
}

TEST_F(WholeRowsTest, SoIsThatOfATableUnderItsHeaderAndOverItsScrollBar) {
  table_->verticalHeader()->setMinimumSectionSize(1);
  table_->verticalHeader()->setDefaultSectionSize(TableRow());
  table_place_.show();
  for (int height = kLeast; height <= kMost; ++height) {
    table_place_.resize(200, height);
    EXPECT_EQ(0, table_->viewport()->height() % TableRow()) << height;
    EXPECT_LT(height - table_->height(), TableRow()) << height;
  }
}

TEST_F(WholeRowsTest, RowsThatComeLaterAreWhole) {
  list_place_.resize(200, kLeast);
  list_place_.show();
  EXPECT_EQ(kLeast, list_->height());
  FillList();
  EXPECT_EQ(0, list_->viewport()->height() % ListRow());
}

TEST_F(WholeRowsTest, NoRowIsLostBeforeThePlaceIsShown) {
  FillList();
  for (int height = kLeast; height <= kMost; ++height) {
    list_place_.hide();
    list_place_.resize(200, height);
    list_place_.show();
    EXPECT_EQ(0, list_->viewport()->height() % ListRow()) << height;
    EXPECT_LT(height - list_->height(), ListRow()) << height;
  }
}

TEST_F(WholeRowsTest, SoManyRowsAsAreWantedAreSeen) {
  FillList();
  list_place_.SeeAtLeast(5);
  list_place_.resize(200, 10);
  list_place_.show();
  EXPECT_EQ(5 * ListRow(), list_->viewport()->height());
  list_place_.SeeAtLeast(7);
  EXPECT_EQ(7 * ListRow(), list_->viewport()->height());
}

TEST_F(WholeRowsTest, APlaceLowerThanARowIsFilled) {
  FillList();
  list_place_.show();
  list_place_.resize(200, ListRow());
  EXPECT_EQ(ListRow(), list_->height());
}

}  // namespace
}  // namespace veyra
