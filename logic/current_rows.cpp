#include "logic/current_rows.h"

#include <algorithm>

#include "data/names.h"
#include "logic/journal_words.h"

namespace veyra::modRes {
namespace {

/// The days of one facility that are in question; all when one of them cannot be told.
struct Days {
  std::optional<Date> First = {};
  std::optional<Date> Last = {};
  bool AreAll = false;

  void Add(const std::optional<Date>& day) {
    AreAll = AreAll || !day;
    if (day) {
      First = First ? std::min(*First, *day) : *day;
      Last = Last ? std::max(*Last, *day) : *day;
    }
  }
};

Query BookingsOf(std::int64_t facility, const Days& days) {
  std::string sql = "SELECT * FROM Reserv WHERE RmID = " + std::to_string(facility);
  if (!days.AreAll) {
    sql += " AND DateOfRes >= #" + DateText(*days.First) + "#";
    // A day with a time of day lies before the day that follows it.
    if (const Date next = AddDays(*days.Last, 1); YearOf(next) <= kLastYear) {
      sql += " AND DateOfRes < #" + DateText(next) + "#";
    }
  }
  return ParseQuery(sql);
}

/// By facility; those of none under no number.
using DaysOfFacilities = std::map<std::optional<std::int64_t>, Days>;

DaysOfFacilities DaysIn(const std::vector<JournalledChange>& changes) {
  DaysOfFacilities days;
  for (const JournalledChange& change : changes) {
    for (const auto* fields : {&change.Before, &change.After}) {
      if (SameName(change.Table, "Reserv") && *fields) {
        days[ToInteger(FieldIn(**fields, "RmID"))].Add(ToDate(FieldIn(**fields, "DateOfRes")));
      }
    }
  }
  return days;
}

bool IsSame(const Value& one, const Value& other) {
  if (IsNull(one) || IsNull(other)) {
    return IsNull(one) && IsNull(other);
  }
  const bool are_texts =
      std::holds_alternative<std::string>(one) || std::holds_alternative<std::string>(other);
  return are_texts || !ToDouble(one) ? ToText(one) == ToText(other)
                                     : ToDouble(one) == ToDouble(other);
}

/// Under which the rows are kept among which these fields would stand.
std::string PlaceOf(const std::string& table, const FieldValues& fields) {
  if (!SameName(table, "Reserv")) {
    return table;
  }
  const Value& day = FieldIn(fields, "DateOfRes");
  const auto date = ToDate(day);
  return table + " " + ToText(FieldIn(fields, "RmID")) + " " +
         (date ? IsoText(*date) : ToText(day));
}

bool IsMark(const std::string& table, const std::string& column) {
  return SameName(table, "Rooms") && SameName(column, "Active");
}

}  // namespace

bool HoldSame(const std::string& table, const FieldValues& one, const FieldValues& other) {
  return std::all_of(one.begin(), one.end(), [&](const auto& field) {
    const auto has = [&](const auto& each) { return SameName(each.first, field.first); };
    const auto same = std::find_if(other.begin(), other.end(), has);
    return same == other.end() || IsMark(table, field.first) || IsSame(field.second, same->second);
  });
}

CurrentRows::CurrentRows(Store& store, const std::vector<JournalledChange>& changes)
    : store_(store) {
  Read("Rooms", ParseQuery("SELECT * FROM Rooms"));
  const auto is_color = [](const auto& change) { return SameName(change.Table, "Settings"); };
  if (std::any_of(changes.begin(), changes.end(), is_color)) {
    Read("Settings", ParseQuery("SELECT * FROM Settings"));
  }
  const DaysOfFacilities all_days = DaysIn(changes);
  if (all_days.contains(std::nullopt)) {
    Read("Reserv", ParseQuery("SELECT * FROM Reserv"));
    return;
  }
  for (const auto& [facility, days] : all_days) {
    Read("Reserv", BookingsOf(*facility, days));
  }
}

void CurrentRows::Read(const std::string& table, const Query& query) {
  const std::vector<std::string>& columns = Columns(table);
  QueryResult result{query, {}};
  const auto rows = store_.Select(query);
  for (Row row; rows->Next(row);) {
    result.Rows.push_back(row);
    if (!known_[table].insert(row.Key).second) {
      continue;
    }
    FieldValues fields;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      fields.emplace_back(columns[i], row.Values[i]);
    }
    const std::string place = PlaceOf(table, fields);
    rows_[place].push_back({row, std::move(fields)});
  }
  seen_.push_back(std::move(result));
}

std::size_t CurrentRows::CountBookingsOf(std::int64_t facility) {
  Read("Reserv", BookingsOf(facility, {.AreAll = true}));
  std::size_t count = 0;
  for (const auto& [place, rows] : rows_) {
    if (place.starts_with("Reserv " + std::to_string(facility) + " ")) {
      count += static_cast<std::size_t>(
          std::count_if(rows.begin(), rows.end(), [](const Found& row) { return !row.IsTaken; }));
    }
  }
  return count;
}

const std::vector<CurrentRows::Found>& CurrentRows::Beside(const std::string& table,
                                                           const FieldValues& fields) {
  return rows_[PlaceOf(table, fields)];
}

const CurrentRows::Found* CurrentRows::Take(const std::string& table, const FieldValues& fields) {
  for (Found& found : rows_[PlaceOf(table, fields)]) {
    if (!found.IsTaken && HoldSame(table, fields, found.Fields)) {
      found.IsTaken = true;
      return &found;
    }
  }
  return nullptr;
}

const std::vector<std::string>& CurrentRows::Columns(const std::string& table) {
  const auto known = columns_.find(table);
  return known != columns_.end() ? known->second
                                 : columns_.emplace(table, store_.ColumnNames(table)).first->second;
}

}  // namespace veyra::modRes
