#include "logic/guests.h"

namespace veyra::modRes {

namespace {

GuestNames ReadGuestNames(Connection& GuestCon) {
  GuestNames read;
  const auto guests = GuestCon.Open("SELECT * FROM Guest", CursorType::ForwardOnlyReadOnly);
  read.HasGuests = !guests->IsEmpty();
  for (; !guests->AtEnd(); guests->MoveNext()) {
    const Value name = guests->Field("Name");
    if (!IsNull(name)) {
      read.Names.push_back(ToText(name));
    }
  }
  return read;
}

}  // namespace

void LoadGuestNames(Session& session, NameBox& Combo1) {
  Combo1.Items.clear();
  const auto mark = session.GuestCon->MarkOf("Guest");
  if (mark == nullptr || mark != session.Guests.Mark) {
    session.Guests = ReadGuestNames(*session.GuestCon);
    session.Guests.Mark = mark;
  }
  if (!session.Guests.HasGuests) {
    Combo1.Text = "No Guests in Veyra";
  }
  Combo1.Items = session.Guests.Names;
}

}  // namespace veyra::modRes
