#include "logic/journal_words.h"

#include <algorithm>
#include <array>

#include "data/journal.h"
#include "data/names.h"
#include "data/shown_name.h"

namespace veyra::modRes {
namespace {

/// The names that this version gives.
const auto& Names() {
  static const std::array names = {
      Phrase::Tr("New booking"),     Phrase::Tr("New series"),     Phrase::Tr("New facility"),
      Phrase::Tr("Booking deleted"), Phrase::Tr("Series deleted"), Phrase::Tr("Facility deleted"),
      Phrase::Tr("Booking renamed"), Phrase::Tr("Series renamed"), Phrase::Tr("Facility picked"),
      Phrase::Tr("Colors saved"),
  };
  return names;
}

/// What follows the words that a name begins with; empty when it does not begin so.
std::string After(std::string_view words, const std::string& name) {
  return name.starts_with(words) ? name.substr(words.size()) : std::string();
}

bool IsNumber(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace

Phrase ActionWords(const std::string& name) {
  const auto* known = std::find_if(Names().begin(), Names().end(),
                                   [&](const Phrase& each) { return each.English() == name; });
  if (known != Names().end()) {
    return *known;
  }
  if (const std::string number = After("Undo of ", name); IsNumber(number)) {
    return Phrase::Tr("Undo of %1", number);
  }
  if (const std::string file = After("Import of ", name); !file.empty()) {
    return Phrase::Tr("Import of %1", file);
  }
  return name;
}

const Value& FieldIn(const FieldValues& fields, std::string_view name) {
  static const Value kNone;
  for (const auto& [column, value] : fields) {
    if (SameName(column, name)) {
      return value;
    }
  }
  return kNone;
}

JournalWords::JournalWords(Store& store, const std::vector<JournalAction>& actions) {
  SlotLabels(labels_);
  for (const JournalAction& action : actions) {
    for (const JournalEntry& entry : action.Entries) {
      const auto& text = entry.NewValues ? entry.NewValues : entry.OldValues;
      if (!SameName(entry.Table, "Rooms") || !text) {
        continue;
      }
      if (const auto fields = ParseJournalText(*text)) {
        Learn(*fields);
      }
    }
  }
  const std::vector<std::string> columns = store.ColumnNames("Rooms");
  const auto rows = store.Select(ParseQuery("SELECT * FROM Rooms"));
  for (Row row; rows->Next(row);) {
    FieldValues fields;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      fields.emplace_back(columns[i], row.Values[i]);
    }
    names_[ToInteger(FieldIn(fields, "ID")).value_or(0)] = ToText(FieldIn(fields, "Name"));
  }
}

/// The actions come with the last one in front.
void JournalWords::Learn(const FieldValues& fields) {
  names_.try_emplace(ToInteger(FieldIn(fields, "ID")).value_or(0), ToText(FieldIn(fields, "Name")));
}

Phrase JournalWords::FacilityName(std::int64_t id) const {
  const auto name = names_.find(id);
  return name == names_.end() ? Phrase::Tr("no facility (%1)", id) : ShownName(name->second);
}

Phrase JournalWords::Of(const std::string& table, const FieldValues& fields) const {
  if (SameName(table, "Rooms")) {
    return Phrase::Tr("the facility %1", ShownName(ToText(FieldIn(fields, "Name"))));
  }
  return SameName(table, "Settings") ? Phrase::Tr("the colours") : Booking(fields);
}

Phrase JournalWords::AtBeginning(const std::string& table, const FieldValues& fields) const {
  if (SameName(table, "Rooms")) {
    return Phrase::Tr("The facility %1", ShownName(ToText(FieldIn(fields, "Name"))));
  }
  return SameName(table, "Settings") ? Phrase::Tr("The colours") : Booking(fields);
}

Phrase JournalWords::Booking(const FieldValues& fields) const {
  const auto day = ToDate(FieldIn(fields, "DateOfRes"));
  const SlotRange slots{SlotOf(FieldIn(fields, "TimeFrom")), SlotOf(FieldIn(fields, "TimeTo"))};
  return FacilityName(ToInteger(FieldIn(fields, "RmID")).value_or(0)) + ", " +
         (day ? DateText(*day) : Phrase::Tr("no date")) + ", " + RangeLabel(labels_, slots) + " " +
         ShownName(ToText(FieldIn(fields, "Event")));
}

}  // namespace veyra::modRes
