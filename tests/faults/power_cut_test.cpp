#include "tests/faults/power_cut.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <iostream>

#include "tests/faults/judge.h"

namespace veyra::faults {
namespace {

constexpr int kPart = 3;  ///< Of some images at each change, so many changes' worth.
constexpr int kMostShown = 3;

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
      Office office(folder_.path().string(), Mark);
      office.Start();
      Done().Do(office);
    }
    return EndWatch().Changes;
  }

  /// Makes the folder hold the image. The calendar stays the file that it was, as it would.
  void Restore(const Image& image) const {
    for (const std::string& name : folder_.Names()) {
      if (name != "Calendar.mdb") {
        std::filesystem::remove(folder_.File(name));
      }
    }
    for (const auto& [name, bytes] : image) {
      folder_.Write(name, bytes);
    }
  }

  const ReadyFolder ready_{std::get<StoreKind>(GetParam()), Done()};
  const Judge judge_{Done(), ready_};
  const TempFolder folder_;
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
  for (std::size_t at = 0; at < changes.size(); ++at) {
    cut.Happen(changes[at]);
    saved += changes[at].What == Change::Kind::Mark ? 1 : 0;
    cut.ForEachImage(saved, share, [&](const Image& image) {
      ++images;
      Restore(image);
      const std::string fault = judge_.FaultOfCut(saved, folder_.path().string());
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

INSTANTIATE_TEST_SUITE_P(Faults, PowerCutTest, kAllCases, NameOfCase);
INSTANTIATE_TEST_SUITE_P(ManyRowsAtOnce, PowerCutTest, kManyRowsAtOnce, NameOfCase);

}  // namespace
}  // namespace veyra::faults
