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

/// What a condition demands of a column: that it equals this; nothing when it demands none.
std::optional<Value> Demanded(const Condition& condition, const char* name) {
  const auto* comparison = std::get_if<Comparison>(&condition);
  if (comparison == nullptr || comparison->Test != Relation::Equal) {
    return std::nullopt;
  }
  const auto* column = std::get_if<ColumnName>(&comparison->Left);
  const auto* value = std::get_if<Value>(&comparison->Right);
  const bool is_demanded = column != nullptr && value != nullptr && SameName(column->Name, name);
  return is_demanded ? std::optional(*value) : std::nullopt;
}

/// The same of a query, whatever else it demands.
Value DemandedOf(const Query& query, const char* name) {
  const auto* junction = query.Where ? std::get_if<Junction>(&*query.Where) : nullptr;
  if (junction == nullptr) {
    return query.Where ? Demanded(*query.Where, name).value_or(Null{}) : Null{};
  }
  for (const Condition& part : junction->Parts) {
    const auto value = Demanded(part, name);
    if (value && junction->By == Junction::Kind::And) {
      return *value;
    }
  }
  return Null{};
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

std::optional<WholeDay> DayOf(const Query& query) {
  const auto day = ToDate(DemandedOf(query, kDay));
  return day ? std::optional(
                   WholeDay{.Day = *day, .Facility = ToInteger(DemandedOf(query, kFacility))})
             : std::nullopt;
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
