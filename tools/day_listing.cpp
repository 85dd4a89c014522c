#include "tools/day_listing.h"

#include <algorithm>
#include <array>

#include "data/text.h"

namespace veyra {
namespace {

using modRes::kFirstSlot;
using modRes::kLastSlot;
using modRes::TimeSlot;

/// By slot, whether it is taken; entry 0 is not used.
using TakenSlots = std::array<bool, kLastSlot + 1>;

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

TakenSlots TakenBy(const std::vector<Stretch>& bookings) {
  TakenSlots taken{};
  for (const Stretch& booking : bookings) {
    const TimeSlot first = std::max(booking.Slots.First, kFirstSlot);
    for (TimeSlot slot = first; slot <= booking.Slots.Last; ++slot) {
      taken.at(static_cast<std::size_t>(slot)) = true;
    }
  }
  return taken;
}

std::vector<Stretch> FreeOf(const TakenSlots& taken, int half_hours) {
  std::vector<Stretch> free;
  TimeSlot first = kFirstSlot;
  for (TimeSlot slot = kFirstSlot; slot <= kLastSlot + 1; ++slot) {
    if (slot <= kLastSlot && !taken.at(static_cast<std::size_t>(slot))) {
      continue;
    }
    if (slot - first >= half_hours) {
      free.push_back({{first, slot - 1}, {}, {}});
    }
    first = slot + 1;
  }
  return free;
}

}  // namespace

DayListing ListBookings(Store& store, const ListingRequest& request) {
  std::optional<std::int64_t> only;
  if (request.Facilities.size() == 1) {
    only = request.Facilities.front().ID;
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
  ListingRequest everybody = request;
  everybody.Guest.clear();
  const DayListing bookings = ListBookings(store, everybody);
  DayListing free;
  for (Date day = *request.Days.From; day <= *request.Days.To; day = AddDays(day, 1)) {
    for (std::size_t i = 0; i < request.Facilities.size(); ++i) {
      const auto booked = bookings.find({day, i});
      const TakenSlots taken = booked == bookings.end() ? TakenSlots{} : TakenBy(booked->second);
      auto stretches = FreeOf(taken, half_hours);
      if (!stretches.empty()) {
        free.emplace(std::pair{day, i}, std::move(stretches));
      }
    }
  }
  return free;
}

}  // namespace veyra
