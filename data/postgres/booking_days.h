#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "data/postgres/seen_rows.h"
#include "data/store.h"

namespace veyra::postgres {

/// Whether the table is the one whose rows are bookings.
bool HoldsBookings(const std::string& table);

/// Where a booking's fields stand; nothing when one is missing, or the table holds none.
std::optional<BookingColumns> FindBookingColumns(const std::string& table,
                                                 const std::vector<std::string>& columns);

/// A day, of one facility or of all.
struct WholeDay {
  Date Day{};
  std::optional<std::int64_t> Facility;
};

/// The day to which a query confines itself, and the facility if it names one, whatever else it
/// asks; nothing when it does not.
std::optional<WholeDay> DayOf(const Query& query);

/// Adds the facility's day of a booking that is added, or of a row as it was read that is changed
/// so, to `days`.
void AddDay(const FieldValues& fields, std::set<FacilityDay>& days);
void AddDay(const Row& before, const BookingColumns& columns, const FieldValues& fields,
            std::set<FacilityDay>& days);

}  // namespace veyra::postgres
