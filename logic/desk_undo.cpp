#include "logic/desk_undo.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "data/connection.h"
#include "data/names.h"
#include "data/shown_name.h"
#include "logic/journal_words.h"
#include "logic/undo.h"

namespace veyra::modRes {
namespace {

/// How often it is planned anew when somebody books meanwhile.
constexpr int kAttempts = 20;
constexpr std::size_t kShownLines = 6;
constexpr std::string_view kUndone = "Undo of ";

enum class Deed { Booked, Deleted, Renamed };

/// What is said of an action.
struct ActionName {
  const char* Journalled = "";
  Deed Done = Deed::Booked;
  Phrase Question;
  Phrase Refusal;
};

const std::array<ActionName, 7> kNames = {{
    {"New booking", Deed::Booked, Phrase::Tr("Do you want to undo the last booking?"),
     Phrase::Tr("The last booking cannot be undone. Nothing was changed.")},
    {"New series", Deed::Booked, Phrase::Tr("Do you want to undo the last series of bookings?"),
     Phrase::Tr("The last series of bookings cannot be undone. Nothing was changed.")},
    {"Booking deleted", Deed::Deleted, Phrase::Tr("Do you want to undo the deletion of a booking?"),
     Phrase::Tr("The deletion of a booking cannot be undone. Nothing was changed.")},
    {"Series deleted", Deed::Deleted,
     Phrase::Tr("Do you want to undo the deletion of a series of bookings?"),
     Phrase::Tr("The deletion of a series of bookings cannot be undone. Nothing was changed.")},
    {"Booking renamed", Deed::Renamed, Phrase::Tr("Do you want to undo the renaming of a booking?"),
     Phrase::Tr("The renaming of a booking cannot be undone. Nothing was changed.")},
    {"Series renamed", Deed::Renamed,
     Phrase::Tr("Do you want to undo the renaming of a series of bookings?"),
     Phrase::Tr("The renaming of a series of bookings cannot be undone. Nothing was changed.")},
    {"Facility deleted", Deed::Deleted,
     Phrase::Tr("Do you want to undo the deletion of a facility?"),
     Phrase::Tr("The deletion of a facility cannot be undone. Nothing was changed.")},
}};

/// What was done, to what.
Phrase DoneTo(Deed deed, const Phrase& what) {
  switch (deed) {
    case Deed::Booked:
      return Phrase::Tr("Booked: %1", what);
    case Deed::Deleted:
      return Phrase::Tr("Deleted: %1", what);
    case Deed::Renamed:
      return Phrase::Tr("Renamed: %1", what);
  }
  return what;
}

const ActionName* NameOf(const JournalAction& action) {
  const auto* name = std::find_if(kNames.begin(), kNames.end(), [&](const ActionName& each) {
    return action.Name == each.Journalled;
  });
  return name == kNames.end() ? nullptr : name;
}

/// Tells, of actions from the last one backwards, which the desk may take back.
class Undoable {
 public:
  bool operator()(const JournalAction& action) {
    if (undone_.contains(action.Number)) {
      return false;
    }
    if (action.Name.starts_with(kUndone)) {
      std::int64_t number = 0;
      const char* end = action.Name.data() + action.Name.size();
      std::from_chars(action.Name.data() + kUndone.size(), end, number);
      undone_.insert(number);
    }
    return NameOf(action) != nullptr;
  }

