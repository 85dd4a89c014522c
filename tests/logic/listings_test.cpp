#include "logic/listings.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

#include "data/errors.h"
#include "data/forwarding_store.h"
#include "data/open_store.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/logic/fake_screens.h"

namespace veyra::modRes {
namespace {

/// A store that counts the queries that it is asked, and how often it is asked for several in one
/// go.
class CountingStore : public ForwardingStore {
 public:
  CountingStore(std::unique_ptr<Store> store, int& queries, int& goes)
      : ForwardingStore(std::move(store)), queries_(queries), goes_(goes) {}

  std::unique_ptr<RowSource> Select(const Query& query) override {
    ++queries_;
    return ForwardingStore::Select(query);
  }
  std::vector<std::unique_ptr<RowSource>> SelectAll(const std::vector<Query>& queries) override {
    ++goes_;
    return Store::SelectAll(queries);
  }

 private:
  int& queries_;
  int& goes_;
};

class ListingsTest : public testing::Test {
 protected:
  ListingsTest() { room_ = folder_.AddRoom("Pool", true); }

  /// The session of this test, opened once the rows it starts from are there.
  Session& Desk() {
    if (!session_) {
      session_ = folder_.OpenSession();
      session_->CurRmID = room_;
      session_->CurrentColors = {"-2147483643", "12582912", "7", "255", "65280"};
    }
    return *session_;
  }

  const MonthPicture& Month(int year, int month) {
    Desk().CurYear = year;
    RefreshMonth(Desk(), clock_, screen_, month);
    return screen_.Picture;
  }

  /// The numbers of the visible cells, the first and the last: "7..37".
  std::string CellsOf(int year, int month) {
    const auto& cells = Month(year, month).Cells;
    std::string text;
    int last = 0;
    for (std::size_t i = 1; i < cells.size(); ++i) {
      if (cells[i].Visible) {
        text += text.empty() ? std::to_string(i) + ".." : "";
        last = static_cast<int>(i);
      }
    }
    return text + std::to_string(last);
  }

  DayLines CellOn(const std::string& day) {
    FillDayCell(Desk(), screen_, 20, DateFromIsoText(day).value());
    return screen_.CellLines;
  }

  CalendarFolder folder_;
  FakeClock clock_{2014, 3, 15};
  FakeScreens screen_;
  std::int64_t room_ = 0;
  std::unique_ptr<Session> session_;
};

TEST_F(ListingsTest, AMonthThatStartsOnSundayBeginsInTheFirstCell) {
  EXPECT_EQ("1..30", CellsOf(2014, 6));
}

TEST_F(ListingsTest, AMonthThatStartsOnSaturdayBeginsInTheSeventhCell) {
  EXPECT_EQ("7..36", CellsOf(2014, 11));
}

TEST_F(ListingsTest, TheLastCellEverUsedIsThe37th) {
  EXPECT_EQ("7..37", CellsOf(2014, 3));
}

TEST_F(ListingsTest, FebruaryThatStartsOnSundayFillsFourRows) {
  EXPECT_EQ("1..28", CellsOf(2015, 2));
}

TEST_F(ListingsTest, FebruaryOfALeapYearShows29Days) {
  EXPECT_EQ("4..32", CellsOf(2012, 2));
}

TEST_F(ListingsTest, ACenturyIsALeapYearOnlyEveryFourHundredYears) {
  EXPECT_EQ("5..32", CellsOf(1900, 2));
  EXPECT_EQ("3..31", CellsOf(2000, 2));
}

TEST_F(ListingsTest, EveryMonthShowsItsOwnNumberOfDays) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int month = 1; month <= 12; ++month) {
    int shown = 0;
    for (const MonthCell& cell : Month(2014, month).Cells) {
      shown += cell.Visible ? 1 : 0;
    }
    EXPECT_EQ(kDays[month - 1], shown) << month;
  }
}

