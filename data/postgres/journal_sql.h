#pragma once

#include <string>

#include "data/postgres/catalogue.h"

namespace veyra::postgres {

/// The journal (data/journal.h) is entered by triggers, whichever program makes a change. One that
/// sets veyra.desk is this program: it gives the action's name in veyra.action, and the number of
/// its first entry in veyra.action_id, which is empty before there is one and is set by that entry
/// for the rest of the transaction.

/// Makes the trigger of a table anew, in its columns as they are now.
std::string EnterChangesSql(const std::string& schema, const Table& table);

/// Removes it, if it is there.
std::string EnterNothingSql(const std::string& schema, const std::string& table);

/// Whether any table of the schema $1 has such a trigger.
extern const char* const kKeepsJournalSql;

}  // namespace veyra::postgres
