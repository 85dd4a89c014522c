#include "tests/faults/power_cut.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "tests/faults/judge.h"

namespace veyra::faults {
namespace {

constexpr const char* kLog = "Calendar.mdb-wal";
constexpr int kPart = 3;  ///< Of some images at each change, so many changes' worth.
constexpr int kMostShown = 3;

using Kind = Change::Kind;

TEST(PowerCutOfTheTests, ANewFileIsEmptyThoughItHasTheNumberOfOneThatIsGone) {
  PowerCut cut({{.Name = "old", .Number = 7, .Bytes = "a longer text"}});
  cut.Happen({.What = Kind::Unlink, .File = 7, .Name = "old"});
  cut.Happen({.What = Kind::Create, .File = 7, .Name = "new"});
  cut.Happen({.What = Kind::Write, .File = 7, .Bytes = "text"});
  cut.Happen({.What = Kind::Sync, .File = 7});
  EXPECT_EQ((Image{{"old", "a longer text"}}), cut.FlushedOnly());
  cut.Happen({.What = Kind::SyncFolder, .File = 1});
  EXPECT_EQ((Image{{"new", "text"}}), cut.FlushedOnly());
}

/// A power cut at every change, in every way that PowerCut knows or a part of them.
class PowerCutTest : public testing::TestWithParam<Case> {
 protected:
  PowerCutTest() { ready_.CopyTo(folder_.path().string()); }

  const Action& Done() const { return std::get<Action>(GetParam()); }

  std::vector<PowerCut::File> FilesNow() const {
    std::vector<PowerCut::File> files;
    for (const std::string& name : folder_.Names()) {
      struct stat status {};
      EXPECT_EQ(0, stat(folder_.File(name).c_str(), &status));
      files.push_back({name, status.st_ino, folder_.Read(name)});
    }
    return files;
  }

  /// The action's changes, with a mark after each that was reported as saved.
  std::vector<Change> Recorded() {
    Watch({.Folder = folder_.path().string(), .Record = true});
    {
      Office office(folder_.path().string(), {.Made = MarkMade, .Saved = Mark});
      KeepLog();
      office.Start();
      Done().Do(office);
    }
    return EndWatch().Changes;
  }

  /// Past the disk that is watched.
  void KeepLog() const {
    syscall(SYS_linkat, AT_FDCWD, folder_.File(kLog).c_str(), AT_FDCWD, kept_.File(kLog).c_str(),
            0);
  }

  /// Makes the folder hold the image. The calendar and its log stay the files that they were, as
  /// they would.
  void Restore(const Image& image) const {
    for (const std::string& name : folder_.Names()) {
      if (name != "Calendar.mdb") {
        std::filesystem::remove(folder_.File(name));
      }
    }
    for (const auto& [name, bytes] : image) {
      if (name == kLog && std::filesystem::exists(kept_.File(kLog))) {
        std::filesystem::create_hard_link(kept_.File(kLog), folder_.File(kLog));
      }
      folder_.Write(name, bytes);
    }
  }

  const ReadyFolder ready_{std::get<StoreKind>(GetParam()), Done()};
  const Judge judge_{Done(), ready_};
  const TempFolder folder_;
  const TempFolder kept_;  ///< A second name of the log, so that it does not go.
};

std::string NamesAndSizes(const Image& image) {
  std::string text;
  for (const auto& [name, bytes] : image) {
    text += name + " " + std::to_string(bytes.size()) + ", ";
  }
  return text;
}

TEST_P(PowerCutTest, LosesNothingThatWasReportedAsSaved) {
  PowerCut cut(FilesNow());
  const std::vector<Change> changes = Recorded();
  ASSERT_FALSE(changes.empty());
  // A part is spread over all of the changes.
  const double share = Tries(kPart, 0) == 0 ? 1 : kPart / static_cast<double>(changes.size());
  int images = 0;
  int faults = 0;
  std::size_t saved = 0;
  std::size_t made = 0;
  for (std::size_t at = 0; at < changes.size(); ++at) {
    cut.Happen(changes[at]);
    saved += changes[at].What == Kind::Mark ? 1 : 0;
    made += changes[at].What == Kind::Made ? 1 : 0;
    cut.ForEachImage(saved, share, [&](const Image& image) {
      ++images;
      Restore(image);
      const std::string fault = judge_.FaultOfCut(saved, made, folder_.path().string());
      if (!fault.empty() && ++faults <= kMostShown) {
        ADD_FAILURE() << "after change " << at << " of " << changes.size() << ", " << saved
                      << " reported as saved; " << NamesAndSizes(image) << ": " << fault;
      }
    });
  }
  EXPECT_GT(images, 0);
  EXPECT_EQ(0, faults);
  std::cout << images << " images\n";
}

/// A series that is so long that its log is put into the file in the middle of it, while nothing of
/// it was flushed.
class PowerCutInALongSeriesTest : public PowerCutTest {
 protected:
  bool IsSomethingSetAside() const {
    const std::vector<std::string> names = folder_.Names();
    return std::any_of(names.begin(), names.end(), [](const std::string& name) {
      return name.find("set aside") != std::string::npos;
    });
  }

  /// Whether it is one by which the log is put away: all others are written to the log.
  bool IsOfPuttingAway(const Change& change) const {
    return change.What != Kind::Made && change.What != Kind::Mark && change.File != log_;
  }

  std::uint64_t log_ = 0;
};

TEST_P(PowerCutInALongSeriesTest, LosesNoneBeforeAnotherAndSetsNoLogAside) {
  PowerCut cut(FilesNow());
  const std::vector<Change> changes = Recorded();
  const auto log = std::find_if(changes.begin(), changes.end(), [](const Change& change) {
    return change.Name == "Calendar.mdb-wal";
  });
  ASSERT_NE(changes.end(), log);
  log_ = log->File;
  const auto last = std::find_if(changes.rbegin(), changes.rend(),
                                 [](const Change& change) { return change.What == Kind::Made; })
                        .base() -
                    1;
  std::size_t saved = 0;
  std::size_t made = 0;
  int images = 0;
  for (auto at = changes.begin(); at != last; ++at) {
    cut.Happen(*at);
    saved += at->What == Kind::Mark ? 1 : 0;
    made += at->What == Kind::Made ? 1 : 0;
    if (made == saved || !(IsOfPuttingAway(*at) || IsOfPuttingAway(*(at + 1)))) {
      continue;
    }
    const auto look_at = [&](const Image& image) {
      ++images;
      Restore(image);
      EXPECT_EQ("", judge_.FaultOfCut(saved, made, folder_.path().string()))
          << NamesAndSizes(image);
      EXPECT_FALSE(IsSomethingSetAside());
    };
    look_at(cut.FlushedOnly());
    cut.ForEachImage(saved, Tries(1, 20) / static_cast<double>(cut.Pending() + 1), look_at);
  }
  EXPECT_GT(images, 0);
  std::cout << images << " images\n";
}

const Action& LongSeries() {
  static const Action action{"LongSeries", [](Office&) {},
                             [](Office& office) { office.BookDays("Choir", "2/28/2015"); }};
  return action;
}

INSTANTIATE_TEST_SUITE_P(Faults, PowerCutInALongSeriesTest,
                         testing::Values(Case(StoreKind::Sqlite, LongSeries())), NameOfCase);

INSTANTIATE_TEST_SUITE_P(Faults, PowerCutTest, kAllCases, NameOfCase);
INSTANTIATE_TEST_SUITE_P(ManyRowsAtOnce, PowerCutTest, kManyRowsAtOnce, NameOfCase);

}  // namespace
}  // namespace veyra::faults
