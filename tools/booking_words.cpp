#include "tools/booking_words.h"

#include "tools/plain_text.h"

namespace veyra {

BookingWords::BookingWords(const std::vector<Facility>& facilities) {
  modRes::SlotLabels(labels_);
  for (const Facility& facility : facilities) {
    names_[facility.ID] = OneLine(facility.Name);
  }
}

std::string BookingWords::FacilityName(std::int64_t id) const {
  const auto name = names_.find(id);
  return name == names_.end() ? "no facility (" + std::to_string(id) + ")" : name->second;
}

std::string BookingWords::TimeAndName(const modRes::SlotRange& slots,
                                      const std::string& event) const {
  return modRes::RangeLabel(labels_, slots) + " " + OneLine(event);
}

std::string BookingWords::Of(const Booking& booking) const {
  return FacilityName(booking.RmID) + ", " + (booking.Day ? DateText(*booking.Day) : "no date") +
         ", " + TimeAndName(booking.Slots, booking.Event);
}

}  // namespace veyra
