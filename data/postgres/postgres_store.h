#pragma once

#include <memory>
#include <string>

#include "data/calendar_in_making.h"
#include "data/calendar_link.h"
#include "data/store_access.h"
#include "data/waiting.h"

namespace veyra::postgres {

/// Opens the shared calendar that a link file leads to. What a role with no more than the right to
/// read and write rows may do is enough. `file` is the link's full name.
///
/// Rows come in the order in which they were given their numbers, texts are compared byte by byte,
/// and a text may be of any length, but holds no zero byte and nothing that is not UTF-8. A name
/// with a time of day is a date only: the server's columns are dates.
///
/// A connection that is lost is made anew by the next call. A booking in which others have come
/// first throws TimeTakenError (server_sql.h).
///
/// Throws DatabaseError when libpq is not on this machine, the link is refused (link_check.h), the
/// server cannot be reached or holds no calendar; DatabaseBusyError as OpenStore does. Of a program
/// that is built without this it always throws.
std::unique_ptr<Store> OpenPostgres(const CalendarLink& link, const std::string& file,
                                    StoreAccess access, const WaitPolicy& policy);

/// Begins a shared calendar, in a schema that is made unless it is there. Throws as OpenPostgres
/// does. `file` is what failures name.
std::unique_ptr<CalendarInMaking> CreateSharedCalendar(const CalendarLink& link,
                                                       const std::string& file,
                                                       const WaitPolicy& policy = {});

}  // namespace veyra::postgres
