#include "logic/taken_days.h"

#include <gtest/gtest.h>

#include "tests/calendar_folder.h"

namespace veyra::modRes {
namespace {

constexpr std::chrono::seconds kLong{60};

class TakenDaysTest : public testing::Test {
 protected:
  /// All days of April 2014.
  static PlannedRange April() {
    PlannedRange range{MakeDate(2014, 4, 1).value(), MakeDate(2014, 4, 30).value(), {}};
    for (bool& day : range.Days) {
      day = true;
    }
    return range;
  }

  CalendarFolder folder_;
};

/// What the query finds and what counts as taken are two wordings of one rule.
TEST_F(TakenDaysTest, ItFindsTheDaysThatTheQueryOfTheBookingFinds) {
  int day = 0;
  for (const auto& [from, to] : {std::pair{1, 48},
                                 {18, 18},
                                 {19, 19},
                                 {20, 20},
                                 {21, 21},
                                 {22, 22},
                                 {17, 19},
                                 {21, 23},
                                 {18, 22},
                                 {20, 19},
                                 {0, 20},
                                 {21, 60},
                                 {48, 48},
                                 {1, 18}}) {
    const std::string number = std::to_string(++day);
    folder_.AddBooking(1, "2014-04-" + std::string(2 - number.size(), '0') + number, from, to,
                       "Any");
  }
  const auto session = folder_.OpenSession();
  for (const SlotRange slots : {SlotRange{19, 21}, {20, 20}, {1, 48}, {47, 48}, {18, 22}}) {
    session->SelFirstSlot = slots.First;
    session->SelLastSlot = slots.Last;
    TakenDays taken(session->ResCon->Rows(), slots);
    EXPECT_FALSE(taken.WorkOn(kLong));
    for (const Date each : PlannedDates(April())) {
      const bool clashes =
          !session->ResCon->Open(ClashQuery(*session, each), CursorType::ForwardOnlyReadOnly)
               ->IsEmpty();
      EXPECT_EQ(clashes ? 1 : 0, taken.CountIn({each, each, April().Days}))
          << DateText(each) << " " << slots.First << "-" << slots.Last;
    }
  }
}

TEST_F(TakenDaysTest, ADayOnWhichSeveralClashCountsOnce) {
  folder_.AddBooking(1, "2014-04-06", 19, 19, "One");
  folder_.AddBooking(2, "2014-04-06", 21, 21, "Other");
  const auto session = folder_.OpenSession();
  TakenDays taken(session->ResCon->Rows(), {19, 21});
  taken.WorkOn(kLong);
  EXPECT_EQ(1, taken.CountIn(April()));
}

TEST_F(TakenDaysTest, ARowWithoutTimesOrDayTakesNothing) {
  folder_.Calendar()->Insert("Reserv", {{"RmID", std::int64_t{1}},
                                        {"TimeTo", std::int64_t{21}},
                                        {"DateOfRes", MakeDate(2014, 4, 6).value()}});
  folder_.Calendar()->Insert("Reserv",
                             {{"TimeFrom", std::int64_t{19}}, {"TimeTo", std::int64_t{21}}});
  const auto session = folder_.OpenSession();
  TakenDays taken(session->ResCon->Rows(), {19, 21});
  EXPECT_FALSE(taken.WorkOn(kLong));
  EXPECT_EQ(0, taken.CountIn(April()));
}

TEST_F(TakenDaysTest, ItReadsPieceByPiece) {
  const std::vector<RowChange> rows(
      100, {RowChange::Kind::Add, "Reserv", {}, {{"RmID", std::int64_t{1}}}});
  folder_.Calendar()->ChangeAll(rows, {});
  folder_.AddBooking(1, "2014-04-06", 19, 21, "Last");
  const auto session = folder_.OpenSession();
  TakenDays taken(session->ResCon->Rows(), {19, 21});
  EXPECT_TRUE(taken.WorkOn({}));
  EXPECT_FALSE(taken.IsDone());
  EXPECT_EQ(0, taken.CountIn(April()));
  while (taken.WorkOn({})) {
  }
  EXPECT_TRUE(taken.IsDone());
  EXPECT_EQ(1, taken.CountIn(April()));
}

}  // namespace
}  // namespace veyra::modRes
