#include "logic/delete_facility.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "data/connection.h"
#include "data/errors.h"
#include "data/journal.h"
#include "logic/delete_rows.h"
#include "logic/facilities.h"
#include "logic/row_action.h"

namespace veyra::modRes {
namespace {

const RowActionWords kWords{
    .Progress = Phrase::Tr("Deleting bookings ..."),
    .Done = Phrase::Tr("bookings are deleted; the facility is still there."),
    .PassedOver = {},
    .Continue = Phrase::Tr("Continue deletes the other bookings and the facility."),
    .Undo = Phrase::Tr("Undo puts the deleted bookings back."),
    .Undone = Phrase::Tr("The deleted bookings have been put back."),
};

std::string BookingsQuery(const Session& session) {
  return "SELECT * FROM Reserv Where RmID = " + std::to_string(session.CurRmID);
}

Rows OpenRoom(Session& session) {
  return session.ResCon->Open(CurrentRoomQuery(session), CursorType::StaticOptimistic);
}

/// The bookings of a facility, and as the last row the facility itself.
class DeleteWithBookings : public RowAction {
 public:
  explicit DeleteWithBookings(Session& session)
      : session_(session),
        bookings_(session,
                  session.ResCon->Open(BookingsQuery(session), CursorType::StaticOptimistic)) {}

  std::size_t Count() const override { return bookings_.Count() + 1; }
  bool IsCounted(std::size_t row) const override { return !IsRoom(row); }
  Phrase NameOf(std::size_t row) const override {
    return IsRoom(row) ? Phrase::Tr("the facility") : bookings_.NameOf(row);
  }

  std::size_t AtOnce() const override { return bookings_.AtOnce(); }
  bool CanJoin(std::size_t row) const override { return !IsRoom(row) && bookings_.CanJoin(row); }
  void DoTogether(const std::vector<std::size_t>& rows) override { bookings_.DoTogether(rows); }

  bool Do(std::size_t row) override {
    if (!IsRoom(row)) {
      return bookings_.Do(row);
    }
    DeleteWhatCameMeanwhile();
    if (const Rows room = OpenRoom(session_); !room->AtEnd()) {
      room_ = FieldsOf(*room, session_.ResCon->ColumnNames("Rooms"));
      room->Delete();
    }
    return true;
  }

  void Undo(std::size_t row) override {
    if (IsRoom(row)) {
      AddRow(*OpenRoom(session_), room_);
    } else {
      bookings_.Undo(row);
    }
  }

  bool IsDone(std::size_t row) override {
    return IsRoom(row) ? OpenRoom(session_)->AtEnd() : bookings_.IsDone(row);
  }

 private:
  bool IsRoom(std::size_t row) const { return row == bookings_.Count(); }

  /// Bookings that another program made or changed since would belong to no facility.
  void DeleteWhatCameMeanwhile() {
    const Rows bookings =
        session_.ResCon->Open(BookingsQuery(session_), CursorType::StaticOptimistic);
    for (; !bookings->AtEnd(); bookings->MoveNext()) {
      bookings->Delete();
    }
  }

  Session& session_;
  DeleteRows bookings_;
  FieldValues room_;
};

RowActionResult CarryOutJournalled(Session& session, RowAction& action, Dialogs& dialogs) {
  const JournalledAction journalled(*session.ResCon, "Facility deleted");
  return CarryOut(*session.ResCon, action, kWords, dialogs);
}

void RemoveCurrentEntry(NameBox& Combo1) {
  const auto entry = std::find(Combo1.Items.begin(), Combo1.Items.end(), Combo1.Text);
  if (entry != Combo1.Items.end()) {
    Combo1.Items.erase(entry);
  }
}

/// The deletion stands, whatever becomes of this.
void SelectAfterDeletion(Session& session, NameBox& Combo1, std::string& lblRoom) {
  try {
    SelectFirstFacility(session, Combo1, lblRoom);
    KeepMarkOnServer(session);
  } catch (Error& failure) {
    failure.SetEffect(Phrase::Tr("The facility is deleted, but no other one could be picked."));
    throw;
  }
}

}  // namespace

void DeleteFacility(Session& session, NameBox& Combo1, std::string& lblRoom, Dialogs& dialogs) {
  DeleteWithBookings action(session);
  const RowActionResult result = CarryOutJournalled(session, action, dialogs);
  if (!action.IsDone(action.Count() - 1)) {
    const std::string text = std::to_string(result.Done) + " Bookings Deleted.";
    dialogs.MsgBox({.Text = ResultText(result, kWords, text), .Sign = Icon::Exclamation});
    return;
  }
  RemoveCurrentEntry(Combo1);
  SelectAfterDeletion(session, Combo1, lblRoom);
}

Phrase FacilityDetails(Session& session, const Clock& clock) {
  const Date today = clock.Today();
  std::int64_t all = 0;
  std::int64_t ahead = 0;
  const Rows bookings =
      session.ResCon->Open(BookingsQuery(session), CursorType::ForwardOnlyReadOnly);
  for (; !bookings->AtEnd(); bookings->MoveNext()) {
    ++all;
    const auto day = ToDate(bookings->Field("DateOfRes"));
    ahead += day && *day >= today ? 1 : 0;
  }
  return Phrase::Tr("Bookings: %1, of these today or later: %2", all, ahead);
}

}  // namespace veyra::modRes
