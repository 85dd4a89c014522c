#pragma once

#include "data/postgres/session.h"
#include "data/store_access.h"

namespace veyra::postgres {

struct Greeting {
  StoreAccess Access = StoreAccess::ReadWrite;
  bool SchemaIsThere = true;  ///< If not, it is about to be made.
};

/// What a new connection is set to before anything else is asked of it, and whether the calendar is
/// there and free. Throws DatabaseError, DatabaseBusyError, Failure.
void Greet(Session& session, const Greeting& greeting);

}  // namespace veyra::postgres
