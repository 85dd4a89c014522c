#include "logic/undo.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "data/journal.h"
#include "data/names.h"
#include "data/shown_name.h"
#include "logic/current_rows.h"
#include "logic/slots.h"

namespace veyra::modRes {
namespace {

bool IsRoom(const JournalledChange& change) {
  return SameName(change.Table, "Rooms");
}

bool IsBooking(const JournalledChange& change) {
  return SameName(change.Table, "Reserv");
}

std::int64_t RoomIn(const FieldValues& fields) {
  return ToInteger(FieldIn(fields, "ID")).value_or(0);
}

std::string NameIn(const FieldValues& fields) {
  return ToText(FieldIn(fields, "Name"));
}

std::optional<SlotRange> SlotsIn(const FieldValues& fields) {
  const SlotRange slots = RowsOf(FieldIn(fields, "TimeFrom"), FieldIn(fields, "TimeTo"));
  return slots.First == 0 || slots.First > slots.Last ? std::nullopt : std::optional(slots);
}

bool Overlap(const FieldValues& one, const FieldValues& other) {
  const auto slots = SlotsIn(one);
  const auto others = SlotsIn(other);
  return slots && others && slots->First <= others->Last && others->First <= slots->Last;
}

/// Whether both take the same time of the same facility.
bool TakeSameTime(const FieldValues& one, const FieldValues& other) {
  const auto differs = [&](const char* column) {
    return ToText(FieldIn(one, column)) != ToText(FieldIn(other, column));
  };
  return !differs("RmID") && !differs("DateOfRes") && !differs("TimeFrom") && !differs("TimeTo");
}

/// Plans row by row: first all that go or change, for what they free is free then, and after them
/// all that come back.
class Planner {
 public:
  Planner(Store& store, const JournalAction& action, const JournalWords& words)
      : words_(words), rows_(store, NetChanges(action)) {
    plan_.Number = action.Number;
    plan_.TakenBack = NetChanges(action);
  }

  UndoPlan Plan() {
    for (auto change = plan_.TakenBack.rbegin(); change != plan_.TakenBack.rend(); ++change) {
      if (change->After) {
        TakeWhatItLeft(*change);
      }
    }
    KeepOneActive();
    for (const bool are_rooms : {true, false}) {
      for (const JournalledChange& change : plan_.TakenBack) {
        if (change.Before && IsRoom(change) == are_rooms) {
          BringBack(change);
        }
      }
    }
    CheckNothingIsLeftBehind();
    plan_.Changes.insert(plan_.Changes.end(), added_.begin(), added_.end());
    plan_.Seen = rows_.Seen();
    return std::move(plan_);
  }

 private:
  void TakeWhatItLeft(const JournalledChange& change) {
    const auto* found = rows_.Take(change.Table, *change.After);
    if (found == nullptr) {
      plan_.Obstacles.push_back(Phrase::Tr("%1 is no longer as it was left: %2.",
                                           words_.AtBeginning(change.Table, *change.After),
                                           WhatStandsThere(change)));
      return;
    }
    if (!change.Before) {
      plan_.Changes.push_back(
          {.What = RowChange::Kind::Remove, .Table = change.Table, .Before = found->Content});
      if (IsRoom(change)) {
        gone_rooms_.push_back(*change.After);
        is_active_gone_ =
            is_active_gone_ || ToInteger(FieldIn(found->Fields, "Active")) == std::int64_t{1};
      }
    } else if (FieldValues fields = Differing(change); !fields.empty()) {
      plan_.Changes.push_back({.What = RowChange::Kind::Set,
                               .Table = change.Table,
                               .Before = found->Content,
                               .Fields = std::move(fields)});
    }
  }

  /// A facility that goes may have been the active one: then the first that stays is.
  void KeepOneActive() {
    for (const auto& room : rows_.Beside("Rooms", {})) {
      if (is_active_gone_ && !room.IsTaken) {
        plan_.Changes.push_back({.What = RowChange::Kind::Set,
                                 .Table = "Rooms",
                                 .Before = room.Content,
                                 .Fields = {{"Active", std::int64_t{1}}}});
        return;
      }
    }
  }

  void BringBack(const JournalledChange& change) {
    if (IsRoom(change)) {
      CheckRoomIsFree(change);
    } else if (IsBooking(change) &&
               !(change.After && TakeSameTime(*change.Before, *change.After))) {
      CheckTimeIsFree(change);
    }
    if (!change.After) {
      added_.push_back({.What = RowChange::Kind::Add,
                        .Table = change.Table,
                        .Fields = Stored(change.Table, *change.Before)});
    }
    if (IsRoom(change)) {
      known_rooms_.insert(RoomIn(*change.Before));
    }
  }

