#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/date.h"
#include "data/store.h"

namespace veyra::postgres {

/// A facility's day.
using FacilityDay = std::pair<std::int64_t, Date>;

/// Where the fields of a booking stand in the rows of Reserv.
struct BookingColumns {
  std::size_t Facility = 0;
  std::size_t Day = 0;
  std::size_t From = 0;
  std::size_t To = 0;
};

/// The bookings that this desk knows of: those that it has read and those that it has made. No more
/// than kMostRows; then the days that it has not met for the longest time are forgotten, so that
/// the server takes their bookings for unseen.
class SeenRows {
 public:
  static constexpr std::size_t kMostRows = 50'000;

  /// Notes a booking, with the times at which it stands now. A row that lacks a facility or a day
  /// is none.
  void Note(const Row& row, const BookingColumns& columns);

  /// What the guard (server_sql.h) is told of these days.
  std::string On(const std::set<FacilityDay>& days) const;

 private:
  struct Booking {
    std::int64_t From = 0;
    std::int64_t To = 0;
  };
  struct Noted {
    std::unordered_map<RowKey, Booking> Rows;
    std::list<FacilityDay>::iterator Place;
  };

  Noted& OnDay(const FacilityDay& day);
  void ForgetOldest();

  std::map<FacilityDay, Noted> days_;
  std::list<FacilityDay> order_;  ///< The day met last at the back.
  std::size_t rows_ = 0;
};

}  // namespace veyra::postgres
