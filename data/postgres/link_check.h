#pragma once

#include <string>

#include "data/calendar_link.h"

namespace veyra::postgres {

/// What a link says of the way to its server.
struct LinkFacts {
  bool IsRemote = false;  ///< It names a host that is not this machine.
  bool NamesTls = false;  ///< It says itself whether and how the connection is encrypted.
  std::string Tls;        ///< libpq's sslmode that holds: what it says, else "verify-full" for a
                          ///< remote host; empty where that is left to libpq and its files.
};

/// Whether a host, or each of several with commas between them, is this machine: a folder of
/// sockets, "localhost", an address of the loop, or none at all.
bool IsThisMachine(const std::string& hosts);

/// Reads the link's server as libpq does. Throws DatabaseError, which names `file`, when libpq does
/// not understand it or is not on this machine, and when there is a password in it: everybody who
/// may read the link would have it.
LinkFacts CheckLink(const std::string& file, const CalendarLink& link);

}  // namespace veyra::postgres
