#include "logic/stored_row.h"

#include <algorithm>

#include "data/connection.h"

namespace veyra::modRes {
namespace {

/// A file may keep a date as a text, and a whole number as any number.
bool IsSame(const Value& held, const Value& wanted) {
  if (const auto* day = std::get_if<Date>(&wanted)) {
    return ToDate(held) == *day;
  }
  const auto number = ToDouble(wanted);
  return held == wanted ||
         (number && !std::holds_alternative<std::string>(wanted) && ToDouble(held) == number);
}

bool Holds(Recordset& row, const FieldValues& fields) {
  return std::all_of(fields.begin(), fields.end(), [&row](const auto& field) {
    return IsSame(row.Field(field.first), field.second);
  });
}

}  // namespace

FieldValues FieldsOf(Recordset& rows, const std::vector<std::string>& columns) {
  FieldValues fields;
  for (const std::string& column : columns) {
    fields.emplace_back(column, rows.Field(column));
  }
  return fields;
}

void AddRow(Recordset& rows, const FieldValues& fields) {
  rows.AddNew();
  for (const auto& [column, value] : fields) {
    rows.SetField(column, value);
  }
  rows.Update();
}

Rows FindBooking(Session& session, const FieldValues& fields) {
  Rows bookings =
      session.ResCon->Open("SELECT * FROM Reserv Where RmID = " + std::to_string(session.CurRmID),
                           CursorType::StaticOptimistic);
  while (!bookings->AtEnd() && !Holds(*bookings, fields)) {
    bookings->MoveNext();
  }
  return bookings;
}

Phrase BookingOn(const std::optional<Date>& day) {
  return day ? Phrase::Tr("the booking on %1", DateText(*day))
             : Phrase::Tr("the booking without a date");
}

}  // namespace veyra::modRes
