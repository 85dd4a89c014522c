#include "logic/day_board.h"

#include <cstdint>
#include <map>

#include "logic/calendar_rows.h"

namespace veyra::modRes {

DayBoard ReadDayBoard(Store& store, Date day) {
  DayBoard board{day, {}};
  std::vector<std::int64_t> ids;
  std::map<std::int64_t, std::size_t> places;
  for (const Facility& facility : ReadFacilities(store)) {
    places.emplace(facility.ID, ids.size());
    ids.push_back(facility.ID);
    board.Columns.push_back({facility.Name, {}});
  }
  Query query = BookingsQuery({day, day}, ids);
  query.OrderBy = {{"TimeFrom"}};
  BookingReader reader(store, query);
  for (Booking booking; reader.Next(booking);) {
    const auto place = places.find(booking.RmID);
    if (place == places.end() || booking.Day != day) {
      continue;
    }
    board.Columns.at(place->second)
        .Grid.Add(booking.Rows.First, booking.Rows.Last, booking.Event, booking.Group);
  }
  return board;
}

}  // namespace veyra::modRes
