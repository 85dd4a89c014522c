#include "logic/journal_words.h"

#include "data/journal.h"
#include "data/names.h"
#include "data/shown_name.h"

namespace veyra::modRes {

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
