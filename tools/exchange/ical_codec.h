#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "data/errors.h"
#include "tools/calendar_rows.h"
#include "tools/exchange/exchanged_booking.h"

namespace veyra {

/// What came of reading a file.
struct IcalAnswer {
  Exchanged Read;
  std::optional<Report> Failure;
};

/// Reading and writing iCalendar, which takes large libraries: it lies in a module of its own that
/// is loaded when it is needed, so that every other command starts at once. The functions are those
/// of ical_write.h and ical_read.h. Program and module each have their own C++ library, so that
/// nothing is thrown from one to the other.
struct IcalCodec {
  std::string (*Head)();
  std::string (*Of)(const ExchangedBooking& booking, int copies, const DateTime& stamp);
  std::string (*End)();
  IcalAnswer (*Read)(const std::string& text, const DayRange& days,
                     const std::vector<std::string>& facilities);
};

/// Gives the codec, loading it when it is first asked. Throws FileError when it is not there.
using IcalSource = std::function<const IcalCodec&()>;

/// The function by which the module gives its codec.
inline constexpr const char* kIcalEntry = "VeyraIcalCodec";

}  // namespace veyra
