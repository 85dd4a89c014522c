#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cerrno>

#include "help/qt_help_file.h"

namespace veyra {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr qsizetype kRoom = 1000;

/// Whether this process has a child left, running or ended.
bool HasChild() {
  return waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD;
}

TEST(HelpFileReadingTest, ReturnsWhatTheProgramWrote) {
  EXPECT_EQ("some words\n", OutputOf("/bin/echo", "some words", kRoom));
  EXPECT_FALSE(HasChild());
}

TEST(HelpFileReadingTest, AProgramThatFailsHasNoOutput) {
  EXPECT_EQ(std::nullopt, OutputOf("/bin/false", "", kRoom));
  EXPECT_FALSE(HasChild());
}

TEST(HelpFileReadingTest, AProgramThatIsNotThereHasNoOutput) {
  EXPECT_EQ(std::nullopt, OutputOf("/no/such/program", "", kRoom));
  EXPECT_FALSE(HasChild());
}

TEST(HelpFileReadingTest, AProgramThatDoesNotEndIsEnded) {
  const auto begin = steady_clock::now();
  EXPECT_EQ(std::nullopt, OutputOf("/bin/sleep", "60", kRoom, milliseconds(50)));
  EXPECT_LT(steady_clock::now() - begin, milliseconds(10000));
  EXPECT_FALSE(HasChild());
}

TEST(HelpFileReadingTest, AProgramThatWritesWithoutEndIsEnded) {
  const auto begin = steady_clock::now();
  EXPECT_EQ(std::nullopt, OutputOf("/usr/bin/yes", "x", kRoom));
  EXPECT_LT(steady_clock::now() - begin, milliseconds(10000));
  EXPECT_FALSE(HasChild());
}

}  // namespace
}  // namespace veyra
