#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/date.h"

namespace veyra {

/// A booking of a sample calendar.
struct SampleBooking {
  std::size_t Facility = 0;  ///< Its place in SampleData::Facilities, from 0.
  std::string Event;         ///< At most 50 characters.
  Date Day{};
  int TimeFrom = 0;                     ///< First half hour, 1 to 48.
  int TimeTo = 0;                       ///< Last half hour, included, TimeFrom to 48.
  std::optional<std::int64_t> MultKey;  ///< The fourteen digits that the dates of a class share.
};

/// What a newcomer's first calendar holds, so that no window is empty: the rooms of a community
/// centre, its guests, weekly classes and single bookings over three months.
struct SampleData {
  std::vector<std::string> Facilities;
  std::size_t ActiveFacility = 0;  ///< Its place in Facilities, from 0.
  std::vector<std::string> Guests;
  std::vector<SampleBooking> Bookings;  ///< In the order they were made, classes first.
};

/// The sample for last month, this month and next, as seen from `today`: always the same for the
/// same month. No two bookings of a facility overlap. All names are invented.
SampleData MakeSampleData(Date today);

}  // namespace veyra
