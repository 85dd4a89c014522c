#include "tests/bench/desk.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <vector>

#include "data/create_store.h"
#include "data/open_store.h"
#include "data/posix_file.h"
#include "data/schema.h"
#include "logic/bookings.h"
#include "logic/delete_bookings.h"
#include "logic/delete_facility.h"
#include "logic/rename_bookings.h"

namespace veyra {

namespace {

namespace fs = std::filesystem;

using std::chrono::steady_clock;

constexpr std::size_t kRowsAtOnce = 20'000;
constexpr int kDaysOfCalendar = 4000;
constexpr int kFirstSlot = 19;
constexpr int kLastSlot = 21;
const Date kFirstDay = DateFromIsoText("2016-01-01").value();
const Date kFirstOfSeries = DateFromIsoText("2027-01-01").value();

/// Early in the day: no series meets them.
FieldValues BookingOf(std::int64_t number, std::int64_t facilities) {
  const std::int64_t slot = number % 15 + 1;
  return {{"RmID", number % facilities + 1},
          {"Event", "Guest number " + std::to_string(number)},
          {"DateOfRes", AddDays(kFirstDay, number / facilities % kDaysOfCalendar)},
          {"TimeFrom", slot},
          {"TimeTo", slot + 1}};
}

void AddBookings(Store& store, const DeskCalendar& calendar) {
  std::vector<FieldValues> rows;
  for (std::int64_t i = 0; i < calendar.Bookings; ++i) {
    rows.push_back(BookingOf(i, calendar.Facilities));
    if (rows.size() == kRowsAtOnce || i + 1 == calendar.Bookings) {
      store.InsertAll("Reserv", rows);
      rows.clear();
    }
  }
}

/// Made once a run.
std::string CalendarFile(const DeskCalendar& calendar) {
  static const TempFolder folder;
  static std::map<DeskCalendar, std::string> made;
  std::string& file = made[calendar];
  if (file.empty()) {
    file = folder.File(std::to_string(made.size()) + ".mdb").string();
    const auto store = CreateStore(file, Durability::WhenAsked, calendar.Kind);
    for (const TableDefinition& table : CalendarTables()) {
      store->CreateTable(table);
    }
    for (std::int64_t number = 1; number <= calendar.Facilities; ++number) {
      store->Insert("Rooms", {{"Name", "Room " + std::to_string(number)},
                              {"Active", std::int64_t{number == 1 ? 1 : 0}}});
    }
    AddBookings(*store, calendar);
  }
  return file;
}

class Watching : public Progress {
 public:
  explicit Watching(PatientOperator& its) : operator_(its) {}
  bool Report(std::int64_t, std::int64_t) override {
    operator_.Look();
    return true;
  }

 private:
  PatientOperator& operator_;
};

}  // namespace

void PatientOperator::Look() {
  const auto now = steady_clock::now();
  longest_ = std::max(longest_, std::chrono::duration<double>(now - last_look_).count());
  last_look_ = now;
}

Answer PatientOperator::MsgBox(const Message& message) {
  Look();
  last_box_ = message.Text.English();
  switch (message.Choice) {
    case Buttons::Ok:
    case Buttons::OkCancel:
      return Answer::Ok;
    case Buttons::YesNo:
      return Answer::Yes;
    case Buttons::ContinueUndoKeep:
      break;
  }
  throw std::runtime_error("the action halted: " + last_box_);
}

std::unique_ptr<Progress> PatientOperator::StartProgress(const Phrase&, EarlyEnd) {
  last_look_ = steady_clock::now();
  return std::make_unique<Watching>(*this);
}

Desk::Desk(const DeskCalendar& calendar) : file_(folder_.File("Calendar.mdb").string()) {
  fs::copy_file(CalendarFile(calendar), file_);
  // Or the first change would wait for the copy to be written.
  PosixFile(file_, PosixFile::Use::ReadWrite).Flush();
  session_.DataFolder = folder_.path();
  modRes::SlotLabels(session_.SlotLabel);
  session_.ResCon = std::make_unique<Connection>(OpenStore(file_, StoreAccess::ReadWrite));
  session_.CurRmID = 1;
  session_.CurYear = YearOf(kFirstOfSeries);
  session_.CurMonth = MonthOf(kFirstOfSeries);
  session_.CurrentColors = {"0", "0", "0", "0", "0"};
  session_.DayDate = kFirstOfSeries;
  session_.AnchorRow = session_.SelFirstSlot = kFirstSlot;
  session_.SelEndRow = session_.SelLastSlot = kLastSlot;
  modRes::RefreshMonth(session_, clock_, screens_, session_.CurMonth);
}

void Desk::ReadFirstMonth() {
  session_.CurYear = YearOf(kFirstDay);
  session_.CurMonth = MonthOf(kFirstDay);
  modRes::RefreshMonth(session_, clock_, screens_, session_.CurMonth);
}

MultiDayPlan Desk::PlanOf(int dates) const {
  MultiDayPlan plan{{DateText(kFirstOfSeries), DateText(AddDays(kFirstOfSeries, dates - 1))}, {}};
  for (int weekday = 1; weekday <= 7; ++weekday) {
    plan.Days[weekday] = true;
  }
  return plan;
}

void Desk::BookSeries(int dates) {
  modRes::MakeBookings(session_, {"Choir", true, PlanOf(dates)}, {grid_, screens_}, clock_,
                       operator_);
}

void Desk::CheckSeries(int dates) {
  session_.PlannedDayCount = dates;
  modRes::CheckMultiDayConflicts(session_, PlanOf(dates), clock_, operator_);
}

void Desk::BookOne() {
  modRes::MakeBookings(session_, {"Choir", false, {}}, {grid_, screens_}, clock_, operator_);
}

void Desk::DeleteSeries() {
  modRes::DeleteBookings(session_, {grid_, screens_}, {screens_, screens_, clock_}, operator_);
}

void Desk::RenameSeries() {
  std::string name = "Orchestra";
  modRes::RenameBookings(session_, name, {grid_, screens_}, {screens_, screens_, clock_},
                         operator_);
}

void Desk::DeleteFacility() {
  NameBox box{.Items = {"Room 1"}, .Text = "Room 1"};
  std::string label;
  modRes::DeleteFacility(session_, box, label, operator_);
}

}  // namespace veyra
