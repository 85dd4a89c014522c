#include "logic/guests.h"

namespace veyra::modRes {

namespace {

GuestNames ReadGuestNames(Connection& GuestCon) {
  GuestNames read;
  read.Mark = GuestCon.MarkOf("Guest");
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

bool AreCurrent(const GuestNames& guests, Connection& GuestCon) {
  return guests.Mark != nullptr && guests.Mark == GuestCon.MarkOf("Guest");
}

}  // namespace

void LoadGuestNames(Session& session, NameBox& Combo1) {
  Combo1.Items.clear();
  if (!AreCurrent(session.Guests, *session.GuestCon)) {
    session.Guests = ReadGuestNames(*session.GuestCon);
  }
  if (!session.Guests.HasGuests) {
    Combo1.Text = "No Guests in Veyra";
  }
  Combo1.Items = session.Guests.Names;
}

}  // namespace veyra::modRes
