#pragma once

#include <chrono>
#include <compare>
#include <cstdint>
#include <memory>
#include <string>

#include "data/store_description.h"
#include "logic/day_grid.h"
#include "logic/dialogs.h"
#include "logic/multiday.h"
#include "logic/session.h"
#include "tests/fake_clock.h"
#include "tests/logic/fake_screens.h"
#include "tests/temp_folder.h"

namespace veyra {

/// A calendar that is made for a measurement.
struct DeskCalendar {
  FileKind Kind = FileKind::Sqlite;
  std::int64_t Bookings = 0;
  std::int64_t Facilities = 50;  ///< The bookings are spread evenly over them.

  auto operator<=>(const DeskCalendar&) const = default;
};

/// An operator who says yes to everything, and looks at the watch.
class PatientOperator : public Dialogs {
 public:
  Answer MsgBox(const Message& message) override;
  std::string InputBox(const Phrase&, const Phrase&, const std::string& text) override {
    return text;
  }
  std::unique_ptr<Progress> StartProgress(const Phrase&, EarlyEnd) override;

  /// What the last box said.
  const std::string& LastBox() const { return last_box_; }

  /// The longest time without a look at the progress, in seconds.
  double LongestWait() const { return longest_; }
  void Look();

 private:
  std::string last_box_;
  std::chrono::steady_clock::time_point last_look_ = std::chrono::steady_clock::now();
  double longest_ = 0;
};

/// A front desk without windows, on a calendar of its own.
class Desk {
 public:
  explicit Desk(const DeskCalendar& calendar);

  /// Books 9:00 to 10:30, every day from 1/1/2027, so many dates in all.
  void BookSeries(int dates);
  void CheckSeries(int dates);
  void BookOne();

  /// Reads the first month with bookings, January 2016, of the facility 1, as a page turn does.
  void ReadFirstMonth();
  void DeleteSeries();
  void RenameSeries();
  void DeleteFacility();

  PatientOperator& Operator() { return operator_; }
  Session& State() { return session_; }
  const std::string& FileName() const { return file_; }

 private:
  MultiDayPlan PlanOf(int dates) const;

  TempFolder folder_;
  std::string file_;
  FakeClock clock_{2026, 11, 22};
  PatientOperator operator_;
  FakeScreens screens_;
  DayGrid grid_;
  Session session_;
};

}  // namespace veyra
