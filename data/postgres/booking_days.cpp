#include "data/postgres/booking_days.h"

#include "data/names.h"

namespace veyra::postgres {

namespace {

constexpr const char* kFacility = "RmID";
constexpr const char* kDay = "DateOfRes";

Value FieldIn(const FieldValues& fields, const char* name, const Value& otherwise) {
  for (const auto& [field, value] : fields) {
    if (SameName(field, name)) {
      return value;
    }
  }
  return otherwise;
}

void Add(const Value& facility, const Value& date, std::set<FacilityDay>& days) {
  const auto number = ToInteger(facility);
  const auto day = ToDate(date);
  if (number && day) {
    days.emplace(*number, *day);
  }
}

std::optional<Date> DayIn(const Comparison& comparison) {
  const auto* column = std::get_if<ColumnName>(&comparison.Left);
  const auto* value = std::get_if<Value>(&comparison.Right);
  const bool is_day = column != nullptr && value != nullptr && SameName(column->Name, kDay) &&
                      comparison.Test == Relation::Equal;
  return is_day ? ToDate(*value) : std::nullopt;
}

}  // namespace

bool HoldsBookings(const std::string& table) {
  return SameName(table, "Reserv");
}

std::optional<BookingColumns> FindBookingColumns(const std::string& table,
                                                 const std::vector<std::string>& columns) {
  const auto facility = FindName(columns, kFacility);
  const auto day = FindName(columns, kDay);
  const auto from = FindName(columns, "TimeFrom");
  const auto to = FindName(columns, "TimeTo");
  if (!HoldsBookings(table) || !facility || !day || !from || !to) {
    return std::nullopt;
  }
  return BookingColumns{.Facility = *facility, .Day = *day, .From = *from, .To = *to};
}

std::optional<Date> DayOf(const Query& query) {
  if (!query.Where) {
    return std::nullopt;
  }
  if (const auto* comparison = std::get_if<Comparison>(&*query.Where)) {
    return DayIn(*comparison);
  }
  const Junction& junction = std::get<Junction>(*query.Where);
  for (const Condition& part : junction.Parts) {
    const auto* comparison = std::get_if<Comparison>(&part);
    const auto day = comparison == nullptr ? std::nullopt : DayIn(*comparison);
    if (day && junction.By == Junction::Kind::And) {
      return day;
    }
  }
  return std::nullopt;
}

void AddDay(const FieldValues& fields, std::set<FacilityDay>& days) {
  Add(FieldIn(fields, kFacility, Null{}), FieldIn(fields, kDay, Null{}), days);
}

void AddDay(const Row& before, const BookingColumns& columns, const FieldValues& fields,
            std::set<FacilityDay>& days) {
  Add(FieldIn(fields, kFacility, before.Values.at(columns.Facility)),
      FieldIn(fields, kDay, before.Values.at(columns.Day)), days);
}

}  // namespace veyra::postgres
