#include "logic/picked_booking.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "data/connection.h"
#include "data/shown_name.h"
#include "logic/facilities.h"
#include "logic/multiday.h"

namespace veyra::modRes {
namespace {

GroupDates DatesOf(Recordset& group) {
  GroupDates dates;
  for (; !group.AtEnd(); group.MoveNext()) {
    ++dates.Count;
    if (const auto day = ToDate(group.Field("DateOfRes"))) {
      dates.First = std::min(dates.First.value_or(*day), *day);
      dates.Last = std::max(dates.Last.value_or(*day), *day);
    }
  }
  return dates;
}

Phrase DayText(const std::optional<Date>& day) {
  return day ? DateText(*day) : Phrase::Tr("a day without a date");
}

std::string TimesOf(const Session& session, Recordset& booking) {
  return TimesLabel(session.SlotLabel,
                    {SlotOf(booking.Field("TimeFrom")), SlotOf(booking.Field("TimeTo"))});
}

Phrase GroupLine(Session& session, const Value& group_key) {
  const GroupDates dates = DatesOfGroup(session, group_key);
  return Phrase::Tr("%1 dates, %2 to %3", dates.Count, DayText(dates.First), DayText(dates.Last));
}

}  // namespace

Rows FindPicked(Session& session) {
  Rows picked =
      session.ResCon->Open("SELECT * FROM Reserv Where RmID = " + std::to_string(session.CurRmID) +
                               " And DateOfRes = #" + DateText(session.DayDate) +
                               "# And TimeFrom <= " + std::to_string(session.SelFirstSlot) +
                               " And TimeTo >= " + std::to_string(session.SelLastSlot),
                           CursorType::StaticOptimistic);
  std::optional<RowKey> shown;
  double first_slot = 0;
  for (; !picked->AtEnd(); picked->MoveNext()) {
    const double slot = ToDouble(picked->Field("TimeFrom")).value_or(0);
    if (!shown || slot >= first_slot) {
      shown = picked->Bookmark();
      first_slot = slot;
    }
  }
  if (shown) {
    picked->MoveTo(*shown);
  }
  return picked;
}

Rows FindGroup(Session& session, const Value& group_key) {
  return session.ResCon->Open(
      "SELECT * FROM Reserv Where RmID = " + std::to_string(session.CurRmID) +
          " And MultKey = " + ToText(group_key),
      CursorType::StaticOptimistic);
}

GroupDates DatesOfGroup(Session& session, const Value& group_key) {
  return DatesOf(*FindGroup(session, group_key));
}

bool IsGroupKey(const Value& key) {
  return ToDouble(key).value_or(0) > 0;
}

bool IsGroupMeant(Session& session, const Value& group_key, Message question, Dialogs& dialogs) {
  if (!IsGroupKey(group_key)) {
    return false;
  }
  question.Details = GroupDetails(session, group_key);
  return dialogs.MsgBox(question) == Answer::Yes;
}

Phrase PickedDetails(Session& session, const std::string& name) {
  const Rows picked = FindPicked(session);
  if (picked->AtEnd()) {
    return Phrase::Tr(
        "No booking covers the whole of the selected time: there is nothing to change.");
  }
  Phrase text = ShownName(CurrentFacility(session).value_or("")) + ", " +
                WeekdayWord(WeekdayNumber(session.DayDate)) + " " + DateText(session.DayDate) +
                ", " + TimesOf(session, *picked);
  if (const std::string held = ToText(picked->Field("Event")); held != name) {
    text += kLineBreak + Phrase::Tr("By now it is booked for %1.", ShownName(held));
  }
  const Value group_key = picked->Field("MultKey");
  if (IsGroupKey(group_key)) {
    text += kLineBreak + Phrase::Tr("One of a group: %1", GroupLine(session, group_key));
  }
  return text;
}

Phrase GroupDetails(Session& session, const Value& group_key) {
  return ShownName(CurrentFacility(session).value_or("")) + ": " + GroupLine(session, group_key);
}

}  // namespace veyra::modRes
