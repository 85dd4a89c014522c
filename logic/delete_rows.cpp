#include "logic/delete_rows.h"

#include <utility>

#include "data/connection.h"

namespace veyra::modRes {

DeleteRows::DeleteRows(Session& session, Rows bookings)
    : session_(session),
      bookings_(std::move(bookings)),
      columns_(session.ResCon->ColumnNames("Reserv")) {
  for (; !bookings_->AtEnd(); bookings_->MoveNext()) {
    places_.push_back({bookings_->Bookmark(), ToDate(bookings_->Field("DateOfRes"))});
  }
}

bool DeleteRows::Do(std::size_t row) {
  if (bookings_->MoveTo(places_.at(row).Bookmark)) {
    held_[row] = FieldsOf(*bookings_, columns_);
    bookings_->Delete();
    return true;
  }
  // The row was put back, and it was not known then whether it is there.
  if (const Rows found = FindBooking(session_, held_.at(row)); !found->AtEnd()) {
    found->Delete();
  }
  return true;
}

void DeleteRows::DoTogether(const std::vector<std::size_t>& rows) {
  std::vector<RowKey> bookmarks;
  for (const std::size_t row : rows) {
    bookmarks.push_back(places_.at(row).Bookmark);
    bookings_->MoveTo(bookmarks.back());
    held_[row] = FieldsOf(*bookings_, columns_);
  }
  bookings_->DeleteAll(bookmarks);
}

void DeleteRows::Undo(std::size_t row) {
  AddRow(*bookings_, held_.at(row));
  places_.at(row).Bookmark = bookings_->Bookmark();
}

bool DeleteRows::IsDone(std::size_t row) {
  return FindBooking(session_, held_.at(row))->AtEnd();
}

}  // namespace veyra::modRes
