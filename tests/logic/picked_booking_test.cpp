#include "logic/picked_booking.h"

#include "tests/logic/bookings_fixture.h"

namespace veyra::modRes {
namespace {

class PickedBookingTest : public BookingsFixture {
 protected:
  std::string Details(int row, const std::string& name) {
    Select(row, row);
    return PickedDetails(Desk(), name).English();
  }
};

TEST_F(PickedBookingTest, ABookingIsToldByItsFacilityDateAndTimes) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  EXPECT_EQ("Pool, Sunday 4/6/2014, 9:00A-10:30A", Details(20, "Smith"));
}

TEST_F(PickedBookingTest, AGroupIsToldByItsNumberOfDatesTheFirstAndTheLast) {
  AddGroup();
  EXPECT_EQ("Pool, Sunday 4/6/2014, 9:00A-10:30A\r\nOne of a group: 3 dates, 4/6/2014 to 4/20/2014",
            Details(20, "Choir"));
  EXPECT_EQ("Pool: 3 dates, 4/6/2014 to 4/20/2014", GroupDetails(Desk(), 20140401120000.0));
}

TEST_F(PickedBookingTest, ANameThatHasChangedMeanwhileIsTold) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Jones");
  EXPECT_EQ("Pool, Sunday 4/6/2014, 9:00A-10:30A\r\nBy now it is booked for Jones.",
            Details(20, "Smith"));
}

TEST_F(PickedBookingTest, ANameThatTurnsTheWritingRoundTurnsNothingElse) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21,
                     "\xE2\x80\xAE"
                     "senoJ");
  EXPECT_EQ(
      "Pool, Sunday 4/6/2014, 9:00A-10:30A\r\nBy now it is booked for "
      "\xE2\x81\xA8\xE2\x80\xAEsenoJ\xE2\x81\xA9.",
      Details(20, "Smith"));
}

TEST_F(PickedBookingTest, ThatNothingIsThereIsTold) {
  EXPECT_EQ("No booking covers the whole of the selected time: there is nothing to change.",
            Details(20, ""));
}

TEST_F(PickedBookingTest, TheQuestionAboutAGroupTellsItsDatesAndEnterSaysNo) {
  AddGroup();
  dialogs_.AnswerNext(Answer::No);
  Message question;
  dialogs_.WhileShown = [&] {
    if (dialogs_.LastMessage().Choice == Buttons::YesNo) {
      question = dialogs_.LastMessage();
    }
  };
  Delete(20, 20);
  EXPECT_EQ("Pool: 3 dates, 4/6/2014 to 4/20/2014", question.Details);
  EXPECT_EQ(Answer::No, question.Default);
}

TEST_F(PickedBookingTest, TheQuestionAboutRenamingAGroupTellsItsDates) {
  AddGroup();
  dialogs_.AnswerNext(Answer::No);
  Message question;
  dialogs_.WhileShown = [&] {
    if (dialogs_.LastMessage().Choice == Buttons::YesNo) {
      question = dialogs_.LastMessage();
    }
  };
  Rename(20, 20, "Band");
  EXPECT_EQ("Pool: 3 dates, 4/6/2014 to 4/20/2014", question.Details);
}

}  // namespace
}  // namespace veyra::modRes
