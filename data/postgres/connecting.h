#pragma once

#include <string>
#include <string_view>

#include "data/calendar_link.h"
#include "data/postgres/libpq.h"
#include "data/postgres/link_check.h"
#include "data/waiting.h"

namespace veyra::postgres {

/// What is needed to reach a server.
struct Address {
  std::string File;  ///< The full name of the link file.
  CalendarLink Link;
  LinkFacts Facts;  ///< What CheckLink says of the link.
};

/// Makes a connection, which the caller must finish. Throws DatabaseError when the server cannot be
/// reached, or is another machine and nothing says how to be sure of it, WaitCancelledError when
/// the policy's observer ends the wait.
PGconn* Connect(const Libpq& libpq, const Address& address, const WaitPolicy& policy);

/// The first line of what libpq or the server says, without the full stop.
std::string FirstLine(std::string_view text);

}  // namespace veyra::postgres
