#include "logic/delete_bookings.h"

#include "data/connection.h"
#include "data/journal.h"
#include "logic/booking_report.h"
#include "logic/delete_rows.h"
#include "logic/picked_booking.h"

namespace veyra::modRes {
namespace {

const RowActionWords kWords{
    .Progress = Phrase::Tr("Deleting bookings ..."),
    .Done = Phrase::Tr("bookings are deleted."),
    .PassedOver = {},
    .Continue = Phrase::Tr("Continue deletes the other bookings of the group."),
    .Undo = Phrase::Tr("Undo puts the deleted bookings back."),
    .Undone = Phrase::Tr("The deleted bookings have been put back."),
};

Message GroupQuestion() {
  return {.Text = "This has Multiple Bookings. Do you want to Delete All of them?",
          .Choice = Buttons::YesNo,
          .Sign = Icon::Critical,
          .Default = Answer::No};
}

BookingChange DeleteGroup(Session& session, const Value& group_key, Dialogs& dialogs) {
  const JournalledAction journalled(*session.ResCon, "Series deleted");
  DeleteRows action(session, FindGroup(session, group_key));
  const RowActionResult result = CarryOut(*session.ResCon, action, kWords, dialogs);
  const std::string text = std::to_string(result.Done) + " Bookings Deleted.";
  return {ResultText(result, kWords, text), true, true};
}

BookingChange DeletePicked(Session& session, Dialogs& dialogs) {
  const Rows picked = FindPicked(session);
  if (picked->AtEnd()) {
    return {};
  }
  const Value group_key = picked->Field("MultKey");
  if (IsGroupMeant(session, group_key, GroupQuestion(), dialogs)) {
    picked->Close();
    return DeleteGroup(session, group_key, dialogs);
  }
  const JournalledAction journalled(*session.ResCon, "Booking deleted");
  picked->Delete();
  return {"Booking Deleted.", true, false};
}

}  // namespace

void DeleteBookings(Session& session, ShownGrid grid, const Listings& listings, Dialogs& dialogs) {
  ShowAndTell(session, DeletePicked(session, dialogs), "", grid, listings, dialogs);
}

}  // namespace veyra::modRes
