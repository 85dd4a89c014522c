#include "tools/booking_words.h"

#include "tools/plain_text.h"

namespace veyra {

BookingWords::BookingWords(const std::vector<Facility>& facilities) {
  modRes::SlotLabels(labels_);
  for (const Facility& facility : facilities) {
    names_[facility.ID] = OneLine(facility.Name);
  }
}

Phrase BookingWords::FacilityName(std::int64_t id) const {
  const auto name = names_.find(id);
  return name == names_.end() ? Phrase::Tr("no facility (%1)", id) : name->second;
}

std::string BookingWords::TimeAndName(const modRes::SlotRange& slots,
                                      const std::string& event) const {
  return modRes::RangeLabel(labels_, slots) + " " + OneLine(event);
}

Phrase BookingWords::Of(const Booking& booking) const {
  return FacilityName(booking.RmID) + ", " +
         (booking.Day ? Phrase(DateText(*booking.Day)) : Phrase::Tr("no date")) + ", " +
         TimeAndName(booking.Slots, booking.Event);
}

}  // namespace veyra
