#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

#include "tests/faults/judge.h"

namespace veyra::faults {
namespace {

constexpr int kPart = 4;     ///< Sizes that are tried of each action's disk.
constexpr int kBlock = 512;  ///< Bytes between two sizes when all are tried.
constexpr int kMostBlocks = 2'000;

/// A disk that fills up at every point of an action.
class FullDiskTest : public testing::TestWithParam<Case> {
 protected:
  const Action& Done() const { return std::get<Action>(GetParam()); }

  /// Whether the action came to its end with so much room.
  bool Fits(int blocks) const {
    const TempFolder folder;
    const std::string path = folder.path().string();
    ready_.CopyTo(path);
    const std::uint64_t room = static_cast<std::uint64_t>(blocks) * kBlock;
    const Outcome outcome = RunApart(Done(), path, {.Folder = path, .Room = room});
    EXPECT_EQ("", judge_.FaultOf(outcome, path)) << "room for " << room << " bytes";
    const bool is_called_so = outcome.Error.find("full") != std::string::npos;
    EXPECT_TRUE(outcome.Error.empty() || is_called_so) << outcome.Error;
    return outcome.Error.empty() && outcome.Saved == static_cast<int>(judge_.Changes());
  }

  /// The least number of blocks that is enough.
  int BlocksNeeded() const {
    int low = 0;
    int high = kMostBlocks;
    while (low < high) {
      const int middle = (low + high) / 2;
      if (Fits(middle)) {
        high = middle;
      } else {
        low = middle + 1;
      }
    }
    return low;
  }

  const ReadyFolder ready_{std::get<StoreKind>(GetParam()), Done()};
  const Judge judge_{Done(), ready_};
};

TEST_P(FullDiskTest, WhatWasSavedBeforeStaysAndNothingIsHalfMade) {
  const int blocks = BlocksNeeded();
  const int sizes = std::min(Tries(kPart, blocks), blocks);
  for (int i = 0; i < sizes; ++i) {
    const int block = i * std::max(blocks - 1, 1) / std::max(sizes - 1, 1);
    EXPECT_FALSE(Fits(block)) << block;
  }
  EXPECT_GT(blocks, 0);
  EXPECT_LT(blocks, kMostBlocks);
  std::cout << sizes << " sizes below " << blocks * kBlock << " bytes\n";
}

INSTANTIATE_TEST_SUITE_P(Faults, FullDiskTest, kAllCases, NameOfCase);
INSTANTIATE_TEST_SUITE_P(ManyRowsAtOnce, FullDiskTest, kManyRowsAtOnce, NameOfCase);

}  // namespace
}  // namespace veyra::faults