  void CheckRoomIsFree(const JournalledChange& change) {
    for (const auto& room : rows_.Beside("Rooms", {})) {
      const bool is_same = RoomIn(room.Fields) == RoomIn(*change.Before);
      if (!room.IsTaken && (is_same || NameIn(room.Fields) == NameIn(*change.Before))) {
        plan_.Obstacles.push_back(Phrase::Tr("%1 cannot come back: there is a facility %2 now.",
                                             words_.AtBeginning(change.Table, *change.Before),
                                             ShownName(NameIn(room.Fields))));
        return;
      }
    }
  }

  void CheckTimeIsFree(const JournalledChange& change) {
    const FieldValues& booking = *change.Before;
    if (!HasRoom(ToInteger(FieldIn(booking, "RmID")).value_or(0))) {
      plan_.Obstacles.push_back(
          Phrase::Tr("%1 cannot come back: the facility is not there any more.",
                     words_.AtBeginning(change.Table, booking)));
      return;
    }
    for (const auto& other : rows_.Beside(change.Table, booking)) {
      if (!other.IsTaken && Overlap(booking, other.Fields)) {
        plan_.Obstacles.push_back(Phrase::Tr("%1 cannot come back: %2 stands there now.",
                                             words_.AtBeginning(change.Table, booking),
                                             words_.Of(change.Table, other.Fields)));
        return;
      }
    }
  }

  bool HasRoom(std::int64_t id) {
    if (known_rooms_.contains(id)) {
      return true;
    }
    const auto& rooms = rows_.Beside("Rooms", {});
    return std::any_of(rooms.begin(), rooms.end(), [&](const auto& room) {
      return !room.IsTaken && RoomIn(room.Fields) == id;
    });
  }

  void CheckNothingIsLeftBehind() {
    for (const FieldValues& room : gone_rooms_) {
      if (const std::size_t count = rows_.CountBookingsOf(RoomIn(room)); count > 0) {
        plan_.Obstacles.push_back(Phrase::Tr("The facility %1 cannot go: it has %2 bookings now.",
                                             ShownName(NameIn(room)), count));
      }
    }
  }

  Phrase WhatStandsThere(const JournalledChange& change) {
    for (const auto& other : rows_.Beside(change.Table, *change.After)) {
      const bool is_there = IsRoom(change) ? RoomIn(other.Fields) == RoomIn(*change.After)
                            : IsBooking(change)
                                ? !other.IsTaken && Overlap(*change.After, other.Fields)
                                : true;
      if (is_there) {
        return Phrase::Tr("%1 stands there now", words_.Of(change.Table, other.Fields));
      }
    }
    return Phrase::Tr("it is not there");
  }

  /// The fields of the row as it was that it has no longer.
  FieldValues Differing(const JournalledChange& change) {
    FieldValues fields = Stored(change.Table, *change.Before);
    const FieldValues after = Stored(change.Table, *change.After);
    std::erase_if(fields, [&](const auto& field) {
      return FieldIn(after, field.first) == field.second || IsMark(change, field.first);
    });
    return fields;
  }

  static bool IsMark(const JournalledChange& change, const std::string& column) {
    return IsRoom(change) && SameName(column, "Active");
  }

  /// The fields as they are to be stored: those that the table still has, days as days, and a
  /// facility without the mark unless it is the only one.
  FieldValues Stored(const std::string& table, const FieldValues& fields) {
    FieldValues stored;
    for (const auto& [name, value] : fields) {
      if (!FindName(rows_.Columns(table), name)) {
        continue;
      }
      const auto day = SameName(name, "DateOfRes") ? ToDate(value) : std::nullopt;
      const bool is_plain_day = day && IsoText(*day) == ToText(value);
      stored.emplace_back(name, is_plain_day ? Value(*day) : value);
      if (SameName(table, "Rooms") && SameName(name, "Active")) {
        stored.back().second = std::int64_t{HasOtherRooms() ? 0 : 1};
      }
    }
    return stored;
  }

  bool HasOtherRooms() {
    const auto& rooms = rows_.Beside("Rooms", {});
    return !known_rooms_.empty() ||
           std::any_of(rooms.begin(), rooms.end(), [](const auto& room) { return !room.IsTaken; });
  }

  const JournalWords& words_;
  CurrentRows rows_;
  UndoPlan plan_;
  std::vector<RowChange> added_;
  std::vector<FieldValues> gone_rooms_;
  std::set<std::int64_t> known_rooms_;  ///< Those that come back.
  bool is_active_gone_ = false;
};

}  // namespace

UndoPlan PlanUndo(Store& store, const JournalAction& action, const JournalWords& words) {
  return Planner(store, action, words).Plan();
}

void CarryOutUndo(Store& store, const UndoPlan& plan) {
  const JournalledAction journalled(store, "Undo of " + std::to_string(plan.Number));
  store.ChangeAll(plan.Changes, plan.Seen);
}

}  // namespace veyra::modRes
