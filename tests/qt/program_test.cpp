#include "app/program.h"

#include <sqlite3.h>

#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

class ProgramTest : public ProgramFixture {
 protected:
  void DropTable(const std::string& table) {
    sqlite3* database = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(data_.File("Calendar.mdb").c_str(), &database));
    const std::string sql = "DROP TABLE " + table;
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr));
    sqlite3_close(database);
  }

  /// Runs the program until it ends by itself; anything but its own end fails the test.
  static void ExpectToEnd(const std::function<void()>& gesture) {
    QTimer::singleShot(0, qApp, gesture);
    QTimer policy;
    QObject::connect(&policy, &QTimer::timeout, [] { QCoreApplication::exit(99); });
    policy.start(10'000);
    EXPECT_EQ(0, QApplication::exec());
  }
};

TEST_F(ProgramTest, AFailedStartIsReportedAndNoWindowShown) {
  std::filesystem::remove(data_.File("Calendar.mdb"));
  program_ = std::make_unique<Program>(clock_, dialogs_);
  EXPECT_FALSE(program_->Start(app_.path().string()));
  EXPECT_NE(std::string::npos, dialogs_.OnlyBox().find("Calendar.mdb"));
  EXPECT_EQ(nullptr, Month());
}

TEST_F(ProgramTest, ClosingTheMonthWindowEndsTheProgram) {
  Start();
  ExpectToEnd([] { Month()->close(); });
}

TEST_F(ProgramTest, ClosingTheDayWindowDoesNot) {
  StartAndOpenDay();
  bool shown_again = false;
  ExpectToEnd([&shown_again] {
    Day()->close();
    QTimer::singleShot(0, qApp, [&shown_again] {
      shown_again = Month() != nullptr;
      Month()->close();
    });
  });
  EXPECT_TRUE(shown_again);
}

TEST_F(ProgramTest, ClosingTheMonthWindowEndsTheProgramBesideAnOpenDay) {
  Start();
  QWidget* month = Month();
  PressDay(21);
  ASSERT_NE(nullptr, Day());
  month->show();
  ExpectToEnd([month] { month->close(); });
}

TEST_F(ProgramTest, ADayThatCannotBeLoadedIsReportedAndTheMonthIsThere) {
  Start();
  data_.Folder().Write("Veyra.mdb", std::string(8192, 'x'));
  PressDay(21);
  EXPECT_NE(std::string::npos, dialogs_.OnlyBox().find("Veyra.mdb"));
  EXPECT_EQ(nullptr, Day());
  EXPECT_NE(nullptr, Month());
}

TEST_F(ProgramTest, AnActionThatFailsIsReportedAndTheProgramGoesOn) {
  Start();
  DropTable("Reserv");
  QTest::mouseClick(&In<QPushButton>(Month(), "Command1"), Qt::LeftButton);
  EXPECT_NE(std::string::npos, dialogs_.OnlyBox().find("Calendar.mdb"));
  EXPECT_EQ("March 2014", In<QLabel>(Month(), "lblMonth").text().toStdString());
}

TEST_F(ProgramTest, ADisabledMonthWindowStaysOnTheScreen) {
  Start();
  program_->EnableMonthWindow(false);
  EXPECT_FALSE(Month()->isEnabled());
  program_->EnableMonthWindow(true);
  EXPECT_TRUE(Month()->isEnabled());
}

}  // namespace
}  // namespace veyra
