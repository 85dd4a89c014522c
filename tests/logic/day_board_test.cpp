#include "logic/day_board.h"

#include <gtest/gtest.h>

#include "data/forwarding_store.h"
#include "logic/slots.h"
#include "tests/calendar_folder.h"

namespace veyra::modRes {
namespace {

/// Counts the queries for bookings.
class CountingStore : public ForwardingStore {
 public:
  using ForwardingStore::ForwardingStore;

  int Queries = 0;

  std::unique_ptr<RowSource> Select(const Query& query) override {
    Queries += query.Table == "Reserv" ? 1 : 0;
    return ForwardingStore::Select(query);
  }
  std::vector<std::unique_ptr<RowSource>> SelectAll(const std::vector<Query>& queries) override {
    return Store::SelectAll(queries);
  }
};

class DayBoardTest : public testing::Test {
 protected:
  DayBoardTest() {
    pool_ = folder_.AddRoom("Pool", true);
    hall_ = folder_.AddRoom("Hall");
  }

  /// A line for each booked half hour: "Pool 19 Smith".
  std::string Board() {
    std::string lines;
    for (const BoardColumn& column :
         ReadDayBoard(*folder_.Calendar(), MakeDate(2014, 4, 6).value()).Columns) {
      for (int slot = 1; slot <= kLastSlot; ++slot) {
        const std::string& name = column.Grid.Guest[slot];
        lines +=
            name.empty() ? "" : column.Facility + " " + std::to_string(slot) + " " + name + "\n";
      }
    }
    return lines;
  }

  CalendarFolder folder_;
  std::int64_t pool_ = 0;
  std::int64_t hall_ = 0;
};

TEST_F(DayBoardTest, EveryFacilityHasItsBookingsOfThatDay) {
  folder_.AddBooking(hall_, "2014-04-06", 48, 48, "Party");
  folder_.AddBooking(pool_, "2014-04-06", 19, 20, "Smith");
  folder_.AddBooking(pool_, "2014-04-05", 1, 48, "Yesterday");
  folder_.AddBooking(pool_, "2014-04-07", 1, 48, "Tomorrow");
  folder_.AddBooking(99, "2014-04-06", 1, 48, "Nowhere");
  EXPECT_EQ("Pool 19 Smith\nPool 20 Smith\nHall 48 Party\n", Board());
}

TEST_F(DayBoardTest, TheBookingThatBeginsLaterIsSeenOverAnEarlierOne) {
  folder_.AddBooking(pool_, "2014-04-06", 20, 20, "Late");
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Early");
  EXPECT_EQ("Pool 19 Early\nPool 20 Late\nPool 21 Early\n", Board());
}

TEST_F(DayBoardTest, ADamagedBookingIsShownAsFarAsTheDayWindowShowsIt) {
  folder_.AddBooking(pool_, "2014-04-06", 47, 60, "Long");
  folder_.AddBooking(hall_, "2014-04-06", 30, 20, "Turned");
  EXPECT_EQ("Pool 47 Long\nPool 48 Long\n", Board());
}

TEST_F(DayBoardTest, ManyFacilitiesAreReadWithOneQuery) {
  auto store = std::make_unique<CountingStore>(folder_.Calendar());
  for (int room = 0; room < 300; ++room) {
    store->Insert("Rooms", {{"Name", "Room"}, {"Active", std::int64_t{0}}});
  }
  EXPECT_EQ(302U, ReadDayBoard(*store, MakeDate(2014, 4, 6).value()).Columns.size());
  EXPECT_EQ(1, store->Queries);
}

TEST_F(DayBoardTest, TheFirstAndTheLastDayCanBeRead) {
  const auto store = folder_.Calendar();
  EXPECT_EQ(2U, ReadDayBoard(*store, MakeDate(kFirstYear, 1, 1).value()).Columns.size());
  EXPECT_EQ(2U, ReadDayBoard(*store, MakeDate(kLastYear, 12, 31).value()).Columns.size());
}

}  // namespace
}  // namespace veyra::modRes
