#include <algorithm>
#include <utility>

#include "forms/month/frmCalendar.h"
#include "logic/facilities.h"

namespace veyra {

/// What is gone stands in the box until now; where nothing was left before, nothing can go.
std::optional<std::string> frmCalendar::TakeOverFacilities() {
  const NameBox before = Combo1_;
  modRes::ReloadFacilities(session_, Combo1_);
  Combo1_.Used = before.Used;
  const auto name = modRes::CurrentFacility(session_);
  const std::string shown = std::exchange(lblRoom_, name.value_or(lblRoom_));
  if (before.Text != shown) {
    Combo1_.Text = before.Text;
  }
  ShowFacilityBox();
  view_.ShowRoom(lblRoom_);
  const bool was_there =
      std::find(before.Items.begin(), before.Items.end(), shown) != before.Items.end();
  return !name && was_there ? std::optional(shown) : std::nullopt;
}

void frmCalendar::ShowFirstFacility() {
  modRes::SelectFirstFacility(session_, Combo1_, lblRoom_);
  ShowFacilityBox();
  view_.ShowRoom(lblRoom_);
  RefreshMonth();
}

}  // namespace veyra
