#include "tools/day_listing.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

#include "data/text.h"
#include "logic/free_times.h"

namespace veyra {
namespace {

std::optional<std::size_t> PlaceOf(const std::vector<Facility>& facilities, std::int64_t id) {
  for (std::size_t i = 0; i < facilities.size(); ++i) {
    if (facilities[i].ID == id) {
      return i;
    }
  }
  return std::nullopt;
}

void AddBooking(const Booking& booking, const ListingRequest& request, const std::string& guest,
                DayListing& listing) {
  const auto place = PlaceOf(request.Facilities, booking.RmID);
  if (!place || !booking.Day || !request.Days.Holds(*booking.Day)) {
    return;
  }
  if (!guest.empty() && UpperCase(booking.Event).find(guest) == std::string::npos) {
    return;
  }
  listing[{*booking.Day, *place}].push_back({booking.Slots, booking.Event, booking.Group});
}

}  // namespace

DayListing ListBookings(Store& store, const ListingRequest& request) {
  std::vector<std::int64_t> only;
  if (request.Facilities.size() == 1) {
    only.push_back(request.Facilities.front().ID);
  }
  DayListing listing;
  const std::string guest = UpperCase(request.Guest);
  BookingReader reader(store, BookingsQuery(request.Days, only));
  for (Booking booking; reader.Next(booking);) {
    AddBooking(booking, request, guest, listing);
  }
  for (auto& [day, bookings] : listing) {
    std::stable_sort(bookings.begin(), bookings.end(), [](const Stretch& a, const Stretch& b) {
      return a.Slots.First < b.Slots.First;
    });
  }
  return listing;
}

DayListing ListFreeTimes(Store& store, const ListingRequest& request, int half_hours) {
  modRes::FreeTimeWish wish{.From = *request.Days.From,
                            .To = *request.Days.To,
                            .HalfHours = half_hours,
                            .Facilities = request.Facilities};
  std::fill(wish.Weekdays.begin(), wish.Weekdays.end(), true);
  modRes::FreeTimeFinder finder(store, std::numeric_limits<std::size_t>::max());
  finder.LookFor(std::move(wish));
  while (finder.WorkOn(std::chrono::hours{1})) {
  }
  DayListing listing;
  for (const modRes::FreeTime& free : finder.Found()) {
    listing[{free.Day, free.Place}].push_back({free.Slots, {}, {}});
  }
  return listing;
}

}  // namespace veyra
