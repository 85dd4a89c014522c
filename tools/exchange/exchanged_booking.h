#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/date.h"
#include "data/phrase.h"
#include "logic/slots.h"

namespace veyra {

/// A booking on its way into a calendar or out of it.
struct ExchangedBooking {
  std::string Facility = {};  ///< Its name; empty when the file names none.
  std::string Name = {};
  Date Day{};
  modRes::SlotRange Slots = {};  ///< 1 to 48, the first not after the last.
  std::string Series = {};  ///< What the bookings of one group have in common; empty for none. The
                            ///< fourteen digits of a group key stand for that key.
  Phrase Place = {};        ///< Where in the file it stands: "line 12".
};

/// What was read from a file.
struct Exchanged {
  std::vector<ExchangedBooking> Bookings;
  std::vector<Phrase> Notes;  ///< What was changed on the way: sentences.
};

}  // namespace veyra
