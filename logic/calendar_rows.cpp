#include "logic/calendar_rows.h"

#include "data/names.h"

namespace veyra {
namespace {

constexpr std::size_t kIsoLength = 10;

/// With more facilities than these the condition is no longer the quicker way to their bookings.
constexpr std::size_t kMostNamed = 200;

std::size_t PlaceOf(Store& store, const std::string& table, const std::vector<std::string>& columns,
                    const char* column) {
  const auto place = FindName(columns, column);
  if (!place) {
    throw store.NoSuchColumn(table, column);
  }
  return *place;
}

std::string DateLiteral(Date day) {
  return "#" + DateText(day) + "#";
}

std::string OneOf(const std::vector<std::int64_t>& facilities) {
  std::string condition;
  for (const std::int64_t facility : facilities) {
    condition += (condition.empty() ? "(RmID = " : " OR RmID = ") + std::to_string(facility);
  }
  return condition + ")";
}

}  // namespace

std::vector<Facility> ReadFacilities(Store& store) {
  const std::vector<std::string> columns = store.ColumnNames("Rooms");
  const std::size_t id = PlaceOf(store, "Rooms", columns, "ID");
  const std::size_t name = PlaceOf(store, "Rooms", columns, "Name");
  const std::size_t active = PlaceOf(store, "Rooms", columns, "Active");
  std::vector<Facility> facilities;
  const auto rows = store.Select(ParseQuery("SELECT * FROM Rooms"));
  for (Row row; rows->Next(row);) {
    facilities.push_back({.ID = ToInteger(row.Values[id]).value_or(0),
                          .Name = ToText(row.Values[name]),
                          .Active = ToInteger(row.Values[active]) == 1,
                          .Stored = row});
  }
  return facilities;
}

Query BookingsQuery(const DayRange& days, const std::vector<std::int64_t>& facilities) {
  std::vector<std::string> conditions;
  if (!facilities.empty() && facilities.size() <= kMostNamed) {
    conditions.push_back(OneOf(facilities));
  }
  if (days.From) {
    conditions.push_back("DateOfRes >= " + DateLiteral(*days.From));
  }
  // A day with a time of day lies before the day that follows it.
  if (days.To && YearOf(AddDays(*days.To, 1)) <= kLastYear) {
    conditions.push_back("DateOfRes < " + DateLiteral(AddDays(*days.To, 1)));
  }
  std::string sql = "SELECT * FROM Reserv";
  for (std::size_t i = 0; i < conditions.size(); ++i) {
    sql += (i == 0 ? " WHERE " : " AND ") + conditions[i];
  }
  return ParseQuery(sql);
}

BookingReader::BookingReader(Store& store, const Query& query)
    : columns_(store.ColumnNames("Reserv")),
      room_(Place(store, "RmID")),
      event_(Place(store, "Event")),
      day_(Place(store, "DateOfRes")),
      from_(Place(store, "TimeFrom")),
      to_(Place(store, "TimeTo")),
      group_(FindName(columns_, "MultKey")),
      source_(store.Select(query)) {}

std::size_t BookingReader::Place(Store& store, const char* column) const {
  return PlaceOf(store, "Reserv", columns_, column);
}

bool BookingReader::Next(Booking& booking) {
  if (!source_->Next(row_)) {
    return false;
  }
  booking.RmID = ToInteger(row_.Values[room_]).value_or(0);
  booking.Event = ToText(row_.Values[event_]);
  booking.Day = ToDate(row_.Values[day_]);
  const auto* text = std::get_if<std::string>(&row_.Values[day_]);
  booking.DayHasTime = text != nullptr && text->size() > kIsoLength;
  booking.Slots = {modRes::SlotOf(row_.Values[from_]), modRes::SlotOf(row_.Values[to_])};
  booking.Rows = modRes::RowsOf(row_.Values[from_], row_.Values[to_]);
  const auto group = group_ ? ToDouble(row_.Values[*group_]) : std::nullopt;
  booking.Group = group && *group > 0 ? group : std::nullopt;
  return true;
}

}  // namespace veyra
