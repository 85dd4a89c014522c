#include "tools/calendar_rows.h"

#include <algorithm>

#include "data/errors.h"
#include "data/names.h"
#include "data/store_errors.h"
#include "data/text.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

constexpr std::size_t kIsoLength = 10;

std::size_t PlaceOf(Store& store, const std::string& table, const std::vector<std::string>& columns,
                    const char* column) {
  const auto place = FindName(columns, column);
  if (!place) {
    throw MissingColumn(store.FileName(), table, column);
  }
  return *place;
}

template <typename Fits>
std::vector<Facility> Filtered(const std::vector<Facility>& facilities, const Fits& fits) {
  std::vector<Facility> found;
  std::copy_if(facilities.begin(), facilities.end(), std::back_inserter(found), fits);
  return found;
}

std::string NamesOf(const std::vector<Facility>& facilities) {
  std::string names;
  for (const Facility& facility : facilities) {
    names += (names.empty() ? "" : ", ") + OneLine(facility.Name);
  }
  return names.empty() ? "The calendar has no facilities yet."
                       : "The facilities are: " + names + ".";
}

std::string DateLiteral(Date day) {
  return "#" + DateText(day) + "#";
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

std::vector<Facility> FacilitiesNamed(const std::vector<Facility>& facilities,
                                      const std::string& name) {
  auto found = Filtered(facilities, [&](const Facility& each) { return each.Name == name; });
  if (found.empty()) {
    const std::string upper = UpperCase(name);
    found =
        Filtered(facilities, [&](const Facility& each) { return UpperCase(each.Name) == upper; });
  }
  if (found.empty()) {
    throw ValueError({{}, "There is no facility \"" + OneLine(name) + "\".", NamesOf(facilities)});
  }
  return found;
}

Query BookingsQuery(const DayRange& days, std::optional<std::int64_t> facility) {
  std::vector<std::string> conditions;
  if (facility) {
    conditions.push_back("RmID = " + std::to_string(*facility));
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
  const auto group = group_ ? ToDouble(row_.Values[*group_]) : std::nullopt;
  booking.Group = group && *group > 0 ? group : std::nullopt;
  return true;
}

}  // namespace veyra
