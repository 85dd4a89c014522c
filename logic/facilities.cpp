#include "logic/facilities.h"

#include "data/journal.h"

namespace veyra::modRes {
namespace {

constexpr const char* kAllRooms = "SELECT * FROM Rooms";

bool IsActive(Recordset& room) {
  return ToInteger(room.Field("Active")) == 1;
}

std::int64_t IdOf(Recordset& room) {
  return ToInteger(room.Field("ID")).value_or(0);
}

std::string NameOf(Recordset& room) {
  return ToText(room.Field("Name"));
}

void SetActive(Recordset& room, bool active) {
  room.SetField("Active", std::int64_t{active ? 1 : 0});
}

}  // namespace

void LoadFacilities(Session& session, NameBox& Combo1) {
  const auto rooms = session.ResCon->Open(kAllRooms, CursorType::ForwardOnlyReadOnly);
  if (rooms->IsEmpty()) {
    return;
  }
  Combo1.Items.clear();
  for (; !rooms->AtEnd(); rooms->MoveNext()) {
    Combo1.Items.push_back(NameOf(*rooms));
    if (IsActive(*rooms)) {
      Combo1.Text = Combo1.Items.back();
    }
  }
}

void SelectFacility(Session& session, const std::string& FacilityName) {
  const JournalledAction journalled(*session.ResCon, "Facility picked");
  const auto rooms = session.ResCon->Open(kAllRooms, CursorType::StaticOptimistic);
  std::int64_t selected_id = session.CurRmID;
  for (; !rooms->AtEnd(); rooms->MoveNext()) {
    const bool selected = !FacilityName.empty() && NameOf(*rooms) == FacilityName;
    if (selected) {
      selected_id = IdOf(*rooms);
    }
    SetActive(*rooms, selected);
    rooms->Update();
  }
  session.CurRmID = selected_id;
}

void ShowCurrentFacility(Session& session, NameBox& Combo1) {
  if (const auto name = CurrentFacility(session)) {
    Combo1.Text = *name;
  }
}

void AddFacility(Session& session, NameBox& Combo1) {
  const auto rooms = session.ResCon->Open(kAllRooms, CursorType::StaticOptimistic);
  const JournalledAction journalled(*session.ResCon, "New facility");
  rooms->AddNew();
  rooms->SetField("Name", Combo1.Text);
  SetActive(*rooms, true);
  rooms->Update();
  session.CurRmID = IdOf(*rooms);
  Combo1.Items.push_back(Combo1.Text);
}

void SelectFirstFacility(Session& session, NameBox& Combo1, std::string& lblRoom) {
  const auto rooms = session.ResCon->Open(kAllRooms, CursorType::StaticOptimistic);
  if (rooms->IsEmpty()) {
    Combo1.Text.clear();
    return;
  }
  const JournalledAction journalled(*session.ResCon, "Facility picked");
  SetActive(*rooms, true);
  rooms->Update();
  session.CurRmID = IdOf(*rooms);
  Combo1.Text = NameOf(*rooms);
  lblRoom = Combo1.Text;
}

std::optional<std::string> CurrentFacility(Session& session) {
  const auto room =
      session.ResCon->Open(CurrentRoomQuery(session), CursorType::ForwardOnlyReadOnly);
  return room->AtEnd() ? std::nullopt : std::optional(NameOf(*room));
}

void ReloadFacilities(Session& session, NameBox& Combo1) {
  NameBox loaded;
  LoadFacilities(session, loaded);
  loaded.Text = CurrentFacility(session).value_or("");
  Combo1 = loaded;
}

std::string CurrentRoomQuery(const Session& session) {
  return "SELECT * FROM Rooms Where ID = " + std::to_string(session.CurRmID);
}

}  // namespace veyra::modRes
