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

/// How an action is called.
struct ActionName {
  const char* Journalled;
  const char* Done;  ///< Before what it was done to.
  const char* What;  ///< After "Do you want to undo ".
};

constexpr std::array<ActionName, 7> kNames = {{
    {"New booking", "Booked: ", "the last booking"},
    {"New series", "Booked: ", "the last series of bookings"},
    {"Booking deleted", "Deleted: ", "the deletion of a booking"},
    {"Series deleted", "Deleted: ", "the deletion of a series of bookings"},
    {"Booking renamed", "Renamed: ", "the renaming of a booking"},
    {"Series renamed", "Renamed: ", "the renaming of a series of bookings"},
    {"Facility deleted", "Deleted: ", "the deletion of a facility"},
}};

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

std::string WordsOf(const JournalledChange& change, const JournalWords& words) {
  return ShownName(words.Of(change.Table, change.After ? *change.After : *change.Before));
}

std::string UndoLine(const JournalledChange& change, const JournalWords& words) {
  std::string line = WordsOf(change, words);
  if (!change.Before) {
    return line + " is taken away.";
  }
  if (!change.After) {
    return line + " comes back.";
  }
  return line + " is called " + ShownName(ToText(FieldIn(*change.Before, "Event"))) + " again.";
}

/// The first of the lines, and how many more there are.
std::string Shown(const std::vector<std::string>& lines) {
  std::string text;
  const std::size_t shown = lines.size() > kShownLines + 1 ? kShownLines : lines.size();
  for (std::size_t i = 0; i < shown; ++i) {
    text += (i == 0 ? "" : kLineBreak) + lines[i];
  }
  if (shown < lines.size()) {
    text += kLineBreak + ("... and " + std::to_string(lines.size() - shown) + " more.");
  }
  return text;
}

Message Question(const JournalAction& action, const UndoPlan& plan, const JournalWords& words) {
  std::vector<std::string> lines;
  bool takes_away = false;
  for (const JournalledChange& change : InReadingOrder(plan.TakenBack)) {
    lines.push_back(UndoLine(change, words));
    takes_away = takes_away || !change.Before;
  }
  return {.Text = std::string("Do you want to undo ") + NameOf(action)->What + "?",
          .Choice = Buttons::YesNo,
          .Sign = Icon::Question,
          .Details = Shown(lines),
          .Default = takes_away ? Answer::No : Answer::Yes};
}

Message Refusal(const JournalAction& action, const UndoPlan& plan) {
  std::string what = NameOf(action)->What;
  what.front() = 'T';
  return {.Text = what + " cannot be undone. Nothing was changed.",
          .Sign = Icon::Exclamation,
          .Details = Shown(plan.Obstacles)};
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

std::optional<std::string> UndoLastAction(Session& session, Dialogs& dialogs) {
  const auto action = LastDeskAction(session);
  if (!action) {
    dialogs.MsgBox({.Text = "There is nothing to undo.", .Sign = Icon::Information});
    return std::nullopt;
  }
  std::string line = ActionLine(session, *action);
  const bool is_noted = !session.ResCon->Rows().KeepsJournal();
  if (!TakeBack(session, *action, dialogs)) {
    return std::nullopt;
  }
  if (is_noted) {
    session.ResCon->Notes().Forget(action->Number);
  }
  return line;
}

std::string ActionLine(Session& session, const JournalAction& action) {
  const ActionName* name = NameOf(action);
  const std::vector<JournalledChange> changes = InReadingOrder(NetChanges(action));
  if (name == nullptr || changes.empty()) {
    return {};
  }
  const JournalledChange& first = changes.front();
  const std::string count = std::to_string(changes.size() - (IsRoom(first) ? 1 : 0));
  const std::string done = name->Done;
  if (changes.size() == 1) {
    return done + WordsOf(first, JournalWords(session.ResCon->Rows(), {action}));
  }
  if (IsRoom(first)) {
    return done + WordsOf(first, JournalWords(session.ResCon->Rows(), {action})) + ", with " +
           count + (count == "1" ? " booking" : " bookings");
  }
  const FieldValues& fields = first.After ? *first.After : *first.Before;
  return done + count + " dates, " + ShownName(ToText(FieldIn(fields, "Event")));
}

}  // namespace veyra::modRes
