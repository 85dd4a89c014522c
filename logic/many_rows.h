#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "data/recordset.h"
#include "logic/dialogs.h"

namespace veyra::modRes {

/// Visits every row of a static record set from where it stands, showing the progress under `text`
/// once it takes long. It cannot be stopped. Returns how many rows there were.
std::size_t ForEachRow(Recordset& rows, const std::string& text, Dialogs& dialogs,
                       const std::function<void()>& visit);

/// Deletes every row of a static record set, one by one: those deleted before a failure stay so.
/// Returns how many there were.
std::size_t DeleteAll(Recordset& bookings, Dialogs& dialogs);

}  // namespace veyra::modRes
