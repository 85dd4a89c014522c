#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

#include "data/access/access_store.h"
#include "data/access/pages/journal.h"
#include "data/schema.h"
#include "tests/data/access/access_folder.h"
#include "tests/data/access/index_check.h"

namespace veyra {
namespace {

constexpr std::chrono::milliseconds kTimeout{200};
constexpr int kPoints = 200;
constexpr int kStepsOfAChange = 5;
constexpr int kBookings = kPoints / kStepsOfAChange;

/// Tells that a change was reported as saved.
using Saved = std::function<void()>;
using Action = std::function<void(Store&, const Saved&)>;

/// What a program of its own has done to the file before it was killed.
struct Killed {
  bool WasKilled = false;
  int ChangesSaved = 0;
};

/// Runs the action in a program of its own, which is killed right after that step of writing,
/// counted from 0 over all its changes.
Killed RunAndKill(const std::string& file, int point, const Action& action) {
  int ends[2];
  EXPECT_EQ(0, pipe(ends));
  const pid_t child = fork();
  if (child == 0) {
    int steps_left = point;
    const auto observer = [&steps_left](access::CommitStep) {
      if (steps_left-- == 0) {
        raise(SIGKILL);
      }
    };
    const auto store = OpenAccessStore(file, StoreAccess::ReadWrite, kTimeout, observer);
    action(*store, [&ends] {
      if (write(ends[1], "s", 1) != 1) {
        _exit(1);
      }
    });
    _exit(0);
  }
  close(ends[1]);
  Killed result;
  for (char byte = 0; read(ends[0], &byte, 1) == 1;) {
    ++result.ChangesSaved;
  }
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  result.WasKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  return result;
}

Date DayOf(int number) {
  return AddDays(std::chrono::year{2014} / 3 / 15, number);
}

void BookAll(Store& store, const Saved& saved) {
  for (int i = 0; i < kBookings; ++i) {
    store.Insert("Reserv", Booking(3, "Chess", DayOf(i), 20, 25));
    saved();
  }
}

void DeleteAll(Store& store, const Saved& saved) {
  for (const Row& row : AllRows(store, "Reserv")) {
    store.Delete("Reserv", row);
    saved();
  }
}

TEST(KilledProgram, LeavesEveryBookingThatItReportedAsMade) {
  for (int point = 0; point < kPoints; ++point) {
    const AccessFolder folder;
    const Killed killed = RunAndKill(folder.Calendar(), point, BookAll);
    ASSERT_TRUE(killed.WasKilled) << point;
    const auto store = folder.Open();
    const auto rows = static_cast<int>(AllRows(*store, "Reserv").size());
    EXPECT_GE(rows, killed.ChangesSaved) << point;
    EXPECT_LE(rows, killed.ChangesSaved + 1) << point;
    EXPECT_EQ("", IndexFaults(folder.Calendar(), "Reserv")) << point;
  }
}

TEST(KilledProgram, LeavesEveryBookingThatItHadNotYetDeleted) {
  for (int point = 0; point < kPoints; ++point) {
    const AccessFolder folder;
    BookAll(*folder.Open(), [] {});
    const Killed killed = RunAndKill(folder.Calendar(), point, DeleteAll);
    ASSERT_TRUE(killed.WasKilled) << point;
    const auto store = folder.Open();
    const auto rows = static_cast<int>(AllRows(*store, "Reserv").size());
    EXPECT_LE(rows, kBookings - killed.ChangesSaved) << point;
    EXPECT_GE(rows, kBookings - killed.ChangesSaved - 1) << point;
    EXPECT_EQ("", IndexFaults(folder.Calendar(), "Reserv")) << point;
  }
}

void Upgrade(Store& store, const Saved& saved) {
  store.CreateTable(
      {.Name = "Settings",
       .Columns = {{.Name = "ID", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                   {.Name = "BkGrnd", .Type = ColumnType::Text, .Size = 16}}});
  saved();
  store.Insert("Settings", {{"BkGrnd", std::string("255")}});
  saved();
  store.AddColumn("Settings", {.Name = "TodayBColor", .Type = ColumnType::Text, .Size = 16});
  saved();
}

TEST(KilledProgram, LeavesAnUpgradeThatCanBeFinishedAndEveryBooking) {
  bool was_killed = true;
  int point = 0;
  for (; was_killed && point < kPoints; ++point) {
    const AccessFolder folder;
    BookAll(*folder.Open(), [] {});
    const Killed killed = RunAndKill(folder.Calendar(), point, Upgrade);
    was_killed = killed.WasKilled;
    Databases databases;
    databases.DataFolder = folder.Folder().path().string();
    CreateResCon(databases);
    EnsureSettingsRow(databases);
    EnsureTodayBColorColumn(databases);
    EXPECT_TRUE(HasNamedItem(databases.ResCon->ColumnNames("Settings"), "TodayBColor")) << point;
    databases.ResCon.reset();
    EXPECT_EQ(std::size_t{kBookings}, AllRows(*folder.Open(), "Reserv").size()) << point;
  }
  EXPECT_GE(point, 3 * kStepsOfAChange);
  EXPECT_FALSE(was_killed);
}

}  // namespace
}  // namespace veyra
