#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "data/calendar_in_making.h"
#include "data/calendar_link.h"

namespace veyra {

/// Begins a shared calendar where the link leads to, in a schema that is made unless it is there.
/// `file` is what failures name. Throws as OpenStore does for a link.
std::unique_ptr<CalendarInMaking> BeginSharedCalendar(const std::filesystem::path& file,
                                                      const CalendarLink& link);

/// What an administrator runs to make an empty calendar whose rows `role`, which is there already,
/// may read and write.
std::string SharedCalendarSql(const std::string& schema, const std::string& role);

/// What there is to be said of a link to another machine that does not have the server proved to be
/// the right one; empty where all is well. Throws DatabaseError, naming `file`, when the link
/// cannot be used or holds a password.
Phrase LinkWarning(const std::filesystem::path& file, const CalendarLink& link);

}  // namespace veyra
