#include "logic/guests.h"

#include <utility>

namespace veyra::modRes {

void LoadGuestNames(Session& session, NameBox& Combo1) {
  Combo1.Items.clear();
  const auto guests =
      session.GuestCon->Open("SELECT * FROM Guest", CursorType::ForwardOnlyReadOnly);
  if (guests->IsEmpty()) {
    Combo1.Text = "No Guests in Veyra";
    return;
  }
  for (; !guests->AtEnd(); guests->MoveNext()) {
    const Value name = guests->Field("Name");
    if (!IsNull(name)) {
      Combo1.Items.push_back(ToText(name));
    }
  }
}

}  // namespace veyra::modRes
