#include "forms/month/other_desks.h"

#include <optional>
#include <utility>

#include "data/errors.h"
#include "data/shown_name.h"
#include "logic/facilities.h"

namespace veyra {

OtherDesks::OtherDesks(Session& session, frmCalendar& month, Windows& windows, Dialogs& dialogs)
    : session_(session), month_(month), windows_(windows), dialogs_(dialogs) {}

int OtherDesks::Listen() {
  feed_ = session_.ResCon->Feed();
  return feed_ == nullptr ? -1 : feed_->Descriptor();
}

bool OtherDesks::Take() {
  if (feed_ != nullptr) {
    changes_.Add(feed_->TakeChanges());
  }
  return changes_.AreThere();
}

void OtherDesks::Show() {
  const modRes::OthersChanges changes = std::exchange(changes_, {});
  try {
    ShowWhatConcerns(changes);
  } catch (const DatabaseError&) {
    // What the operator does next meets it too, and is told then.
    changes_.AddAnything();
  }
}

void OtherDesks::ShowWhatConcerns(const modRes::OthersChanges& changes) {
  if (changes.AreOfFacilities()) {
    if (const auto gone = month_.TakeOverFacilities()) {
      LeaveFacility(*gone);
    }
  }
  if (IsOfMonth(changes)) {
    month_.RefreshMonth();
  }
  const bool is_of_day =
      changes.AreOfBookings(session_.CurRmID, session_.DayDate, session_.DayDate);
  if (is_of_day || changes.AreOfFacilities()) {
    windows_.ShowDayAnew();
  }
  windows_.ShowListsAnew();
}

bool OtherDesks::IsOfMonth(const modRes::OthersChanges& changes) const {
  const Date first = MakeDate(session_.CurYear, session_.CurMonth, 1).value();
  int days = 31;
  while (!MakeDate(session_.CurYear, session_.CurMonth, days)) {
    --days;
  }
  return changes.AreOfBookings(session_.CurRmID, first, AddDays(first, days - 1));
}

/// By the time that the operator reads it he sees what there is instead.
void OtherDesks::LeaveFacility(const std::string& name) {
  windows_.LeaveDay();
  month_.ShowFirstFacility();
  const auto first = modRes::CurrentFacility(session_);
  const Phrase instead = first ? Phrase::Tr("The first one is shown now: %1.", ShownName(*first))
                               : Phrase::Tr("There is no other one.");
  dialogs_.MsgBox(
      {.Text = Phrase::Tr("The facility %1 was deleted at another desk, with all its bookings.",
                          ShownName(name)) +
               kLineBreak + instead,
       .Sign = Icon::Exclamation});
}

}  // namespace veyra
