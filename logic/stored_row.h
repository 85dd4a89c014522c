#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/date.h"
#include "data/recordset.h"
#include "logic/session.h"

namespace veyra::modRes {

/// A record set on one row of it, or at its end.
using Rows = std::unique_ptr<Recordset>;

/// The current row's values of these columns.
FieldValues FieldsOf(Recordset& rows, const std::vector<std::string>& columns);

/// Adds a row that holds these fields.
void AddRow(Recordset& rows, const FieldValues& fields);

/// A booking of facility CurRmID that holds these fields, to be changed; a record set at its end
/// when there is none. Throws DatabaseError.
Rows FindBooking(Session& session, const FieldValues& fields);

/// "the booking on 4/6/2014", or "the booking without a date".
Phrase BookingOn(const std::optional<Date>& day);

}  // namespace veyra::modRes