TEST_F(ListingsTest, EveryMonthHasItsTitle) {
  const std::vector<std::string> titles = {"January 2014", "February 2014", "March 2014",
                                           "April 2014",   "May 2014",      "June 2014",
                                           "July 2014",    "August 2014",   "September 2014",
                                           "October 2014", "November 2014", "December 2014"};
  for (int month = 1; month <= 12; ++month) {
    EXPECT_EQ(titles[static_cast<std::size_t>(month) - 1], Month(2014, month).Title);
  }
}

TEST_F(ListingsTest, AMonthAfterTheTwelfthKeepsTheTitleAndHasThirtyDays) {
  const MonthPicture& month = Month(2014, 13);
  EXPECT_EQ(std::nullopt, month.Title);
  EXPECT_EQ("5..34", CellsOf(2014, 13)) << "from the first of January 2015, a Thursday";
  EXPECT_EQ(MakeDate(2015, 1, 1).value(), Month(2014, 13).Cells[5].Day);
}

TEST_F(ListingsTest, AMonthBeforeTheFirstIsThatOfTheYearBefore) {
  EXPECT_EQ(std::nullopt, Month(2014, 0).Title);
  EXPECT_EQ(MakeDate(2013, 12, 1).value(), Month(2014, 0).Cells[1].Day);
}

TEST_F(ListingsTest, AMonthOutsideTheCalendarIsAFailureAndShowsNothing) {
  EXPECT_THROW(Month(9999, 13), ValueError);
  EXPECT_EQ(0, screen_.MonthsShown);
}

TEST_F(ListingsTest, DayNumbersAreNotPadded) {
  const auto& cells = Month(2014, 6).Cells;
  EXPECT_EQ("1", cells[1].Number);
  EXPECT_EQ("30", cells[30].Number);
}

TEST_F(ListingsTest, TodaysCellHasItsOwnNumberAndListColors) {
  const MonthCell& today = Month(2014, 3).Cells[21];
  EXPECT_EQ("15", today.Number);
  EXPECT_TRUE(today.IsToday);
  EXPECT_EQ(255, today.NumberColor);
  EXPECT_EQ(65280, today.ListColor);
}

TEST_F(ListingsTest, OtherDaysHaveANumberColorOnly) {
  const MonthCell& day = Month(2014, 3).Cells[20];
  EXPECT_FALSE(day.IsToday);
  EXPECT_EQ(7, day.NumberColor);
  EXPECT_EQ(std::nullopt, day.ListColor);
}

TEST_F(ListingsTest, TheSameDayOfAnotherMonthOrYearIsNotToday) {
  EXPECT_EQ(std::nullopt, Month(2014, 4).Cells[17].ListColor);
  EXPECT_EQ(std::nullopt, Month(2015, 3).Cells[15].ListColor);
}

TEST_F(ListingsTest, AColorThatIsNoNumberIsAFailureAndShowsNothing) {
  Desk().CurrentColors.DaysTxtColor = "blue";
  EXPECT_THROW(Month(2014, 3), ValueError);
  EXPECT_EQ(0, screen_.MonthsShown);
}

TEST_F(ListingsTest, AMonthIsShownWholeInOneGo) {
  Month(2014, 3);
  EXPECT_EQ(1, screen_.MonthsShown);
  EXPECT_EQ(0, screen_.CellsShown);
}

TEST_F(ListingsTest, EachCellListsItsOwnDayOfItsOwnFacility) {
  const auto hall = folder_.AddRoom("Hall");
  folder_.AddBooking(room_, "2014-03-15", 19, 21, "Smith");
  folder_.AddBooking(room_, "2014-03-16", 1, 1, "Jones");
  folder_.AddBooking(hall, "2014-03-15", 1, 2, "Dance");
  folder_.AddBooking(room_, "2014-04-15", 1, 2, "Next month");
  const auto& cells = Month(2014, 3).Cells;
  EXPECT_EQ((DayLines{" 9:00A-10:30A Smith"}), cells[21].Lines);
  EXPECT_EQ((DayLines{"12:00A-12:30A Jones"}), cells[22].Lines);
}

TEST_F(ListingsTest, ADayWithoutBookingsIsVisibleAndEmpty) {
  const MonthCell& cell = Month(2014, 3).Cells[21];
  EXPECT_TRUE(cell.Visible);
  EXPECT_EQ(DayLines{}, cell.Lines);
}

