#include "tests/fuzz/exchanged.h"

#include <cstdlib>

namespace veyra {

void RequireBookable(const Exchanged& exchanged) {
  for (const ExchangedBooking& booking : exchanged.Bookings) {
    const modRes::SlotRange slots = booking.Slots;
    if (slots.First < 1 || slots.Last < slots.First || slots.Last > 48 ||
        DateFromIsoText(IsoText(booking.Day)) != booking.Day) {
      std::abort();
    }
  }
}

std::string TextOf(const Exchanged& exchanged) {
  std::string text;
  for (const ExchangedBooking& booking : exchanged.Bookings) {
    text += booking.Facility + '|' + booking.Name + '|' + booking.Series + '|' +
            IsoText(booking.Day) + '|' + std::to_string(booking.Slots.First) + '|' +
            std::to_string(booking.Slots.Last) + '\n';
  }
  return text;
}

}  // namespace veyra
