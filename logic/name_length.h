#pragma once

#include <string>

#include "data/errors.h"
#include "logic/session.h"

namespace veyra {

/// A name that the calendar cannot hold. Nothing has been written.
class NameTooLongError : public Error {
 public:
  using Error::Error;
};

namespace modRes {

/// Why the calendar cannot hold the name of a booking, for the operator: "This name is 53
/// characters long; the calendar holds 50." Empty when it can. Throws DatabaseError.
Phrase BookingNameTooLong(Session& session, const std::string& name);

/// The same for the name of a facility.
Phrase FacilityNameTooLong(Session& session, const std::string& name);

/// The same while the name is typed. Empty, too, when the calendar cannot be asked: the operator is
/// told by the action that needs it, not at each key.
Phrase BookingNameHint(Session& session, const std::string& name);
Phrase FacilityNameHint(Session& session, const std::string& name);

/// Throws NameTooLongError when the calendar cannot hold the name of a booking.
void RequireBookingNameFits(Session& session, const std::string& name);

}  // namespace modRes
}  // namespace veyra
