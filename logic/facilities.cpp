#include "logic/facilities.h"

#include "data/desk_note.h"
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

bool HasActive(Recordset& rooms) {
  for (; !rooms.AtEnd(); rooms.MoveNext()) {
    if (IsActive(rooms)) {
      return true;
    }
  }
  return false;
}

std::optional<std::int64_t> NotedFacility(const Session& session) {
  return session.DeskNote.empty() ? std::nullopt : ReadDeskNote(session.DeskNote);
}

void NoteFacility(const Session& session) {
  if (!session.DeskNote.empty()) {
    WriteDeskNote(session.DeskNote, session.CurRmID);
  }
}

}  // namespace

void LoadFacilities(Session& session, NameBox& Combo1) {
  const auto noted = NotedFacility(session);
  std::optional<std::string> noted_name;
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
    if (noted == IdOf(*rooms)) {
      noted_name = Combo1.Items.back();
    }
  }
  Combo1.Text = noted_name.value_or(Combo1.Text);
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
    if (session.DeskNote.empty()) {
      SetActive(*rooms, selected);
      rooms->Update();
    } else if (selected) {
      WriteDeskNote(session.DeskNote, selected_id);
    }
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
  const bool is_marked = session.DeskNote.empty() || !HasActive(*rooms);
  rooms->AddNew();
  rooms->SetField("Name", Combo1.Text);
  SetActive(*rooms, is_marked);
  rooms->Update();
  session.CurRmID = IdOf(*rooms);
  NoteFacility(session);
  Combo1.Items.push_back(Combo1.Text);
}

void SelectFirstFacility(Session& session, NameBox& Combo1, std::string& lblRoom) {
  const auto rooms = session.ResCon->Open(kAllRooms, CursorType::StaticOptimistic);
  if (rooms->IsEmpty()) {
    Combo1.Text.clear();
    return;
  }
  const JournalledAction journalled(*session.ResCon, "Facility picked");
  if (session.DeskNote.empty()) {
    SetActive(*rooms, true);
    rooms->Update();
  }
  session.CurRmID = IdOf(*rooms);
  NoteFacility(session);
  Combo1.Text = NameOf(*rooms);
  lblRoom = Combo1.Text;
}

void KeepMarkOnServer(Session& session) {
  if (session.DeskNote.empty()) {
    return;
  }
  const auto rooms = session.ResCon->Open(kAllRooms, CursorType::StaticOptimistic);
  if (rooms->IsEmpty() || HasActive(*rooms)) {
    return;
  }
  rooms->MoveFirst();
  SetActive(*rooms, true);
  rooms->Update();
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
