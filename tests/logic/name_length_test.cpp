#include "logic/name_length.h"

#include <gtest/gtest.h>

#include "tests/calendar_folder.h"

namespace veyra::modRes {
namespace {

class NameLengthTest : public testing::Test {
 protected:
  static bool IsLimited() { return TestedStoreKind() == StoreKind::Access; }

  CalendarFolder folder_;
  std::unique_ptr<Session> session_ = folder_.OpenSession();
};

TEST_F(NameLengthTest, ANameThatFitsIsNotTooLong) {
  EXPECT_EQ("", BookingNameTooLong(*session_, ""));
  EXPECT_EQ("", BookingNameTooLong(*session_, std::string(50, 'x')));
  EXPECT_NO_THROW(RequireBookingNameFits(*session_, std::string(50, 'x')));
}

TEST_F(NameLengthTest, ALongerOneIsToldWithBothCountsWhereTheCalendarHasALimit) {
  const std::string expected =
      IsLimited() ? "This name is 53 characters long; the calendar holds 50." : "";
  EXPECT_EQ(expected, BookingNameTooLong(*session_, std::string(53, 'x')));
}

TEST_F(NameLengthTest, CharactersCountAsTheOperatorCountsThem) {
  std::string balls;
  for (int i = 0; i < 50; ++i) {
    balls += "\U0001F3BE";
  }
  const std::string expected =
      IsLimited() ? "This name is 50 characters long; the calendar holds 25." : "";
  EXPECT_EQ(expected, BookingNameTooLong(*session_, balls));
}

TEST_F(NameLengthTest, AFacilitysNameHasTheLimitOfItsOwnColumn) {
  UseShortFacilityNames(*session_, folder_.Folder());
  EXPECT_EQ("", FacilityNameTooLong(*session_, std::string(20, 'x')));
  const std::string expected =
      IsLimited() ? "This name is 21 characters long; the calendar holds 20." : "";
  EXPECT_EQ(expected, FacilityNameTooLong(*session_, std::string(21, 'x')));
}

TEST_F(NameLengthTest, NothingIsSaidWhileTypingWhenTheCalendarCannotBeAsked) {
  session_->ResCon =
      std::make_unique<Connection>(CreateStoreOfKind(TestedStoreKind(), folder_.File("Empty.mdb")));
  const std::string name(300, 'x');
  EXPECT_THROW(BookingNameTooLong(*session_, name), DatabaseError);
  EXPECT_EQ("", BookingNameHint(*session_, name));
  EXPECT_EQ("", FacilityNameHint(*session_, name));
}

TEST_F(NameLengthTest, AnActionThatNeedsAFittingNameIsRefused) {
  const std::string name(53, 'x');
  if (!IsLimited()) {
    EXPECT_NO_THROW(RequireBookingNameFits(*session_, name));
    return;
  }
  try {
    RequireBookingNameFits(*session_, name);
    FAIL() << "not refused";
  } catch (const NameTooLongError& error) {
    EXPECT_EQ("This name is 53 characters long; the calendar holds 50.", error.report().Cause);
    EXPECT_NE("", error.report().Advice);
  }
}

}  // namespace
}  // namespace veyra::modRes
