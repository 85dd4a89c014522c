#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "logic/row_action.h"
#include "logic/stored_row.h"

namespace veyra::modRes {

/// Deletes bookings of facility CurRmID, and puts them back with all that their rows held.
class DeleteRows : public RowAction {
 public:
  /// `bookings` is static and on its first row. The session must outlive the action.
  DeleteRows(Session& session, Rows bookings);

  std::size_t Count() const override { return places_.size(); }
  Phrase NameOf(std::size_t row) const override { return BookingOn(places_.at(row).Day); }
  bool Do(std::size_t row) override;
  std::size_t AtOnce() const override { return bookings_->RowsAtOnce(); }
  bool CanJoin(std::size_t row) const override { return !held_.contains(row); }
  void DoTogether(const std::vector<std::size_t>& rows) override;
  void Undo(std::size_t row) override;
  bool IsDone(std::size_t row) override;

 private:
  struct Place {
    RowKey Bookmark = 0;
    std::optional<Date> Day;
  };

  Session& session_;
  Rows bookings_;
  std::vector<std::string> columns_;
  std::vector<Place> places_;
  std::unordered_map<std::size_t, FieldValues> held_;  ///< What the rows held that Do was asked to
                                                       ///< delete.
};

}  // namespace veyra::modRes
