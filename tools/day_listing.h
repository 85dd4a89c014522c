#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tools/calendar_rows.h"

namespace veyra {

/// A stretch of one facility's day: a booking, or a time that is free.
struct Stretch {
  modRes::SlotRange Slots = {};
  std::optional<std::string> Event = {};  ///< Nothing for a time that is free.
  std::optional<double> Group = {};       ///< Of a booking that belongs to one.
};

/// By day and facility, the facilities in the order in which they were handed in.
using DayListing = std::map<std::pair<Date, std::size_t>, std::vector<Stretch>>;

/// What a listing is to hold.
struct ListingRequest {
  DayRange Days = {};
  std::vector<Facility> Facilities = {};
  std::string Guest = {};  ///< Only bookings whose name has this in it, in any letter case.
};

/// The bookings of each day in the order in which a month cell lists them. Throws DatabaseError.
DayListing ListBookings(Store& store, const ListingRequest& request);

/// The times of at least `half_hours` that no booking takes, for every day of the range and every
/// facility. REQUIRES: both ends of the range are given.
DayListing ListFreeTimes(Store& store, const ListingRequest& request, int half_hours);

}  // namespace veyra
