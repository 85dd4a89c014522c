#include "logic/bookings.h"

#include "data/connection.h"

namespace veyra::modRes {
namespace {

std::string BookingName(const std::string& typed_name) {
  return typed_name.empty() ? kNoTitle : typed_name;
}

/// Sets the fields that every booking has; what remains is to save it.
void AddBooking(Recordset& bookings, const Session& session, const std::string& name, Date day) {
  bookings.AddNew();
  bookings.SetField("RmID", session.CurRmID);
  bookings.SetField("Event", name);
  bookings.SetField("DateOfRes", day);
  bookings.SetField("TimeFrom", std::int64_t{session.SelFirstSlot});
  bookings.SetField("TimeTo", std::int64_t{session.SelLastSlot});
}

void WriteIntoGrid(const Session& session, const std::string& name, DayGrid& grid) {
  for (TimeSlot slot = session.SelFirstSlot; slot <= session.SelLastSlot; ++slot) {
    grid.Guest.at(static_cast<std::size_t>(slot)) = name;
  }
}

void ReportBookings(int count, Dialogs& dialogs) {
  dialogs.MsgBox({.Text = std::to_string(count) + " Booking(s) Made.",
                  .Choice = Buttons::Ok,
                  .Sign = Icon::Exclamation});
}

}  // namespace

void MakeBookings(Session& session, const std::string& typed_name, DayGrid& MSFlexGrid1,
                  Dialogs& dialogs) {
  const std::string name = BookingName(typed_name);
  const auto bookings = session.ResCon->Open("SELECT * FROM Reserv", CursorType::StaticOptimistic);
  AddBooking(*bookings, session, name, session.DayDate);
  bookings->Update();
  WriteIntoGrid(session, name, MSFlexGrid1);
  ReportBookings(1, dialogs);
}

}  // namespace veyra::modRes
