#include "app/front_refresh.h"

#include <QDialog>

#include "tests/qt/month_window_fixture.h"

namespace veyra {
namespace {

constexpr int kSoon = 5;

/// As the platform tells it.
void Tell(Qt::ApplicationState state) {
  emit qGuiApp->applicationStateChanged(state);
}

void ComeBack() {
  Tell(Qt::ApplicationInactive);
  Tell(Qt::ApplicationActive);
}

class FrontRefreshTest : public testing::Test {
 protected:
  FrontRefresh::Desk Desk() {
    return {[this] { return busy_; }, [this] { ++times_; }};
  }

  bool busy_ = false;
  int times_ = 0;
  FakeClock clock_{2014, 3, 15};
};

TEST_F(FrontRefreshTest, ComingBackFromAnotherProgramIsOnce) {
  const FrontRefresh refresh(nullptr, clock_, Desk());
  Tell(Qt::ApplicationActive);
  EXPECT_EQ(0, times_);
  Tell(Qt::ApplicationInactive);
  EXPECT_EQ(0, times_);
  Tell(Qt::ApplicationActive);
  Tell(Qt::ApplicationActive);
  EXPECT_EQ(1, times_);
}

TEST_F(FrontRefreshTest, WhoIsBusyIsNotDisturbedBeforeHeHasDone) {
  const FrontRefresh refresh(nullptr, clock_, Desk(), kSoon);
  busy_ = true;
  ComeBack();
  EXPECT_EQ(0, times_);
  busy_ = false;
  EXPECT_TRUE(QTest::qWaitFor([this] { return times_ == 1; }));
}

TEST_F(FrontRefreshTest, MidnightIsNoticed) {
  const FrontRefresh refresh(nullptr, clock_, Desk(), kSoon);
  clock_.Set(2014, 3, 16);
  EXPECT_TRUE(QTest::qWaitFor([this] { return times_ == 1; }));
}

/// The program that another one has changed the calendar of.
class ProgramFrontTest : public MonthWindowFixture {};

TEST_F(ProgramFrontTest, TheMonthShowsWhatAnotherProgramHasBooked) {
  Start();
  data_.AddBooking(hall_, "2014-03-15", 19, 20, "Smith");
  ComeBack();
  EXPECT_EQ(" 9:00A-10:00A Smith\n", Lines(21));
}

TEST_F(ProgramFrontTest, AnOpenDayShowsItTooButNotDuringADrag) {
  StartAndOpenDay();
  data_.AddBooking(hall_, "2014-03-15", 15, 15, "Smith");
  QTest::mousePress(Grid().viewport(), Qt::LeftButton, {}, Middle(19, 1));
  ComeBack();
  EXPECT_EQ("", Grid().item(14, 1)->text().toStdString());
  dialogs_.AnswerNext(Answer::Cancel);
  QTest::mouseRelease(Grid().viewport(), Qt::LeftButton, {}, Middle(19, 1));
  ComeBack();
  EXPECT_EQ("Smith", Grid().item(14, 1)->text().toStdString());
}

TEST_F(ProgramFrontTest, NothingChangesBehindABox) {
  Start();
  data_.AddBooking(hall_, "2014-03-15", 19, 20, "Smith");
  QDialog box;
  box.setModal(true);
  box.show();
  ComeBack();
  EXPECT_EQ("", Lines(21));
  box.close();
  ComeBack();
  EXPECT_NE("", Lines(21));
}

TEST_F(ProgramFrontTest, ANameThatIsBeingTypedStays) {
  Start();
  Facility().setFocus();
  QTest::keyClicks(Facility().lineEdit(), QStringLiteral("sauna"));
  const QString typed = Facility().currentText();
  data_.AddBooking(hall_, "2014-03-15", 19, 20, "Smith");
  ComeBack();
  EXPECT_EQ(typed, Facility().currentText());
  EXPECT_NE("", Lines(21));
}

}  // namespace
}  // namespace veyra
