#pragma once

#include "data/errors.h"
#include "logic/dialogs.h"
#include "logic/session.h"

namespace veyra::modRes {

/// What the operator is told whose single booking another desk came before: who has booked which
/// times, a line each.
Message TimesTaken(const Session& session, const TimeTakenError& taken);

}  // namespace veyra::modRes