TEST_F(ListingsTest, BeforeAnyFacilityIsSelectedTheCellsAreEmpty) {
  folder_.AddBooking(room_, "2014-03-15", 1, 2, "Smith");
  Desk().CurRmID = 0;
  EXPECT_EQ(DayLines{}, CellOn("2014-03-15"));
}

TEST_F(ListingsTest, BookingsAreListedByTheirFirstSlot) {
  folder_.AddBooking(room_, "2014-03-15", 30, 31, "late");
  folder_.AddBooking(room_, "2014-03-15", 2, 3, "early");
  EXPECT_EQ((DayLines{"12:30A- 1:30A early", " 2:30P- 3:30P late"}), CellOn("2014-03-15"));
}

TEST_F(ListingsTest, BookingsOfOneFirstSlotStayInTheOrderOfTheirMaking) {
  folder_.AddBooking(room_, "2014-03-15", 19, 25, "long");
  folder_.AddBooking(room_, "2014-03-15", 19, 20, "short");
  EXPECT_EQ((DayLines{" 9:00A-12:30P long", " 9:00A-10:00A short"}), CellOn("2014-03-15"));
}

TEST_F(ListingsTest, AMonthIsOneQuestionADayAndAllAreAskedInOneGo) {
  int queries = 0;
  int goes = 0;
  Desk().ResCon = std::make_unique<Connection>(std::make_unique<CountingStore>(
      OpenStore(folder_.File("Calendar.mdb"), StoreAccess::ReadWrite), queries, goes));
  Month(2014, 3);
  EXPECT_EQ(31, queries);
  EXPECT_EQ(1, goes);
}

TEST_F(ListingsTest, ABookingToMidnightEndsWithTwelveA) {
  folder_.AddBooking(room_, "2014-03-15", 47, 48, "Party");
  EXPECT_EQ((DayLines{"11:00P-12:00A Party"}), CellOn("2014-03-15"));
}

TEST_F(ListingsTest, ABookingToTheSlotBeforeEndsAtHalfPastEleven) {
  folder_.AddBooking(room_, "2014-03-15", 46, 47, "Party");
  EXPECT_EQ((DayLines{"10:30P-11:30P Party"}), CellOn("2014-03-15"));
}

TEST_F(ListingsTest, ABookingOfTheLastSlotAloneWraps) {
  folder_.AddBooking(room_, "2014-03-15", 48, 48, "Late");
  EXPECT_EQ((DayLines{"11:30P-12:00A Late"}), CellOn("2014-03-15"));
}

TEST_F(ListingsTest, DamagedRowsAreShownSafelyAndTheRestOfTheDayIsListed) {
  folder_.AddBooking(room_, "2014-03-15", 0, 2, "zero");
  folder_.AddBooking(room_, "2014-03-15", 19, 21, "sound");
  folder_.AddBooking(room_, "2014-03-15", 30, 28, "reversed");
  folder_.AddBooking(room_, "2014-03-15", 48, 49, "beyond");
  EXPECT_EQ((DayLines{"**:***- 1:00A zero", " 9:00A-10:30A sound", " 2:30P- 2:00P reversed",
                      "11:30P-**:*** beyond"}),
            CellOn("2014-03-15"));
}

TEST_F(ListingsTest, TheDayGridNamesEverySlotOfABooking) {
  folder_.AddBooking(room_, "2014-03-15", 19, 21, "Smith");
  DayGrid grid;
  FillDayList(Desk(), grid, DateFromIsoText("2014-03-15").value());
  EXPECT_EQ("19 Smith\n20 Smith\n21 Smith\n", Rendered(grid));
}

