#include "forms/handler_guard.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "data/errors.h"
#include "tests/fake_dialogs.h"

namespace veyra {
namespace {

class HandlerGuardTest : public testing::Test {
 protected:
  FakeDialogs dialogs_;
  HandlerGuard guard_{dialogs_};
};

TEST_F(HandlerGuardTest, AHandlerThatSucceedsIsSilent) {
  bool ran = false;
  guard_.Run([&] { ran = true; });
  EXPECT_TRUE(ran);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(HandlerGuardTest, AHandlerRunsUntilItsLastBoxIsAnswered) {
  EXPECT_FALSE(guard_.IsRunning());
  guard_.Run([&] {
    guard_.Run([&] { EXPECT_TRUE(guard_.IsRunning()); });
    EXPECT_TRUE(guard_.IsRunning());
  });
  EXPECT_FALSE(guard_.IsRunning());
  dialogs_.WhileShown = [&] { EXPECT_TRUE(guard_.IsRunning()); };
  guard_.Run([] { throw DatabaseError({"/desk/Calendar.mdb", "It is locked.", "Wait."}); });
  EXPECT_EQ(1U, dialogs_.Boxes().size());
  EXPECT_FALSE(guard_.IsRunning());
}

TEST_F(HandlerGuardTest, AFailureIsReportedWithItsFileCauseAndAdvice) {
  guard_.Run([] { throw DatabaseError({"/desk/Calendar.mdb", "It is locked.", "Wait."}); });
  const std::string report = dialogs_.OnlyBox();
  EXPECT_EQ(0U, report.find("[OK Critical] "));
  EXPECT_NE(std::string::npos, report.find("/desk/Calendar.mdb"));
  EXPECT_NE(std::string::npos, report.find("It is locked."));
  EXPECT_NE(std::string::npos, report.find("Wait."));
}

TEST_F(HandlerGuardTest, TheLinesOfAReportArePartedAsInEveryMessage) {
  guard_.Run([] {
    throw DatabaseError({"/desk/Calendar.mdb", "The disk is full.", "Make room.", "Not saved."});
  });
  EXPECT_EQ("[OK Critical] /desk/Calendar.mdb\r\nThe disk is full.\r\nNot saved.\r\nMake room.",
            dialogs_.OnlyBox());
}

TEST_F(HandlerGuardTest, WhatIsShownIsFilledAnewBeforeTheReport) {
  std::string log;
  guard_.SetRecovery([&] { log += "filled "; });
  dialogs_.WhileShown = [&] { log += "told "; };
  guard_.Run([] { throw DatabaseError({"/desk/Calendar.mdb", "It is locked.", "Wait."}); });
  EXPECT_EQ("filled told ", log);
  EXPECT_EQ(std::string::npos, dialogs_.OnlyBox().find("may be old"));
}

TEST_F(HandlerGuardTest, AHandlerThatSucceedsFillsNothingAnew) {
  guard_.SetRecovery([] { FAIL(); });
  guard_.Run([] {});
}

TEST_F(HandlerGuardTest, WhenNothingCanBeReadTheReportSaysThatWhatIsShownMayBeOld) {
  guard_.SetRecovery([] { throw DatabaseError({"/desk/Calendar.mdb", "It is locked.", "Wait."}); });
  guard_.Run([] {
    throw DatabaseError({"/desk/Calendar.mdb", "The disk is full.", "Make room."});
  });
  EXPECT_EQ(
      "[OK Critical] /desk/Calendar.mdb\r\nThe disk is full.\r\nMake room.\r\n"
      "What the windows show could not be read anew and may be old: look again before you rely on "
      "it.",
      dialogs_.OnlyBox());
}

TEST_F(HandlerGuardTest, AFaultOfTheProgramIsReportedAsSuch) {
  guard_.Run([] { throw std::out_of_range("There is no time slot 49."); });
  EXPECT_NE(std::string::npos, dialogs_.OnlyBox().find("There is no time slot 49."));
}

TEST_F(HandlerGuardTest, AReplacedFileIsOfferedToBeOpenedAnew) {
  int opened = 0;
  guard_.SetReopening([&] { ++opened; });
  dialogs_.AnswerNext(Answer::Yes);
  guard_.Run([] { throw FileReplacedError({"/desk/Calendar.mdb", "It was replaced.", "Look."}); });
  EXPECT_EQ(1, opened);
  ASSERT_EQ(2U, dialogs_.Boxes().size());
  EXPECT_NE(std::string::npos, dialogs_.Boxes()[0].find("It was replaced."));
  EXPECT_EQ("[Yes/No Question] Open the calendar file anew now?", dialogs_.Boxes()[1]);
}

TEST_F(HandlerGuardTest, AReplacedFileStaysClosedWhenTheOperatorSaysNo) {
  guard_.SetReopening([] { FAIL() << "opened"; });
  dialogs_.AnswerNext(Answer::No);
  guard_.Run([] { throw FileReplacedError({"/desk/Calendar.mdb", "It was replaced.", "Look."}); });
}

TEST_F(HandlerGuardTest, AFileThatCannotBeOpenedAnewIsReported) {
  guard_.SetReopening([] { throw DatabaseError({"/desk/Calendar.mdb", "It is damaged.", ""}); });
  dialogs_.AnswerNext(Answer::Yes);
  guard_.Run([] { throw FileReplacedError({"/desk/Calendar.mdb", "It was replaced.", "Look."}); });
  ASSERT_EQ(3U, dialogs_.Boxes().size());
  EXPECT_NE(std::string::npos, dialogs_.Boxes()[2].find("It is damaged."));
}

}  // namespace
}  // namespace veyra
