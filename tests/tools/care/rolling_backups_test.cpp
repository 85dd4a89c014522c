#include "tools/care/rolling_backups.h"

#include <gtest/gtest.h>

#include "tests/temp_folder.h"

namespace veyra {
namespace {

Date Day(const std::string& iso) {
  return DateFromIsoText(iso).value();
}

/// The days that are kept when a copy is made on every day of the range, both ends included, and
/// what may go goes each day.
std::string KeptAfter(Date from, Date to) {
  std::set<Date> days;
  for (Date day = from; day <= to; day = AddDays(day, 1)) {
    days.insert(day);
    for (const Date old : BackupsToDrop(days)) {
      days.erase(old);
    }
  }
  std::string kept;
  for (const Date day : days) {
    kept += IsoText(day) + " ";
  }
  return kept;
}

TEST(RollingBackupsTest, SevenDaysFourWeeksAndTwelveMonthsStay) {
  EXPECT_EQ(
      "2025-04-30 2025-05-31 2025-06-30 2025-07-31 2025-08-31 2025-09-30 2025-10-31 2025-11-30 "
      "2025-12-31 2026-01-31 2026-02-28 2026-03-07 "
      "2026-03-14 2026-03-16 2026-03-17 2026-03-18 2026-03-19 2026-03-20 2026-03-21 2026-03-22 ",
      KeptAfter(Day("2024-01-01"), Day("2026-03-22")));
}

TEST(RollingBackupsTest, NothingGoesWithinTheFirstWeek) {
  std::set<Date> days;
  for (int i = 0; i < 7; ++i) {
    days.insert(AddDays(Day("2026-03-02"), i));
  }
  EXPECT_TRUE(BackupsToDrop(days).empty());
}

TEST(RollingBackupsTest, ACalendarThatRestedKeepsItsLastDays) {
  EXPECT_TRUE(BackupsToDrop({Day("2020-01-01"), Day("2020-01-02"), Day("2026-03-02")}).empty());
}

TEST(RollingBackupsTest, OnlyCopiesOfADayAreLookedAt) {
  const TempFolder folder;
  for (const char* name : {"Calendar-2026-03-02.mdb", "Calendar-2026-02-30.mdb", "Calendar.mdb",
                           "Calendar-2026-03-03.mdb.old", "Letters.mdb", "Calendar-before.mdb"}) {
    folder.Write(name, "x");
  }
  EXPECT_EQ(std::set<Date>{Day("2026-03-02")}, BackupDays(folder.path()));
  EXPECT_EQ(folder.File("Calendar-2026-03-02.mdb"), BackupOf(folder.path(), Day("2026-03-02")));
}

}  // namespace
}  // namespace veyra
