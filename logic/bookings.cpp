#include "logic/bookings.h"

#include <algorithm>
#include <memory>

#include "data/connection.h"
#include "data/text.h"
#include "logic/many_rows.h"

namespace veyra::modRes {
namespace {

using Rows = std::unique_ptr<Recordset>;

void Tell(Dialogs& dialogs, const std::string& text) {
  dialogs.MsgBox({.Text = text, .Choice = Buttons::Ok, .Sign = Icon::Exclamation});
}

void WriteIntoGrid(int first_row, int last_row, const std::string& name, DayGrid& grid) {
  for (int row = first_row; row <= last_row; ++row) {
    grid.Guest.at(static_cast<std::size_t>(row)) = name;
  }
}

void AddBooking(Recordset& bookings, const Session& session, const std::string& name, Date day,
                const Value& group_key) {
  bookings.AddNew();
  bookings.SetField("RmID", session.CurRmID);
  bookings.SetField("Event", name);
  bookings.SetField("DateOfRes", day);
  bookings.SetField("TimeFrom", std::int64_t{session.SelFirstSlot});
  bookings.SetField("TimeTo", std::int64_t{session.SelLastSlot});
  if (!IsNull(group_key)) {
    bookings.SetField("MultKey", group_key);
  }
  bookings.Update();
}

bool IsFree(Session& session, Date day) {
  return session.ResCon->Open(ClashQuery(session, day), CursorType::ForwardOnlyReadOnly)->IsEmpty();
}

std::int64_t BookDay(Session& session, const std::string& name, DayGrid& grid) {
  const Rows bookings = session.ResCon->Open("SELECT * FROM Reserv", CursorType::StaticOptimistic);
  AddBooking(*bookings, session, name, session.DayDate, Null{});
  WriteIntoGrid(session.SelFirstSlot, session.SelLastSlot, name, grid);
  return 1;
}

std::int64_t BookPlan(Session& session, const std::string& name, const MultiDayPlan& plan,
                      const Clock& clock, Dialogs& dialogs) {
  const Rows bookings = session.ResCon->Open("SELECT * FROM Reserv", CursorType::StaticOptimistic);
  const double group_key = GroupKey(clock.Now());
  const auto progress = dialogs.StartProgress("Booking ...", EarlyEnd::None);
  std::int64_t count = 0;
  ForEachPlannedDate(RangeOfPlan(plan, clock.Today()), *progress, [&](Date day) {
    if (IsFree(session, day)) {
      AddBooking(*bookings, session, name, day, group_key);
      ++count;
    }
  });
  return count;
}

/// The booking of the current facility and day that covers the whole selection.
Rows FindPicked(Session& session) {
  return session.ResCon->Open(
      "SELECT * FROM Reserv Where RmID = " + std::to_string(session.CurRmID) +
          " And DateOfRes = #" + DateText(session.DayDate) +
          "# And TimeFrom <= " + std::to_string(session.SelFirstSlot) +
          " And TimeTo >= " + std::to_string(session.SelLastSlot),
      CursorType::StaticOptimistic);
}

/// Every date of a group, for the current facility.
Rows FindGroup(Session& session, const Value& group_key) {
  return session.ResCon->Open(
      "SELECT * FROM Reserv Where RmID = " + std::to_string(session.CurRmID) +
          " And MultKey = " + ToText(group_key),
      CursorType::StaticOptimistic);
}

bool IsGroupKey(const Value& key) {
  return ToDouble(key).value_or(0) > 0;
}

bool WantsGroup(const Value& group_key, const std::string& question, Icon icon, Dialogs& dialogs) {
  return IsGroupKey(group_key) &&
         dialogs.MsgBox({.Text = question, .Choice = Buttons::YesNo, .Sign = icon}) == Answer::Yes;
}

std::string DeleteGroup(Session& session, const Value& group_key, const Listings& listings,
                        Dialogs& dialogs) {
  const Rows group = FindGroup(session, group_key);
  const std::size_t count = DeleteAll(*group, dialogs);
  RefreshMonth(session, listings.Time, listings.Month, session.CurMonth);
  return std::to_string(count) + " Bookings Deleted.";
}

/// The text to report: empty when no booking covers the selection.
std::string DeletePicked(Session& session, const Listings& listings, Dialogs& dialogs) {
  const Rows picked = FindPicked(session);
  if (picked->IsEmpty()) {
    return {};
  }
  const Value group_key = picked->Field("MultKey");
  if (WantsGroup(group_key, "This has Multiple Bookings. Do you want to Delete All of them?",
                 Icon::Critical, dialogs)) {
    picked->Close();
    return DeleteGroup(session, group_key, listings, dialogs);
  }
  picked->Delete();
  return "Booking Deleted.";
}

std::string RenameGroup(Session& session, const Value& group_key, const std::string& name,
                        const Listings& listings, Dialogs& dialogs) {
  const Rows group = FindGroup(session, group_key);
  const std::size_t count = ForEachRow(*group, "Renaming bookings ...", dialogs, [&] {
    group->SetField("Event", name);
    group->Update();
  });
  RefreshMonth(session, listings.Time, listings.Month, session.CurMonth);
  return std::to_string(count) + " Bookings Name Changed.";
}

/// Characters count here, not bytes.
void CutNewName(std::string& name, Dialogs& dialogs) {
  if (CharacterCount(name) <= kLongestNewName) {
    return;
  }
  name = FirstCharacters(name, kLongestNewName);
  Tell(dialogs, "The Text entered is greater than 50 characters and has been cut to:" +
                    std::string(kLineBreak) + name);
}

/// The text to report: empty when no booking covers the selection.
std::string RenamePicked(Session& session, std::string& name, const Listings& listings,
                         Dialogs& dialogs) {
  const Rows picked = FindPicked(session);
  if (picked->IsEmpty()) {
    return {};
  }
  const Value group_key = picked->Field("MultKey");
  if (WantsGroup(group_key,
                 "This has Multiple Bookings. Do you want to Change the Name on All of them?",
                 Icon::Exclamation, dialogs)) {
    picked->Close();
    return RenameGroup(session, group_key, name, listings, dialogs);
  }
  // Only a single booking's name is cut; a group keeps the name as typed. This is meant.
  CutNewName(name, dialogs);
  picked->SetField("Event", name);
  picked->Update();
  return "Booking Name Changed.";
}

}  // namespace

void MakeBookings(Session& session, const BookingRequest& request, DayGrid& MSFlexGrid1,
                  const Clock& clock, Dialogs& dialogs) {
  const std::string name = request.TypedName.empty() ? kNoTitle : request.TypedName;
  // A multiple booking leaves the grid as it is, even for the day it shows. This is meant.
  const std::int64_t count = request.Multiple
                                 ? BookPlan(session, name, request.Plan, clock, dialogs)
                                 : BookDay(session, name, MSFlexGrid1);
  Tell(dialogs, std::to_string(count) + " Booking(s) Made.");
}

double GroupKey(const DateTime& time) {
  std::int64_t key = YearOf(time.Day);
  for (const int part : {MonthOf(time.Day), DayOf(time.Day), time.Hour, time.Minute, time.Second}) {
    key = key * 100 + part;
  }
  return static_cast<double>(key);
}

void DeleteBookings(Session& session, DayGrid& MSFlexGrid1, const Listings& listings,
                    Dialogs& dialogs) {
  const std::string result = DeletePicked(session, listings, dialogs);
  WriteIntoGrid(session.AnchorRow, session.SelEndRow, "", MSFlexGrid1);
  Tell(dialogs, result);
  RefreshListings(session, listings);
}

bool RenameBookings(Session& session, std::string& name, DayGrid& MSFlexGrid1,
                    const Listings& listings, Dialogs& dialogs) {
  const std::string result = RenamePicked(session, name, listings, dialogs);
  WriteIntoGrid(session.AnchorRow, session.SelEndRow, name, MSFlexGrid1);
  Tell(dialogs, result);
  RefreshListings(session, listings);
  return !result.empty();
}

}  // namespace veyra::modRes
