#include <barrier>
#include <mutex>
#include <thread>

#include "data/errors.h"
#include "tests/data/postgres/shared_fixture.h"

namespace veyra::postgres {
namespace {

class GuardTest : public SharedTest {
 protected:
  std::string Deadlocks() const {
    return server_.Run("SELECT deadlocks FROM pg_stat_database WHERE datname = current_database()");
  }

  static bool IsRefused(Store& desk, const FieldValues& booking) {
    try {
      desk.Insert("Reserv", booking);
      return false;
    } catch (const TimeTakenError&) {
      return true;
    }
  }
};

TEST_F(GuardTest, ABookingThatTheDeskHasNotSeenIsInTheWay) {
  Book(*other_, 19, 21, "Smith");
  try {
    Book(*desk_, 21, 24, "Jones");
    FAIL() << "booked twice";
  } catch (const TimeTakenError& error) {
    ASSERT_EQ(1U, error.Taken().size());
    EXPECT_EQ(19, error.Taken()[0].From);
    EXPECT_EQ(21, error.Taken()[0].To);
    EXPECT_EQ("Smith", error.Taken()[0].Name);
    EXPECT_EQ(kFile, error.report().File);
    EXPECT_EQ("Nothing was saved.", error.report().Effect);
  }
  EXPECT_EQ("Smith;", Names(*desk_));
}

TEST_F(GuardTest, AllThatStandThereAreNamedInTheOrderOfTheirTimes) {
  Book(*other_, 30, 31, "two words\nand a line");
  Book(*other_, 19, 21, "");
  try {
    Book(*desk_, 1, 48, "Jones");
    FAIL() << "booked twice";
  } catch (const TimeTakenError& error) {
    ASSERT_EQ(2U, error.Taken().size());
    EXPECT_EQ("", error.Taken()[0].Name);
    EXPECT_EQ("two words\nand a line", error.Taken()[1].Name);
  }
}

TEST_F(GuardTest, BothEndsOfABookingBelongToIt) {
  Book(*other_, 10, 20, "Smith");
  EXPECT_TRUE(IsRefused(*desk_, Booking(20, 25, "after")));
  EXPECT_TRUE(IsRefused(*desk_, Booking(5, 10, "before")));
  EXPECT_TRUE(IsRefused(*desk_, Booking(12, 13, "inside")));
  EXPECT_TRUE(IsRefused(*desk_, Booking(1, 48, "around")));
  EXPECT_FALSE(IsRefused(*desk_, Booking(21, 25, "after")));
  EXPECT_FALSE(IsRefused(*desk_, Booking(5, 9, "before")));
}

TEST_F(GuardTest, AnotherFacilityAndAnotherDayAreFree) {
  Book(*other_, 10, 20, "Smith");
  EXPECT_FALSE(IsRefused(*desk_, Booking(10, 20, "Jones", 2)));
  EXPECT_FALSE(IsRefused(*desk_, Booking(10, 20, "Jones", 1, MakeDate(2026, 3, 6).value())));
}

TEST_F(GuardTest, WhatTheDeskHasSeenItBooksOverOnPurpose) {
  Book(*other_, 10, 20, "Smith");
  Look(*desk_);
  EXPECT_FALSE(IsRefused(*desk_, Booking(12, 13, "Jones")));
}

TEST_F(GuardTest, WhatTheDeskHasMadeItselfIsSeen) {
  Book(*desk_, 10, 20, "Smith");
  EXPECT_FALSE(IsRefused(*desk_, Booking(12, 13, "Jones")));
}

/// Whoever looks whether a day is free knows of the bookings that are in nobody's way by the rules.
TEST_F(GuardTest, ALookAtADayIsALookAtAllOfIt) {
  Book(*other_, 12, 13, "enclosed");
  EXPECT_TRUE(Look(*desk_,
                   "SELECT * FROM Reserv Where DateOfRes = #3/5/2026# And ((10 >= TimeFrom AND 10 "
                   "<= TimeTo) OR (20 >= TimeFrom AND 20 <= TimeTo));")
                  .empty());
  EXPECT_FALSE(IsRefused(*desk_, Booking(10, 20, "around")));
}

TEST_F(GuardTest, ALookAtOneDayIsNoneAtAnother) {
  other_->Insert("Reserv", Booking(12, 13, "tomorrow", 1, MakeDate(2026, 3, 6).value()));
  Look(*desk_, "SELECT * FROM Reserv Where DateOfRes = #3/5/2026# And TimeFrom = 1");
  EXPECT_TRUE(IsRefused(*desk_, Booking(10, 20, "around", 1, MakeDate(2026, 3, 6).value())));
}

TEST_F(GuardTest, ABookingThatMovedSinceItWasSeenIsInTheWay) {
  const Row row = Book(*other_, 10, 12, "Smith");
  Look(*desk_);
  other_->Update("Reserv", row, {{"TimeFrom", std::int64_t{30}}, {"TimeTo", std::int64_t{32}}});
  EXPECT_TRUE(IsRefused(*desk_, Booking(30, 30, "Jones")));
  EXPECT_FALSE(IsRefused(*desk_, Booking(10, 12, "Jones")));
}

TEST_F(GuardTest, ABookingIsNotMovedOntoOneThatTheDeskHasNotSeen) {
  const Row row = Book(*desk_, 1, 2, "Jones");
  Book(*other_, 10, 12, "Smith");
  EXPECT_THROW(desk_->Update("Reserv", row, {{"TimeTo", std::int64_t{10}}}), TimeTakenError);
  EXPECT_NO_THROW(desk_->Update("Reserv", row, {{"TimeTo", std::int64_t{9}}}));
}

TEST_F(GuardTest, ABookingIsRenamedWhateverStandsBesideIt) {
  const Row row = Book(*desk_, 10, 12, "Jones");
  server_.Run("ALTER TABLE " + In("Reserv") + " DISABLE TRIGGER veyra_guard_new");
  Book(*other_, 10, 12, "Smith");
  EXPECT_NO_THROW(desk_->Update("Reserv", row, {{"Event", std::string("James")}}));
}

TEST_F(GuardTest, BookingsOfOneChangeMayOverlap) {
  EXPECT_NO_THROW(desk_->InsertAll("Reserv", {Booking(1, 5, "a"), Booking(3, 8, "b")}));
  EXPECT_NO_THROW(desk_->ChangeAll(
      {{.What = RowChange::Kind::Add, .Table = "Reserv", .Fields = Booking(20, 30, "c")},
       {.What = RowChange::Kind::Add, .Table = "Reserv", .Fields = Booking(25, 26, "d")}},
      {}));
}

TEST_F(GuardTest, OfSeveralBookingsNoneIsMadeWhenOneIsRefused) {
  Book(*other_, 10, 12, "Smith");
  EXPECT_THROW(desk_->InsertAll("Reserv", {Booking(1, 5, "a"), Booking(11, 12, "b")}),
               TimeTakenError);
  EXPECT_THROW(
      desk_->ChangeAll(
          {{.What = RowChange::Kind::Add, .Table = "Reserv", .Fields = Booking(1, 2, "c")},
           {.What = RowChange::Kind::Add, .Table = "Reserv", .Fields = Booking(11, 11, "d")}},
          {}),
      TimeTakenError);
  EXPECT_EQ("Smith;", Names(*desk_));
}

TEST_F(GuardTest, ARowWithoutADayOrAFacilityIsNoBooking) {
  Book(*other_, 10, 12, "Smith");
  EXPECT_FALSE(IsRefused(*desk_, {{"TimeFrom", std::int64_t{10}}, {"TimeTo", std::int64_t{12}}}));
}

TEST_F(GuardTest, AnotherProgramIsHeldToItToo) {
  Book(*desk_, 10, 12, "Smith");
  EXPECT_THROW(server_.Run("INSERT INTO " + In("Reserv") +
                           "(\"RmID\", \"DateOfRes\", \"TimeFrom\", \"TimeTo\")"
                           " VALUES (1, '2026-03-05', 12, 13)"),
               std::runtime_error);
}

TEST_F(GuardTest, WhoHasLookedAtOneFacilityHasNotSeenAnotherOnes) {
  other_->Insert("Reserv", Booking(1, 4, "Smith", 2));
  Look(*desk_, "SELECT * FROM Reserv Where RmID = 1 And DateOfRes = #3/5/2026#");
  EXPECT_TRUE(IsRefused(*desk_, Booking(2, 3, "Jones", 2)));
  Look(*desk_, "SELECT * FROM Reserv Where DateOfRes = #3/5/2026# And TimeFrom = 30");
  EXPECT_FALSE(IsRefused(*desk_, Booking(2, 3, "Jones", 2)));
}

/// Two desks that each look at a day, find it free and book all of it, again and again at the same
/// moment: of each round one booking stands.
TEST_F(GuardTest, TwoDesksNeverBookTheSameTime) {
  constexpr int kRounds = 150;
  std::barrier together(2);
  int booked = 0;
  std::mutex counting;
  const auto work = [&](Store& desk) {
    for (int round = 0; round < kRounds; ++round) {
      const Date day = AddDays(MakeDate(2026, 1, 1).value(), round);
      Look(desk, "SELECT * FROM Reserv Where DateOfRes = #" + DateText(day) + "#");
      together.arrive_and_wait();
      const bool is_booked = !IsRefused(desk, Booking(10, 20, "desk", 1, day));
      const std::lock_guard lock(counting);
      booked += is_booked ? 1 : 0;
    }
  };
  std::thread second([&] { work(*other_); });
  work(*desk_);
  second.join();
  EXPECT_EQ(kRounds, booked);
  EXPECT_EQ(static_cast<std::size_t>(kRounds), Look(*desk_).size());
}

/// Each books several days at a time, in orders that would have them wait for each other.
TEST_F(GuardTest, TwoDesksThatBookManyDaysDoNotWaitForEachOther) {
  constexpr int kRounds = 60;
  const std::string before = Deadlocks();
  const Date first = MakeDate(2026, 1, 1).value();
  const auto work = [&](Store& desk, bool downwards) {
    for (int round = 0; round < kRounds; ++round) {
      std::vector<FieldValues> days;
      for (int day = 0; day < 5; ++day) {
        const int place = downwards ? 4 - day : day;
        days.push_back(Booking(10, 20, "desk", 1, AddDays(first, round * 5 + place)));
      }
      try {
        desk.InsertAll("Reserv", days);
      } catch (const TimeTakenError&) {
        // The other one was first.
      }
    }
  };
  std::thread second([&] { work(*other_, true); });
  work(*desk_, false);
  second.join();
  EXPECT_EQ(static_cast<std::size_t>(kRounds * 5), Look(*desk_).size());
  // The server counts who has left: what it had to break off, the store did again.
  desk_.reset();
  other_.reset();
  while (server_.Run("SELECT count(*) FROM pg_stat_activity WHERE datname = current_database()"
                     " AND application_name = 'veyra-calendar'") != "0") {
    std::this_thread::yield();
  }
  EXPECT_EQ(before, Deadlocks());
}

}  // namespace
}  // namespace veyra::postgres
