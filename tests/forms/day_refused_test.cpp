#include "tests/failing_store.h"
#include "tests/forms/day_fixture.h"

namespace veyra {
namespace {

/// Another desk comes first with the booking that this one makes.
class DayRefusedTest : public DayFixture {
 protected:
  void BookTaken() {
    OpenDay();
    session_->ResCon =
        std::make_unique<Connection>(std::make_unique<FailingStore>(folder_.Calendar(), faults_));
    faults_.Fail(Statement::Insert, 1, 1, [this] {
      folder_.AddBooking(1, "2014-04-06", 20, 20, "Smith");
      throw TimeTakenError({"/desk/Calendar.mdb", "Taken.", "Look."}, {{20, 20, "Smith"}});
    });
    day_->Combo1_Change("Jones");
    AnswerNext(Answer::Ok);
    Drag(22, 19);
  }

  Faults faults_;
};

TEST_F(DayRefusedTest, TheGridIsFilledAnewBeforeTheOperatorIsTold) {
  dialogs_.WhileShown = [this] {
    EXPECT_EQ(dialogs_.Boxes().size() == 1 ? "" : "20 Smith\n", Grid());
  };
  BookTaken();
  EXPECT_EQ(2U, dialogs_.Boxes().size());
  EXPECT_EQ("20 Smith\n", Grid());
}

TEST_F(DayRefusedTest, TheRowsAreStillChosen) {
  BookTaken();
  EXPECT_EQ("19-22", view_.ChosenRows);
}

TEST_F(DayRefusedTest, TheNameIsNotOfferedAsOneThatWasBookedFor) {
  BookTaken();
  EXPECT_TRUE(view_.Combo1.Used.empty());
  EXPECT_TRUE(session_->UsedNames.empty());
}

TEST_F(DayRefusedTest, ABookingThatIsMadeChoosesNoRows) {
  OpenDay();
  AnswerNext(Answer::Ok);
  Drag(19, 20);
  EXPECT_EQ("", view_.ChosenRows);
}

}  // namespace
}  // namespace veyra
