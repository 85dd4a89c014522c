#pragma once

#include "data/phrase.h"

namespace veyra::modRes {

/// The words in which the operator is told of an action; whole sentences, but for the first three.
struct RowActionWords {
  Phrase Progress;    ///< "Booking ..."
  Phrase Done;        ///< After "8 of 30 ": "dates are booked."
  Phrase PassedOver;  ///< Before a number: "Left out because of other bookings: ".
  Phrase Continue;    ///< What "Continue" does.
  Phrase Undo;        ///< What "Undo" does.
  Phrase Undone;      ///< That it was done.
};

}  // namespace veyra::modRes
