#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "data/access/access_store.h"
#include "data/color_settings.h"
#include "data/schema.h"
#include "tests/data/sqlite/disk_shim.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

constexpr int kMostPoints = 400;

/// Kills the program that it is called in when it is called for the last time.
class Executioner {
 public:
  explicit Executioner(int point) : left_(point) {}
  void Step() {
    if (left_-- == 0) {
      raise(SIGKILL);
    }
  }

 private:
  int left_;
};

/// The first start of a calendar, killed at every step of its writing and started again.
class KilledStartTest : public testing::TestWithParam<StoreKind> {
 protected:
  void Upgrade(Databases& databases) const {
    EnsureSettingsRow(databases);
    EnsureMultKeyColumn(databases);
    EnsureTodayBColorColumn(databases);
  }

  /// Makes a new calendar by `make`.
  void MakeCalendar(const std::function<void(Store&)>& make) {
    folder_ = std::make_unique<TempFolder>();
    databases_ = Databases();
    databases_.DataFolder = folder_->path().string();
    make(*CreateStoreOfKind(GetParam(), File()));
  }

  std::string File() const { return folder_->File("Calendar.mdb").string(); }

  /// Runs the upgrades in a program of their own, which is killed before that step of writing;
  /// returns whether it came to that.
  bool RunAndKill(int point) {
    const pid_t child = fork();
    if (child == 0) {
      GetParam() == StoreKind::Access ? RunAccess(point) : RunSqlite(point);
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }

  void RunAccess(int point) {
    Executioner executioner(point);
    databases_.ResCon = std::make_unique<Connection>(
        OpenAccessStore(File(), StoreAccess::ReadWrite, std::chrono::milliseconds(200),
                        [&](access::CommitStep) { executioner.Step(); }));
    Upgrade(databases_);
    databases_.ResCon.reset();
  }

  void RunSqlite(int point) {
    Executioner executioner(point);
    const DiskShim shim([&](DiskCall call) {
      if (call == DiskCall::Write || call == DiskCall::Flush) {
        executioner.Step();
      }
      return SQLITE_OK;
    });
    CreateResCon(databases_);
    Upgrade(databases_);
    databases_.ResCon.reset();
  }

  ColorSettings ColorsOfTheNextStart() {
    CreateResCon(databases_);
    Upgrade(databases_);
    ColorSettings current;
    ColorSettings stored;
    LoadColorSettings(*databases_.ResCon, current, stored);
    databases_.ResCon.reset();
    return current;
  }

  /// Kills the start at every step and compares the colours of the next one.
  void ExpectColors(const std::function<void(Store&)>& make, const ColorSettings& expected) {
    int point = 0;
    for (bool was_killed = true; was_killed && point < kMostPoints; ++point) {
      MakeCalendar(make);
      was_killed = RunAndKill(point);
      EXPECT_EQ(expected, ColorsOfTheNextStart()) << "killed at step " << point;
    }
    EXPECT_GT(point, 4);
    EXPECT_LT(point, kMostPoints);
  }

  std::unique_ptr<TempFolder> folder_;
  Databases databases_;
};

TEST_P(KilledStartTest, LeavesACalendarThatStartsInTheDefaultColors) {
  ExpectColors(
      [](Store& store) {
        store.CreateTable(RoomsTable());
        store.CreateTable(ReservTable());
      },
      {"-2147483643", "12582912", "0", "255", "-2147483643"});
}

TEST_P(KilledStartTest, LeavesAnOlderCalendarThatStartsInItsOwnColors) {
  ExpectColors(
      [](Store& store) {
        store.CreateTable(RoomsTable());
        store.CreateTable(ReservTable());
        TableDefinition settings = CalendarTables().back();
        settings.Columns.pop_back();
        store.CreateTable(settings);
        store.Insert(
            "Settings",
            {{"BkGrnd", "1"}, {"HeaderTxt", "2"}, {"DaysTxtColor", "3"}, {"TodayColor", "4"}});
      },
      {"1", "2", "3", "4", "1"});
}

INSTANTIATE_TEST_SUITE_P(Stores, KilledStartTest, testing::ValuesIn(kFileKinds),
                         [](const auto& kind) { return NameOf(kind.param); });

}  // namespace
}  // namespace veyra
