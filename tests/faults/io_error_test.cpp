#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <optional>

#include "tests/faults/judge.h"

namespace veyra::faults {
namespace {

constexpr int kPart = 3;  ///< Of the calls of each kind, so many are made to fail.

struct Kind {
  const char* Name;
  Call What;
  int Error;
  bool Lasting;
};

const std::vector<Kind> kKinds{
    {"a read error", Call::Read, EIO, false},
    {"lasting read errors", Call::Read, EIO, true},
    {"a write error", Call::Write, EIO, false},
    {"lasting write errors", Call::Write, EIO, true},
    {"a write to a full disk", Call::Write, ENOSPC, false},
    {"half a write", Call::Write, 0, false},
    {"a flush error", Call::Sync, EIO, false},
    {"lasting flush errors", Call::Sync, EIO, true},
    {"an error in cutting a file", Call::Truncate, EIO, false},
    {"an error in removing a file", Call::Unlink, EIO, false},
    {"lasting errors in removing files", Call::Unlink, EIO, true},
    {"an error in renaming a file", Call::Rename, EIO, false},
    {"an error in making a file", Call::Create, EACCES, false},
    {"no room for another file", Call::Create, ENOSPC, true},
};

/// Lets every call on a file fail in turn, from the start to the end of an action.
class IoErrorTest : public testing::TestWithParam<Case> {
 protected:
  const Action& Done() const { return std::get<Action>(GetParam()); }

  Outcome RunIn(const TempFolder& folder, std::optional<Failure> failure) const {
    const std::string path = folder.path().string();
    ready_.CopyTo(path);
    return RunApart(Done(), path, {.Folder = path, .Fail = failure});
  }

  void Fail(const Failure& failure, const std::string& name) {
    const TempFolder folder;
    const Outcome outcome = RunIn(folder, failure);
    EXPECT_EQ("", judge_.FaultOf(outcome, folder.path().string()))
        << name << ", call " << failure.Number << "; " << outcome.Saved
        << " changes saved; reported: " << outcome.Error << "\nLast box: " << outcome.LastBox;
    ++tried_;
  }

  Seen CallsOfWholeAction() const {
    const TempFolder folder;
    return RunIn(folder, {}).Disk;
  }

  const ReadyFolder ready_{std::get<StoreKind>(GetParam()), Done()};
  const Judge judge_{Done(), ready_};
  int tried_ = 0;
};

TEST_P(IoErrorTest, WhatIsReportedIsWhatTheFileHolds) {
  const Seen whole = CallsOfWholeAction();
  for (const Kind& kind : kKinds) {
    const int calls = whole.CallsOf(kind.What);
    const int points = std::min(Tries(kPart, calls), calls);
    for (int point = 0; point < points; ++point) {
      const int number = 1 + point * (calls - 1) / std::max(points - 1, 1);
      Fail({kind.What, number, kind.Error, kind.Lasting}, kind.Name);
    }
  }
  EXPECT_GT(tried_, 0);
  std::cout << tried_ << " errors\n";
}

INSTANTIATE_TEST_SUITE_P(Faults, IoErrorTest, kAllCases, NameOfCase);
INSTANTIATE_TEST_SUITE_P(ManyRowsAtOnce, IoErrorTest, kManyRowsAtOnce, NameOfCase);

}  // namespace
}  // namespace veyra::faults