 private:
  std::set<std::int64_t> undone_;
};

bool IsRoom(const JournalledChange& change) {
  return SameName(change.Table, "Rooms");
}

/// Facilities first.
std::vector<JournalledChange> InReadingOrder(std::vector<JournalledChange> changes) {
  std::stable_partition(changes.begin(), changes.end(), IsRoom);
  return changes;
}

const FieldValues& Content(const JournalledChange& change) {
  return change.After ? *change.After : *change.Before;
}

Phrase UndoLine(const JournalledChange& change, const JournalWords& words) {
  const Phrase what = words.Of(change.Table, Content(change));
  if (!change.Before) {
    return Phrase::Tr("%1 is taken away.", what);
  }
  if (!change.After) {
    return Phrase::Tr("%1 comes back.", what);
  }
  return Phrase::Tr("%1 is called %2 again.", what,
                    ShownName(ToText(FieldIn(*change.Before, "Event"))));
}

/// The first of the lines, and how many more there are.
Phrase Shown(std::vector<Phrase> lines) {
  if (const std::size_t all = lines.size(); all > kShownLines + 1) {
    lines.resize(kShownLines);
    lines.push_back(Phrase::Tr("... and %1 more.", all - kShownLines));
  }
  return JoinedLines(lines, kLineBreak);
}

Message Question(const JournalAction& action, const UndoPlan& plan, const JournalWords& words) {
  std::vector<Phrase> lines;
  bool takes_away = false;
  for (const JournalledChange& change : InReadingOrder(plan.TakenBack)) {
    lines.push_back(UndoLine(change, words));
    takes_away = takes_away || !change.Before;
  }
  return {.Text = NameOf(action)->Question,
          .Choice = Buttons::YesNo,
          .Sign = Icon::Question,
          .Details = Shown(lines),
          .Default = takes_away ? Answer::No : Answer::Yes};
}

Message Refusal(const JournalAction& action, const UndoPlan& plan) {
  return {
      .Text = NameOf(action)->Refusal, .Sign = Icon::Exclamation, .Details = Shown(plan.Obstacles)};
}

Phrase WithBookings(const Phrase& facility, std::size_t count) {
  return count == 1 ? Phrase::Tr("%1, with 1 booking", facility)
                    : Phrase::Tr("%1, with %2 bookings", facility, count);
}

/// Asks once; who books meanwhile has it planned anew. Returns whether it was done.
bool TakeBack(Session& session, const JournalAction& action, Dialogs& dialogs) {
  Store& store = session.ResCon->Rows();
  const JournalWords words(store, {action});
  for (int attempt = 1;; ++attempt) {
    const UndoPlan plan = PlanUndo(store, action, words);
    if (!plan.Obstacles.empty()) {
      dialogs.MsgBox(Refusal(action, plan));
      return false;
    }
    if (attempt == 1 && dialogs.MsgBox(Question(action, plan, words)) != Answer::Yes) {
      return false;
    }
    try {
      CarryOutUndo(store, plan);
      return true;
    } catch (const RowChangedError&) {
      if (attempt == kAttempts) {
        throw;
      }
    }
  }
}

}  // namespace

JournalAction AsJournalAction(const NotedAction& noted) {
  JournalAction action{.Number = noted.Number, .At = {}, .Name = noted.Name, .Entries = {}};
  for (const NotedChange& change : noted.Changes) {
    const auto number = static_cast<std::int64_t>(action.Entries.size()) + 1;
    action.Entries.push_back({number, change.Table, change.OldValues, change.NewValues});
  }
  return action;
}

std::optional<JournalAction> LastDeskAction(Session& session) {
  if (Store& store = session.ResCon->Rows(); store.KeepsJournal()) {
    return LastAction(store, Undoable());
  }
  const auto& noted = session.ResCon->Notes().Actions();
  for (auto action = noted.rbegin(); action != noted.rend(); ++action) {
    JournalAction found = AsJournalAction(*action);
    if (NameOf(found) != nullptr && !NetChanges(found).empty()) {
      return found;
    }
  }
  return std::nullopt;
}

std::optional<Phrase> UndoLastAction(Session& session, Dialogs& dialogs) {
  const auto action = LastDeskAction(session);
  if (!action) {
    dialogs.MsgBox({.Text = Phrase::Tr("There is nothing to undo."), .Sign = Icon::Information});
    return std::nullopt;
  }
  Phrase line = ActionLine(session, *action);
  const bool is_noted = !session.ResCon->Rows().KeepsJournal();
  if (!TakeBack(session, *action, dialogs)) {
    return std::nullopt;
  }
  if (is_noted) {
    session.ResCon->Notes().Forget(action->Number);
  }
  return line;
}

Phrase ActionLine(Session& session, const JournalAction& action) {
  const ActionName* name = NameOf(action);
  const std::vector<JournalledChange> changes = InReadingOrder(NetChanges(action));
  if (name == nullptr || changes.empty()) {
    return {};
  }
  const JournalledChange& first = changes.front();
  if (changes.size() > 1 && !IsRoom(first)) {
    return DoneTo(name->Done, Phrase::Tr("%1 dates, %2", changes.size(),
                                         ShownName(ToText(FieldIn(Content(first), "Event")))));
  }
  const JournalWords words(session.ResCon->Rows(), {action});
  const Phrase what = words.Of(first.Table, Content(first));
  return DoneTo(name->Done, changes.size() == 1 ? what : WithBookings(what, changes.size() - 1));
}

}  // namespace veyra::modRes
