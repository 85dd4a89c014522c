#include "logic/journal_actions.h"

#include <algorithm>
#include <map>
#include <utility>

#include "data/errors.h"
#include "data/journal.h"
#include "data/names.h"

namespace veyra::modRes {
namespace {

constexpr std::int64_t kFirstLook = 1'000;

std::optional<std::string> TextOrNothing(const Value& value) {
  return IsNull(value) ? std::nullopt : std::optional(ToText(value));
}

/// Reads entries in the order of their numbers and puts them with their actions.
class Gatherer {
 public:
  explicit Gatherer(Store& store) : columns_(store.ColumnNames(kJournalTable)) {}

  void Take(const Row& row) {
    const JournalEntry entry{.Number = ToInteger(Get(row, "ID")).value_or(0),
                             .Table = ToText(Get(row, "TableName")),
                             .OldValues = TextOrNothing(Get(row, "OldValues")),
                             .NewValues = TextOrNothing(Get(row, "NewValues"))};
    const std::string at = ToText(Get(row, "ChangedAt"));
    const auto named = ToInteger(Get(row, "ActionID"));
    const std::int64_t number = named.value_or(IsOfLastStatement(entry, at) ? last_ : entry.Number);
    JournalAction& action = actions_[number];
    if (action.Entries.empty()) {
      action.Number = number;
      action.At = at;
      action.Name = named ? ToText(Get(row, "ActionName")) : "";
    }
    action.Entries.push_back(entry);
    last_ = named ? 0 : number;
    last_entry_ = entry.Number;
  }

  std::vector<JournalAction> Actions() && {
    std::vector<JournalAction> actions;
    for (auto& [number, action] : actions_) {
      actions.push_back(std::move(action));
    }
    std::sort(actions.begin(), actions.end(), [](const auto& one, const auto& other) {
      return one.Entries.back().Number > other.Entries.back().Number;
    });
    return actions;
  }

 private:
  const Value& Get(const Row& row, const char* column) const {
    static const Value kNone;
    const auto place = FindName(columns_, column);
    return place ? row.Values[*place] : kNone;
  }

  /// Whether an entry without an action belongs to the one before it.
  bool IsOfLastStatement(const JournalEntry& entry, const std::string& at) const {
    return last_ != 0 && entry.Number == last_entry_ + 1 && actions_.at(last_).At == at;
  }

  std::vector<std::string> columns_;
  std::map<std::int64_t, JournalAction> actions_;
  std::int64_t last_ = 0;  ///< The action of the last entry, when it names none.
  std::int64_t last_entry_ = 0;
};

bool HasJournal(Store& store) {
  return FindName(store.TableNames(), kJournalTable).has_value();
}

std::int64_t LastNumber(Store& store) {
  Query query = ParseQuery(std::string("SELECT * FROM ") + kJournalTable + " ORDER BY ID DESC");
  const auto rows = store.Select(query);
  Row row;
  const auto place = FindName(store.ColumnNames(kJournalTable), "ID");
  return place && rows->Next(row) ? ToInteger(row.Values[*place]).value_or(0) : 0;
}

std::optional<FieldValues> Parsed(const std::optional<std::string>& text, std::int64_t number) {
  if (!text) {
    return std::nullopt;
  }
  auto fields = ParseJournalText(*text);
  if (!fields) {
    throw DatabaseError({{},
                         Phrase::Tr("Entry %1 of the journal cannot be read.", number),
                         Phrase::Tr("Nothing was changed. Restore a backup instead.")});
  }
  return fields;
}

/// Whether a facility is the same in all but the mark of the active one.
bool IsOnlyMarked(const JournalledChange& change) {
  if (!SameName(change.Table, "Rooms") || !change.Before || !change.After) {
    return false;
  }
  const auto is_mark = [](const auto& field) { return SameName(field.first, "Active"); };
  FieldValues before = *change.Before;
  FieldValues after = *change.After;
  std::erase_if(before, is_mark);
  std::erase_if(after, is_mark);
  return before == after;
}

/// An entry, and those of the same row that follow it, as one.
struct Joined {
  std::int64_t Number;
  std::string Table;
  std::optional<std::string> OldValues;
  std::optional<std::string> NewValues;
};

std::vector<Joined> JoinRows(const std::vector<JournalEntry>& entries) {
  std::vector<Joined> joined;
  std::multimap<std::string, std::size_t> by_values;
  for (const JournalEntry& entry : entries) {
    const std::string table = entry.Table + "\n";
    const auto same = entry.OldValues ? by_values.find(table + *entry.OldValues) : by_values.end();
    std::size_t place = joined.size();
    if (same == by_values.end()) {
      joined.push_back({entry.Number, entry.Table, entry.OldValues, entry.NewValues});
    } else {
      place = same->second;
      by_values.erase(same);
      joined[place].NewValues = entry.NewValues;
    }
    if (entry.NewValues) {
      by_values.emplace(table + *entry.NewValues, place);
    }
  }
  return joined;
}

}  // namespace

std::vector<JournalAction> ReadJournal(Store& store, std::int64_t from) {
  if (!HasJournal(store)) {
    return {};
  }
  Gatherer gatherer(store);
  const auto rows =
      store.Select(ParseQuery(std::string("SELECT * FROM ") + kJournalTable +
                              " WHERE ID >= " + std::to_string(from) + " ORDER BY ID"));
  for (Row row; rows->Next(row);) {
    gatherer.Take(row);
  }
  return std::move(gatherer).Actions();
}

std::optional<JournalAction> FindAction(Store& store, std::int64_t number) {
  // The entry before it tells whether a statement of another program begins there.
  for (JournalAction& action : ReadJournal(store, number - 1)) {
    if (action.Number == number && action.Entries.front().Number == number) {
      return std::move(action);
    }
  }
  return std::nullopt;
}

std::optional<JournalAction> LastAction(Store& store) {
  return LastAction(store, [](const JournalAction&) { return true; });
}

std::optional<JournalAction> LastAction(
    Store& store, const std::function<bool(const JournalAction&)>& is_wanted) {
  if (!HasJournal(store)) {
    return std::nullopt;
  }
  const std::int64_t last = LastNumber(store);
  for (std::int64_t look = kFirstLook;; look *= 10) {
    const std::int64_t from = last - look + 1;
    for (const JournalAction& action : ReadJournal(store, from)) {
      if (!is_wanted(action)) {
        continue;
      }
      const auto whole =
          action.Number > from ? std::optional(action) : FindAction(store, action.Number);
      if (whole && whole->Entries.front().Number == whole->Number && !NetChanges(*whole).empty()) {
        return whole;
      }
    }
    if (look >= last) {
      return std::nullopt;
    }
  }
}

std::vector<JournalledChange> NetChanges(const JournalAction& action) {
  std::vector<JournalledChange> changes;
  for (const Joined& joined : JoinRows(action.Entries)) {
    if (joined.OldValues == joined.NewValues) {
      continue;
    }
    JournalledChange change{joined.Table, Parsed(joined.OldValues, joined.Number),
                            Parsed(joined.NewValues, joined.Number)};
    if (!IsOnlyMarked(change)) {
      changes.push_back(std::move(change));
    }
  }
  return changes;
}

}  // namespace veyra::modRes
