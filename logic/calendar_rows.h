#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/store.h"
#include "logic/slots.h"

namespace veyra {

/// A row of Rooms.
struct Facility {
  std::int64_t ID = 0;
  std::string Name = {};
  bool Active = false;
  Row Stored = {};
};

/// A row of Reserv, as far as it can be understood.
struct Booking {
  std::int64_t RmID = 0;  ///< 0 when it names no facility.
  std::string Event = {};
  std::optional<Date> Day = {};  ///< Nothing when it is not a date.
  bool DayHasTime = false;       ///< A time of day stands with the date, as no calendar writes it.
  modRes::SlotRange Slots = {};  ///< A bound that is not a slot is 0.
  modRes::SlotRange Rows = {};   ///< Of the day grid: those that it covers, as RowsOf tells.
  std::optional<double> Group = {};  ///< MultKey, of a booking that belongs to a group.
};

/// Every facility, in the table's order. Throws DatabaseError.
std::vector<Facility> ReadFacilities(Store& store);

/// A range of days; an end that is not given is not bounded.
struct DayRange {
  std::optional<Date> From = {};
  std::optional<Date> To = {};  ///< Included.

  bool Holds(Date day) const { return (!From || *From <= day) && (!To || day <= *To); }
};

/// The bookings of these days, of these facilities or, when none is named, of all. Those of others
/// may be among them when there are too many to be named.
Query BookingsQuery(const DayRange& days, const std::vector<std::int64_t>& facilities = {});

/// The bookings that a query over Reserv gives, one after another.
class BookingReader {
 public:
  /// Throws DatabaseError, also when a column is missing; an old calendar may lack MultKey.
  BookingReader(Store& store, const Query& query);

  /// Reads the next booking and returns true; returns false after the last.
  bool Next(Booking& booking);

  /// The row that the last booking was read from.
  const Row& Stored() const { return row_; }

 private:
  std::size_t Place(Store& store, const char* column) const;

  std::vector<std::string> columns_;
  std::size_t room_;
  std::size_t event_;
  std::size_t day_;
  std::size_t from_;
  std::size_t to_;
  std::optional<std::size_t> group_;
  std::unique_ptr<RowSource> source_;
  Row row_;
};

}  // namespace veyra
