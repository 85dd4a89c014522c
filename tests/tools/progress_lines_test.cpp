#include "tools/progress_lines.h"

#include <gtest/gtest.h>

#include <sstream>

namespace veyra {
namespace {

using namespace std::chrono_literals;

class ProgressLinesTest : public ::testing::Test {
 protected:
  void CopiedAt(std::chrono::milliseconds time, std::int64_t rows) {
    now_ = std::chrono::steady_clock::time_point(time);
    lines_.Show({.Verb = "Copied", .Rows = rows, .Of = 900});
  }

  std::ostringstream terminal_;
  std::chrono::steady_clock::time_point now_{};
  ProgressLines lines_{terminal_, [this] { return now_; }};
};

TEST_F(ProgressLinesTest, ShortWorkSaysNothing) {
  CopiedAt(999ms, 900);
  EXPECT_EQ("", terminal_.str());
}

TEST_F(ProgressLinesTest, LongWorkSaysHowFarItIsOnceASecond) {
  CopiedAt(999ms, 100);
  CopiedAt(1000ms, 200);
  CopiedAt(1999ms, 300);
  CopiedAt(2000ms, 400);
  EXPECT_EQ("Copied 200 of 900 rows\nCopied 400 of 900 rows\n", terminal_.str());
}

}  // namespace
}  // namespace veyra
