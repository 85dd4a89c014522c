#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "data/create_store.h"
#include "data/errors.h"
#include "data/open_note.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/data/sqlite/faulty_disk.h"
#include "tests/data/sqlite/foreign_program.h"
#include "tests/temp_folder.h"

namespace veyra {

namespace fs = std::filesystem;

inline constexpr int kFacilities = 12;  ///< That the program adds before it closes the calendar,
inline constexpr int kManyFacilities = 500;  ///< or so many that the log grows long meanwhile.
inline constexpr int kKills = 50;

/// Memory that a killed program leaves to the one that started it.
class SharedCount {
 public:
  SharedCount()
      : count_(static_cast<int*>(mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE,
                                      MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
  ~SharedCount() { munmap(count_, sizeof(int)); }
  SharedCount(const SharedCount&) = delete;
  SharedCount& operator=(const SharedCount&) = delete;
  int& operator*() { return *count_; }

 private:
  int* count_;
};

/// A calendar whose program was killed, and that was then put right as the README and the help say,
/// moved, or left alone.
class RestoredFileTest : public testing::Test {
 protected:
  /// The calendar holds the facility 0. Of the backups the older one holds none, the newer one 0,
  /// 100 and 101, and the same one is as the calendar was when it was opened.
  RestoredFileTest() {
    fs::create_directory(Folder());
    Add({});
    fs::copy_file(File(), Backup("older"));
    Add({0});
    fs::copy_file(File(), Backup("same"));
    Add({100, 101});
    fs::rename(File(), Backup("newer"));
    fs::copy_file(Backup("same"), File());
  }

  fs::path Folder() const { return folder_.File("data"); }
  fs::path File() const { return Folder() / "Calendar.mdb"; }
  fs::path Backup(const std::string& name) const { return folder_.File(name); }

  /// Makes the calendar when there is none, and adds facilities by number.
  void Add(const std::vector<int>& facilities) const {
    if (!fs::exists(File())) {
      const auto store = CreateStore(File().string());
      store->CreateTable(RoomsTable());
      store->CreateTable(GuestTable());
    }
    const auto store = OpenStore(File().string(), StoreAccess::ReadWrite);
    for (const int number : facilities) {
      AddTo(*store, number);
    }
  }

  /// The name is long so that the calendar is more than a few pages.
  static void AddTo(Store& store, int number) {
    store.Insert("Rooms", {{"Name", std::to_string(number) + " " + std::string(900, 'x')}});
  }

  /// Runs the program in a process of its own, which is killed at its `kill_at`th call to the disk,
  /// or comes to its end. Returns how many facilities it has reported as added.
  int RunKilledAt(int kill_at) {
    *calls_ = 0;
    *added_ = 0;
    const pid_t process = fork();
    if (process == 0) {
      RunUntilKilled(kill_at);
    }
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
    return *added_;
  }

  [[noreturn]] void RunUntilKilled(int kill_at) {
    try {
      const FaultyDisk disk([&](const std::string& file, FaultyDisk::Call call) {
        if (call != FaultyDisk::Call::Read && ++*calls_ == kill_at) {
          raise(SIGKILL);
        }
        if (*first_into_file_ == 0 && call == FaultyDisk::Call::Write && file == File()) {
          *first_into_file_ = *calls_;
        }
        return SQLITE_OK;
      });
      auto store = OpenStore(File().string(), StoreAccess::ReadWrite);
      for (int number = 1; number <= facilities_; ++number) {
        AddTo(*store, number);
        ++*added_;
      }
      store.reset();
    } catch (const std::exception&) {
      _exit(1);
    }
    _exit(0);
  }

  /// Kills fresh runs at points spread over the whole run, and tells `check` each time.
  void KillEverywhere(const std::function<void(int added)>& check) {
    RunKilledAt(0);
    ASSERT_GT(*calls_, kKills);
    KillBetween(1, *calls_, check);
  }

  /// The same while a log that has grown long is put into the file.
  void KillWhileTheLogIsPutAway(const std::function<void(int added)>& check) {
    facilities_ = kManyFacilities;
    RunKilledAt(0);
    ASSERT_LT(0, *first_into_file_);
    KillBetween(*first_into_file_ - 5, *first_into_file_ + 30, check, 18);
  }

  void KillBetween(int first, int last, const std::function<void(int added)>& check,
                   int kills = kKills) {
    for (int i = 0; i < kills; ++i) {
      fs::remove_all(Folder());
      fs::create_directory(Folder());
      fs::copy_file(Backup("same"), File());
      const int kill_at = first + i * (last - first) / (kills - 1);
      SCOPED_TRACE("killed at call " + std::to_string(kill_at));
      check(RunKilledAt(kill_at));
      if (HasFailure()) {
        return;
      }
    }
  }

  /// The numbers of the facilities in the calendar as the next start finds it, in their order.
  std::string Facilities(const fs::path& file) {
    const auto store = OpenStore(file.string(), StoreAccess::ReadWrite);
    if (const auto notice = store->TakeNotice()) {
      notices_.push_back(*notice);
    }
    std::string numbers;
    const auto rows = store->Select(ParseQuery("SELECT * FROM Rooms"));
    for (Row row; rows->Next(row);) {
      const std::string name = ToText(row.Values.at(1));
      numbers += name.substr(0, name.find(' ')) + ";";
    }
    return numbers;
  }

  /// What the calendar holds when it is started, a facility is added and it is started again.
  std::string FacilitiesAfterStartAndAdding() {
    Facilities(File());
    Add({77});
    EXPECT_EQ("ok\n", ForeignProgram(File().string()).Rows("PRAGMA integrity_check"));
    return Facilities(File());
  }

  /// The facilities 0 to `last`.
  static std::string UpTo(int last) {
    std::string numbers;
    for (int number = 0; number <= last; ++number) {
      numbers += std::to_string(number) + ";";
    }
    return numbers;
  }

  /// File times move in ticks, and nobody restores a file within one.
  void WaitForTheNextTick() const {
    auto last = fs::file_time_type::min();
    for (const auto& entry : fs::directory_iterator(Folder())) {
      last = std::max(last, entry.last_write_time());
    }
    do {
      folder_.Write("clock", "tick");
    } while (fs::last_write_time(folder_.File("clock")) <= last);
  }

  void RestoreByCopying(const std::string& name) {
    WaitForTheNextTick();
    fs::copy_file(Backup(name), File(), fs::copy_options::overwrite_existing);
  }

  void RestoreByMoving(const std::string& name) {
    WaitForTheNextTick();
    fs::copy_file(Backup(name), Backup("moved"), fs::copy_options::overwrite_existing);
    fs::rename(Backup("moved"), File());
  }

  void RestoreBesideTheOldOne(const std::string& name) {
    fs::rename(File(), Folder() / "Calendar-old.mdb");
    fs::copy_file(Backup(name), File());
  }

  /// Of a calendar that has been closed properly nothing is left but the file, and logs set aside.
  void ExpectOnlyTheCalendar(const fs::path& folder) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      const std::string name = entry.path().filename().string();
      EXPECT_TRUE(name == "Calendar.mdb" || name == "Calendar-old.mdb" ||
                  name.find(" set aside ") != std::string::npos)
          << name;
    }
  }

  TempFolder folder_;
  SharedCount calls_;
  SharedCount added_;
  SharedCount first_into_file_;  ///< The call that first wrote into the file itself.
  int facilities_ = kFacilities;
  std::vector<Report> notices_;
};

}  // namespace veyra
