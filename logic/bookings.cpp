#include "logic/bookings.h"

#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/connection.h"
#include "data/errors.h"
#include "data/journal.h"
#include "logic/listings.h"
#include "logic/name_length.h"
#include "logic/row_action.h"
#include "logic/stored_row.h"
#include "logic/time_taken.h"

namespace veyra::modRes {
namespace {

constexpr const char* kAllBookings = "SELECT * FROM Reserv";

const RowActionWords kWords{
    .Progress = Phrase::Tr("Booking ..."),
    .Done = Phrase::Tr("dates are booked."),
    .PassedOver = Phrase::Tr("Left out because something else is booked then: "),
    .Continue = Phrase::Tr("Continue books the other dates, as a part of the same group."),
    .Undo = Phrase::Tr("Undo deletes the bookings that were made."),
    .Undone = Phrase::Tr("The bookings that were made have been deleted again."),
};

FieldValues FieldsOn(const Session& session, Date day, const std::string& name,
                     const Value& group_key) {
  FieldValues fields{{"RmID", session.CurRmID},
                     {"Event", name},
                     {"DateOfRes", day},
                     {"TimeFrom", std::int64_t{session.SelFirstSlot}},
                     {"TimeTo", std::int64_t{session.SelLastSlot}}};
  if (!IsNull(group_key)) {
    fields.emplace_back("MultKey", group_key);
  }
  return fields;
}

bool IsFree(Session& session, Date day) {
  return session.ResCon->Open(ClashQuery(session, day), CursorType::ForwardOnlyReadOnly)->IsEmpty();
}

/// The bookings of one group, on each of these dates that is free.
class BookDates : public RowAction {
 public:
  BookDates(Session& session, std::string name, std::vector<Date> days, double group_key)
      : session_(session),
        bookings_(session.ResCon->Open(kAllBookings, CursorType::StaticOptimistic)),
        name_(std::move(name)),
        days_(std::move(days)),
        group_key_(group_key) {}

  std::size_t Count() const override { return days_.size(); }
  Phrase NameOf(std::size_t row) const override { return BookingOn(days_.at(row)); }

  bool Do(std::size_t row) override {
    if (!IsToDo(row)) {
      return false;
    }
    try {
      AddRow(*bookings_, Fields(row));
    } catch (const TimeTakenError&) {
      // Another desk came first: as if it had come before this one looked.
      return false;
    }
    made_[row] = bookings_->Bookmark();
    return true;
  }

  std::size_t AtOnce() const override { return bookings_->RowsAtOnce(); }

  /// The dates of a plan are all different: those that are booked together do not touch each other.
  bool IsToDo(std::size_t row) override { return IsFree(session_, days_.at(row)); }

  void DoTogether(const std::vector<std::size_t>& rows) override {
    std::vector<FieldValues> fields;
    for (const std::size_t row : rows) {
      fields.push_back(Fields(row));
    }
    const std::vector<RowKey> made = bookings_->AddAll(fields);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      made_[rows[i]] = made[i];
    }
  }

  void Undo(std::size_t row) override {
    const auto made = made_.find(row);
    if (made != made_.end() && bookings_->MoveTo(made->second)) {
      bookings_->Delete();
    } else if (const Rows found = FindBooking(session_, Fields(row)); !found->AtEnd()) {
      // It was not known when it was made whether it is there.
      found->Delete();
    }
  }

  bool IsDone(std::size_t row) override { return !FindBooking(session_, Fields(row))->AtEnd(); }

 private:
  FieldValues Fields(std::size_t row) const {
    return FieldsOn(session_, days_.at(row), name_, group_key_);
  }

  Session& session_;
  Rows bookings_;
  std::string name_;
  std::vector<Date> days_;
  double group_key_;
  std::unordered_map<std::size_t, RowKey> made_;
};

/// What was made, in words, and whether it came to its end in one go.
struct Made {
  Phrase Text;
  bool Whole = true;
};

std::string MadeText(std::size_t count) {
  return std::to_string(count) + " Booking(s) Made.";
}

/// Nothing, once the operator was told so, when another desk came first.
std::optional<Made> BookDay(Session& session, const std::string& name, ShownGrid grid,
                            Dialogs& dialogs) {
  const JournalledAction journalled(*session.ResCon, "New booking");
  const Rows bookings = session.ResCon->Open(kAllBookings, CursorType::StaticOptimistic);
  try {
    AddRow(*bookings, FieldsOn(session, session.DayDate, name, Null{}));
  } catch (const TimeTakenError& taken) {
    DayGrid now;
    FillDayList(session, now, session.DayDate);
    grid.Show(now);
    dialogs.MsgBox(TimesTaken(session, taken));
    return std::nullopt;
  }
  grid.Write(session.SelFirstSlot, session.SelLastSlot, name);
  return Made{.Text = MadeText(1)};
}

Made BookPlan(Session& session, const std::string& name, const MultiDayPlan& plan,
              const Clock& clock, Dialogs& dialogs) {
  const JournalledAction journalled(*session.ResCon, "New series");
  const double group_key = GroupKey(clock.Now());
  BookDates action(session, name, PlannedDates(RangeOfPlan(plan, clock.Today())), group_key);
  const RowActionResult result = CarryOut(*session.ResCon, action, kWords, dialogs);
  return {ResultText(result, kWords, MadeText(result.Done)), !result.Halted};
}

}  // namespace

BookingOutcome MakeBookings(Session& session, const BookingRequest& request, ShownGrid grid,
                            const Clock& clock, Dialogs& dialogs) {
  const std::string name = request.TypedName.empty() ? kNoTitle : request.TypedName;
  RequireBookingNameFits(session, name);
  // A multiple booking leaves the grid as it is, even for the day it shows. This is meant.
  const std::optional<Made> made = request.Multiple
                                       ? BookPlan(session, name, request.Plan, clock, dialogs)
                                       : BookDay(session, name, grid, dialogs);
  if (!made) {
    return BookingOutcome::Refused;
  }
  dialogs.MsgBox({.Text = made->Text, .Sign = Icon::Exclamation});
  return made->Whole ? BookingOutcome::Shown : BookingOutcome::Halted;
}

double GroupKey(const DateTime& time) {
  std::int64_t key = YearOf(time.Day);
  for (const int part : {MonthOf(time.Day), DayOf(time.Day), time.Hour, time.Minute, time.Second}) {
    key = key * 100 + part;
  }
  return static_cast<double>(key);
}

}  // namespace veyra::modRes
