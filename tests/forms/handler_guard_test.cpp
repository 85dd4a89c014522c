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

TEST_F(HandlerGuardTest, AFailureIsReportedWithItsFileCauseAndAdvice) {
  guard_.Run([] { throw DatabaseError({"/desk/Calendar.mdb", "It is locked.", "Wait."}); });
  const std::string report = dialogs_.OnlyBox();
  EXPECT_EQ(0U, report.find("[OK Critical] "));
  EXPECT_NE(std::string::npos, report.find("/desk/Calendar.mdb"));
  EXPECT_NE(std::string::npos, report.find("It is locked."));
  EXPECT_NE(std::string::npos, report.find("Wait."));
}

TEST_F(HandlerGuardTest, AFaultOfTheProgramIsReportedAsSuch) {
  guard_.Run([] { throw std::out_of_range("There is no time slot 49."); });
  EXPECT_NE(std::string::npos, dialogs_.OnlyBox().find("There is no time slot 49."));
}

}  // namespace
}  // namespace veyra
