#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "data/errors.h"
#include "tests/fuzz/exchanged.h"
#include "tools/exchange/csv_bookings.h"

/// The bookings of a CSV file are such as a calendar holds, and written as CSV they are the same
/// again; or the file is refused with a report.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const veyra::Date today = veyra::MakeDate(2014, 3, 15).value();
  try {
    const veyra::Exchanged read = veyra::BookingsOfCsv(text, today);
    veyra::RequireBookable(read);
    std::string written = veyra::CsvHead();
    for (const veyra::ExchangedBooking& booking : read.Bookings) {
      written += veyra::CsvOf(booking);
    }
    if (veyra::TextOf(veyra::BookingsOfCsv(written, today)) != veyra::TextOf(read)) {
      std::abort();
    }
  } catch (const veyra::ValueError&) {
    return 0;
  }
  return 0;
}
