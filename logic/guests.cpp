#include "logic/guests.h"

#include <utility>

#include "data/errors.h"

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

void ReadIfChanged(Session& session) {
  const auto mark = session.GuestCon->MarkOf("Guest");
  if (mark == nullptr || mark != session.Guests.Mark) {
    session.Guests = ReadGuestNames(*session.GuestCon);
    session.Guests.Mark = mark;
  }
}

/// Opens the file that bears the name now. When it cannot be opened the connection stays as it was,
/// so that this may be tried again.
void OpenAnew(Session& session) {
  Databases anew;
  anew.AppFolder = session.AppFolder;
  anew.DataFolder = session.DataFolder;
  anew.Waiting = session.Waiting;
  CreateVeyraCon(anew);
  session.GuestCon = std::move(anew.GuestCon);
}

}  // namespace

void LoadGuestNames(Session& session, NameBox& Combo1) {
  Combo1.Items.clear();
  try {
    ReadIfChanged(session);
  } catch (const FileReplacedError&) {
    // Nothing is ever written to the guests: the host product may put a new file in the place of
    // the old one.
    OpenAnew(session);
    ReadIfChanged(session);
  }
  if (!session.Guests.HasGuests) {
    Combo1.Text = "No Guests in Veyra";
  }
  Combo1.Items = session.Guests.Names;
}

}  // namespace veyra::modRes
