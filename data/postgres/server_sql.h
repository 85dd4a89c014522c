#pragma once

#include <string>
#include <vector>

#include "data/store.h"

namespace veyra::postgres {

/// What the server itself does for a shared calendar, in functions of the calendar's own schema.
///
/// The guard. Two desks never book the same half hour: a row of Reserv that would overlap a row of
/// the same facility and day (both ends included) which its desk has not seen is refused with
/// SQLSTATE VY001; DETAIL holds the rows that stand there. Desks are kept apart by a lock on the
/// facility's day that lasts as long as the transaction. What a desk has seen it tells in the
/// setting veyra.seen, "ROW FROM TO" with commas between them; rows that the transaction has
/// written itself are no hindrance. An exclusion constraint would be shorter, but knows only
/// always and never: rows that overlap on purpose, and old ones that are brought along, must stay.
///
/// The notices. Every change of a row of Rooms, Reserv and Settings is notified on the channel that
/// bears the schema's name. The payload is five words with a blank between them:
///
///   DESK TABLE KIND FACILITY DAY      "b7e10a Reserv INSERT 3 2026-03-05"
///
/// DESK is the setting veyra.desk of who did it, KIND is INSERT, UPDATE or DELETE, FACILITY the
/// RmID of a booking or the ID of a facility, DAY the day of a booking; "-" stands for none. A
/// booking that moves to another facility or day is told for both.

/// Makes the functions, in a schema that is there. Replaces those of an older version.
std::string FunctionsSql(const std::string& schema);

/// Makes a table's triggers, after its old ones are dropped; empty where it has none. A table that
/// lacks a column that they need has none.
std::string TriggersSql(const std::string& schema, const TableDefinition& table);

/// Everything that makes a calendar of these empty tables, and lets `role` read and write their
/// rows and do nothing else; the role itself is there already. For an administrator to look at and
/// to run.
std::string AdministratorSql(const std::string& schema, const std::string& role,
                             const std::vector<TableDefinition>& tables);

/// Locks these days of these facilities until the transaction ends, always in the same order, so
/// that no two transactions wait for each other: "{1,2}" and "{2026-03-05,2026-03-06}".
std::string LockDaysSql(const std::string& schema);

/// Tries to be the only one, or one of many, who has the calendar open for writing, until the
/// connection ends; gives whether that is so.
std::string OpenLockSql(const std::string& schema, bool alone);

}  // namespace veyra::postgres
