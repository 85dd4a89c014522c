#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "data/errors.h"
#include "tests/fuzz/exchanged.h"
#include "tools/exchange/ical_read.h"
#include "tools/exchange/ical_write.h"

namespace {

const std::vector<std::string> kFacilities{"Pool", "Hall"};

/// Two months: a repetition has its end.
veyra::DayRange Days() {
  return {veyra::MakeDate(2014, 3, 1), veyra::MakeDate(2014, 4, 30)};
}

/// When the bookings take place. Their texts may come back without what no text may hold.
std::string TimesOf(const veyra::Exchanged& exchanged) {
  veyra::Exchanged bare = exchanged;
  for (veyra::ExchangedBooking& booking : bare.Bookings) {
    booking.Facility = booking.Name = booking.Series = {};
  }
  return veyra::TextOf(bare);
}

std::string Written(const veyra::Exchanged& exchanged) {
  const veyra::DateTime stamp{veyra::MakeDate(2014, 3, 15).value(), 12, 0, 0};
  std::string text = veyra::IcalHead();
  for (const veyra::ExchangedBooking& booking : exchanged.Bookings) {
    text += veyra::IcalOf(booking, 0, stamp);
  }
  return text + veyra::IcalEnd();
}

}  // namespace

/// The bookings of an iCalendar file are such as a calendar holds, and what is written of them can
/// be read again; or the file is refused with a report.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  veyra::Exchanged read;
  try {
    read = veyra::BookingsOfIcal(text, Days(), kFacilities);
  } catch (const veyra::ValueError&) {
    return 0;
  }
  veyra::RequireBookable(read);
  if (TimesOf(veyra::BookingsOfIcal(Written(read), {}, kFacilities)) != TimesOf(read)) {
    std::abort();
  }
  return 0;
}
