#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <optional>
#include <set>

#include "tests/faults/judge.h"

namespace veyra::faults {
namespace {

constexpr int kPart = 12;
constexpr int kWhole = 200;
constexpr int kClosing = 8;

std::set<int> PointsOf(int steps) {
  std::set<int> points;
  const int spread = std::min(Tries(kPart, kWhole), steps);
  for (int point = 0; point < spread; ++point) {
    points.insert(1 + point * (steps - 1) / std::max(spread - 1, 1));
  }
  for (int step = std::max(1, steps - kClosing); step <= steps; ++step) {
    points.insert(step);
  }
  return points;
}

/// Kills the program at points spread over everything it writes, from its start to its end, and at
/// each of its last steps, when what it has written is put in order.
class KilledTest : public testing::TestWithParam<Case> {
 protected:
  const Action& Done() const { return std::get<Action>(GetParam()); }

  Outcome RunIn(const TempFolder& folder, std::optional<int> kill_at) const {
    const std::string path = folder.path().string();
    ready_.CopyTo(path);
    return RunApart(Done(), path, {.Folder = path, .KillAt = kill_at});
  }

  int StepsOfWholeAction() const {
    const TempFolder folder;
    const Outcome whole = RunIn(folder, {});
    EXPECT_EQ("", whole.Error);
    EXPECT_EQ(judge_.Changes(), static_cast<std::size_t>(whole.Saved));
    return whole.Disk.Steps;
  }

  const ReadyFolder ready_{std::get<StoreKind>(GetParam()), Done()};
  const Judge judge_{Done(), ready_};
};

TEST_P(KilledTest, WhatWasReportedAsSavedIsThereOnceAndTheCalendarStarts) {
  const int steps = StepsOfWholeAction();
  const std::set<int> points = PointsOf(steps);
  for (const int step : points) {
    const TempFolder folder;
    const Outcome outcome = RunIn(folder, step);
    EXPECT_TRUE(outcome.WasKilled);
    EXPECT_EQ("", judge_.FaultOf(outcome, folder.path().string()))
        << "killed at step " << step << " of " << steps;
  }
  std::cout << points.size() << " kills\n";
}

INSTANTIATE_TEST_SUITE_P(Faults, KilledTest, kAllCases, NameOfCase);
INSTANTIATE_TEST_SUITE_P(ManyRowsAtOnce, KilledTest, kManyRowsAtOnce, NameOfCase);

}  // namespace
}  // namespace veyra::faults
