#pragma once

#include <string>

namespace veyra::modRes {

/// The words in which the operator is told of an action; whole sentences, but for the first three.
struct RowActionWords {
  std::string Progress;    ///< "Booking ..."
  std::string Done;        ///< After "8 of 30 ": "dates are booked."
  std::string PassedOver;  ///< Before a number: "Left out because of other bookings: ".
  std::string Continue;    ///< What "Continue" does.
  std::string Undo;        ///< What "Undo" does.
  std::string Undone;      ///< That it was done.
};

}  // namespace veyra::modRes