/// As when another program held the calendar when the column was to be added.
TEST_F(ListingsTest, WithoutAColumnForGroupsTheDayGridIsFilledAllTheSame) {
  TableDefinition bookings = ReservTable();
  bookings.Columns.pop_back();
  bookings.Indexes.clear();
  auto calendar = CreateStoreOfKind(TestedStoreKind(), folder_.File("Old.mdb"));
  calendar->CreateTable(bookings);
  calendar->Insert("Reserv", {{"RmID", room_},
                              {"Event", "Smith"},
                              {"DateOfRes", DateFromIsoText("2014-03-15").value()},
                              {"TimeFrom", std::int64_t{19}},
                              {"TimeTo", std::int64_t{19}}});
  Desk().ResCon = std::make_unique<Connection>(std::move(calendar));
  DayGrid grid;
  FillDayList(Desk(), grid, DateFromIsoText("2014-03-15").value());
  EXPECT_EQ("19 Smith\n", Rendered(grid));
}

TEST_F(ListingsTest, FillingTheDayGridClearsNothing) {
  DayGrid grid;
  grid.Guest[5] = "kept";
  FillDayList(Desk(), grid, DateFromIsoText("2014-03-15").value());
  EXPECT_EQ("5 kept\n", Rendered(grid));
}

TEST_F(ListingsTest, DamagedRowsFillOnlyRowsOfTheDayGrid) {
  folder_.AddBooking(room_, "2014-03-15", 0, 2, "zero");
  folder_.AddBooking(room_, "2014-03-15", 48, 49, "beyond");
  folder_.AddBooking(room_, "2014-03-15", 30, 28, "reversed");
  DayGrid grid;
  FillDayList(Desk(), grid, DateFromIsoText("2014-03-15").value());
  EXPECT_EQ("1 zero\n2 zero\n48 beyond\n", Rendered(grid));
}

TEST_F(ListingsTest, TheDayViewerListsTheLinesOfAMonthCell) {
  folder_.AddBooking(room_, "2014-03-15", 47, 48, "Party");
  folder_.AddBooking(room_, "2014-03-15", 1, 3, "Meeting");
  FillDayList(Desk(), static_cast<DayListScreen&>(screen_), DateFromIsoText("2014-03-15").value());
  EXPECT_EQ((DayLines{"12:00A- 1:30A Meeting", "11:00P-12:00A Party"}), screen_.ViewerLines);
}

TEST_F(ListingsTest, AChangeReachesTheViewerOnlyWhileItIsLoaded) {
  Desk().CurYear = 2014;
  Desk().CurMonth = 3;
  Desk().DayDate = DateFromIsoText("2014-03-15").value();
  RefreshListings(Desk(), {screen_, screen_, clock_});
  EXPECT_EQ(0, screen_.ViewersShown);
  Desk().DayOpener = Opener::DayViewer;
  RefreshListings(Desk(), {screen_, screen_, clock_});
  EXPECT_EQ(1, screen_.ViewersShown);
  EXPECT_EQ(2, screen_.MonthsShown);
}

TEST_F(ListingsTest, NamesOfAnyKindAreListedWhole) {
  folder_.AddBooking(room_, "2014-03-15", 1, 1, "O'Brien \"Bob\" #1\nsecond line");
  folder_.AddBooking(room_, "2014-03-15", 2, 2, "\U0001F3BE \u05D3\u05D5\u05D3");
  EXPECT_EQ((DayLines{"12:00A-12:30A O'Brien \"Bob\" #1\nsecond line",
                      "12:30A- 1:00A \U0001F3BE \u05D3\u05D5\u05D3"}),
            CellOn("2014-03-15"));
}

TEST_F(ListingsTest, ANameThatTurnsTheDirectionIsSetApart) {
  folder_.AddBooking(room_, "2014-03-15", 1, 1, "\u202Eloop");
  EXPECT_EQ((DayLines{"12:00A-12:30A \u2068\u202Eloop\u2069"}), CellOn("2014-03-15"));
}

TEST_F(ListingsTest, AVeryLongNameIsListedWhole) {
  const std::string name(TestedStoreKind() == StoreKind::Access ? 50 : 10000, 'x');
  folder_.AddBooking(room_, "2014-03-15", 3, 3, name);
  EXPECT_EQ((DayLines{" 1:00A- 1:30A " + name}), CellOn("2014-03-15"));
}

}  // namespace
}  // namespace veyra::modRes
