#include "logic/rename_bookings.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/connection.h"
#include "data/journal.h"
#include "data/text.h"
#include "logic/booking_report.h"
#include "logic/name_length.h"
#include "logic/picked_booking.h"
#include "logic/row_action.h"

namespace veyra::modRes {
namespace {

const RowActionWords kWords{
    .Progress = Phrase::Tr("Renaming bookings ..."),
    .Done = Phrase::Tr("bookings have the new name."),
    .PassedOver = {},
    .Continue = Phrase::Tr("Continue renames the other bookings of the group."),
    .Undo = Phrase::Tr("Undo gives the renamed bookings their old names back."),
    .Undone = Phrase::Tr("The renamed bookings have their old names again."),
};

/// Gives every row of a record set one name.
class RenameRows : public RowAction {
 public:
  RenameRows(Session& session, Rows bookings, std::string name)
      : session_(session),
        bookings_(std::move(bookings)),
        columns_(session.ResCon->ColumnNames("Reserv")),
        name_(std::move(name)) {
    for (; !bookings_->AtEnd(); bookings_->MoveNext()) {
      places_.emplace_back(bookings_->Bookmark(), ToDate(bookings_->Field("DateOfRes")));
    }
  }

  std::size_t Count() const override { return places_.size(); }
  Phrase NameOf(std::size_t row) const override { return BookingOn(places_.at(row).second); }

  bool Do(std::size_t row) override {
    bookings_->MoveTo(places_.at(row).first);
    before_.try_emplace(row, FieldsOf(*bookings_, columns_));
    SetName(*bookings_, name_);
    return true;
  }

  std::size_t AtOnce() const override { return bookings_->RowsAtOnce(); }
  bool CanJoin(std::size_t row) const override { return !before_.contains(row); }

  void DoTogether(const std::vector<std::size_t>& rows) override {
    std::vector<RowKey> bookmarks;
    for (const std::size_t row : rows) {
      bookmarks.push_back(places_.at(row).first);
      bookings_->MoveTo(bookmarks.back());
      before_[row] = FieldsOf(*bookings_, columns_);
    }
    bookings_->SetFieldInAll(bookmarks, "Event", name_);
  }

  void Undo(std::size_t row) override {
    const FieldValues& before = before_.at(row);
    bookings_->MoveTo(places_.at(row).first);
    if (ToText(bookings_->Field("Event")) == name_) {
      SetName(*bookings_, NameIn(before));
    } else if (const Rows found = FindBooking(session_, After(row)); !found->AtEnd()) {
      // It was not known when it was renamed whether it was.
      SetName(*found, NameIn(before));
    }
  }

  bool IsDone(std::size_t row) override { return !FindBooking(session_, After(row))->AtEnd(); }

 private:
  static void SetName(Recordset& booking, const Value& name) {
    booking.SetField("Event", name);
    booking.Update();
  }

  static const Value& NameIn(const FieldValues& fields) {
    return std::find_if(fields.begin(), fields.end(), IsName)->second;
  }

  static bool IsName(const FieldValues::value_type& field) {
    return UpperCase(field.first) == "EVENT";
  }

  /// What the row holds once it is renamed.
  FieldValues After(std::size_t row) const {
    FieldValues fields = before_.at(row);
    std::find_if(fields.begin(), fields.end(), IsName)->second = name_;
    return fields;
  }

  Session& session_;
  Rows bookings_;
  std::vector<std::string> columns_;
  std::string name_;
  std::vector<std::pair<RowKey, std::optional<Date>>> places_;
  std::unordered_map<std::size_t, FieldValues> before_;
};

Message GroupQuestion() {
  return {.Text = "This has Multiple Bookings. Do you want to Change the Name on All of them?",
          .Choice = Buttons::YesNo,
          .Sign = Icon::Exclamation};
}

BookingChange RenameGroup(Session& session, const Value& group_key, const std::string& name,
                          Dialogs& dialogs) {
  RequireBookingNameFits(session, name);
  const JournalledAction journalled(*session.ResCon, "Series renamed");
  RenameRows action(session, FindGroup(session, group_key), name);
  const RowActionResult result = CarryOut(*session.ResCon, action, kWords, dialogs);
  const std::string text = std::to_string(result.Done) + " Bookings Name Changed.";
  return {ResultText(result, kWords, text), true, true};
}

/// Characters count here, not bytes.
void CutNewName(std::string& name, Dialogs& dialogs) {
  if (CharacterCount(name) <= kLongestNewName) {
    return;
  }
  name = FirstCharacters(name, kLongestNewName);
  dialogs.MsgBox({.Text = "The Text entered is greater than 50 characters and has been cut to:" +
                          std::string(kLineBreak) + name,
                  .Sign = Icon::Exclamation});
}

BookingChange RenamePicked(Session& session, std::string& name, Dialogs& dialogs) {
  const Rows picked = FindPicked(session);
  if (picked->AtEnd()) {
    return {};
  }
  const Value group_key = picked->Field("MultKey");
  if (IsGroupMeant(session, group_key, GroupQuestion(), dialogs)) {
    picked->Close();
    return RenameGroup(session, group_key, name, dialogs);
  }
  // Only a single booking's name is cut; a group keeps the name as typed. This is meant.
  CutNewName(name, dialogs);
  RequireBookingNameFits(session, name);
  const JournalledAction journalled(*session.ResCon, "Booking renamed");
  picked->SetField("Event", name);
  picked->Update();
  return {"Booking Name Changed.", true, false};
}

}  // namespace

bool RenameBookings(Session& session, std::string& name, ShownGrid grid, const Listings& listings,
                    Dialogs& dialogs) {
  const BookingChange change = RenamePicked(session, name, dialogs);
  ShowAndTell(session, change, name, grid, listings, dialogs);
  return change.Found;
}

}  // namespace veyra::modRes
