#include "tests/postgres/line.h"

#include "data/errors.h"
#include "data/postgres/session.h"
#include "tests/data/postgres/shared_fixture.h"

namespace veyra::postgres {
namespace {

std::vector<Query> MonthOfQueries() {
  std::vector<Query> days;
  for (int day = 1; day <= 31; ++day) {
    days.push_back(ParseQuery("SELECT * FROM Reserv WHERE RmID = 1 AND DateOfRes = #3/" +
                              std::to_string(day) + "/2026# ORDER BY TimeFrom"));
  }
  return days;
}

std::string NamesIn(const std::vector<std::unique_ptr<RowSource>>& days) {
  std::string names;
  for (const auto& day : days) {
    for (Row row; day->Next(row);) {
      names += ToText(row.Values.at(1)) + ";";
    }
    names += ".";
  }
  return names;
}

/// A desk at the end of a line, beside those that are near the server.
class LineTest : public SharedTest {
 protected:
  LineTest() {
    CalendarLink link = link_;
    link.Server.replace(link.Server.find(server_.Folder()), server_.Folder().size(),
                        line_.Folder());
    far_ = OpenPostgres(link, kFile, StoreAccess::ReadWrite, {});
    far_->ColumnNames("Reserv");
  }

  template <typename Work>
  int TurnsOf(const Work& work) {
    const int before = line_.Turns();
    work();
    return line_.Turns() - before;
  }

  Line line_{server_.Folder()};
  std::unique_ptr<Store> far_;
};

TEST_F(LineTest, AMonthIsOneTurn) {
  Book(*desk_, 1, 2, "Smith");
  Book(*desk_, 5, 8, "Jones");
  for (const char* time : {"first", "second", "third"}) {
    std::vector<std::unique_ptr<RowSource>> days;
    EXPECT_EQ(1, TurnsOf([&] { days = far_->SelectAll(MonthOfQueries()); })) << time;
    EXPECT_EQ("....Smith;Jones;...........................", NamesIn(days));
  }
}

TEST_F(LineTest, ABookingIsThreeTurns) {
  for (int slot = 1; slot <= 5; ++slot) {
    EXPECT_EQ(3, TurnsOf([&] { Book(*far_, slot, slot, "Smith"); })) << slot;
  }
  EXPECT_EQ("Smith;Smith;Smith;Smith;Smith;", Names(*desk_));
}

TEST_F(LineTest, ADayThatIsRefusedAmongManyIsReportedAndTheNextMonthIsRead) {
  Book(*desk_, 1, 2, "Smith");
  std::vector<Query> days = MonthOfQueries();
  days.at(15) = ParseQuery("SELECT * FROM Reserv WHERE NoColumn = 1");
  EXPECT_THROW(far_->SelectAll(days), MissingItemError);
  EXPECT_EQ("....Smith;...........................", NamesIn(far_->SelectAll(MonthOfQueries())));
}

TEST_F(LineTest, WhatTheServerCannotReadIsReportedAndLeavesNothingBehind) {
  std::vector<Query> days = MonthOfQueries();
  server_.Run("ALTER TABLE " + In("Reserv") + " RENAME COLUMN \"TimeFrom\" TO \"Other\"");
  EXPECT_THROW(far_->SelectAll(days), MissingItemError);
  server_.Run("ALTER TABLE " + In("Reserv") + " RENAME COLUMN \"Other\" TO \"TimeFrom\"");
  EXPECT_EQ("...............................", NamesIn(far_->SelectAll(days)));
  Book(*far_, 1, 2, "Smith");
  EXPECT_EQ("Smith;", Names(*desk_));
}

TEST_F(LineTest, WhatIsRefusedBeforeItIsSentLeavesNoTransactionOpen) {
  EXPECT_THROW(far_->Insert("Reserv", Booking(1, 2, std::string("a\0b", 3))), ValueRefusedError);
  Look(*far_);
  EXPECT_EQ("0", server_.Run("SELECT count(*) FROM pg_stat_activity WHERE datname ="
                             " current_database() AND state LIKE 'idle in%'"));
}

TEST_F(LineTest, WhatWasToBePreparedAfterARefusedStatementIsPreparedTheNextTime) {
  const auto hasty = Open(StoreAccess::ReadWrite, std::chrono::milliseconds(30));
  const auto book_two_days = [&](int slot) {
    return hasty
        ->InsertAll("Reserv", {Booking(slot, slot, "Smith"),
                               Booking(slot, slot, "Smith", 1, MakeDate(2026, 3, 6).value())})
        .size();
  };
  EXPECT_EQ(2U, book_two_days(1));
  Session holder(link_, kFile, {}, [] {});
  holder.RunScript("BEGIN; LOCK TABLE " + In("Reserv") + " IN EXCLUSIVE MODE");
  EXPECT_THROW(book_two_days(2), DatabaseBusyError);
  holder.Rollback();
  EXPECT_EQ(2U, book_two_days(2));
}

}  // namespace
}  // namespace veyra::postgres
