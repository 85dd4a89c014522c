#include "logic/many_rows.h"

#include <cstdint>

namespace veyra::modRes {

std::size_t ForEachRow(Recordset& rows, const std::string& text, Dialogs& dialogs,
                       const std::function<void()>& visit) {
  const std::size_t count = rows.RecordCount();
  const auto progress = dialogs.StartProgress(text, EarlyEnd::None);
  for (std::int64_t done = 0; !rows.AtEnd(); rows.MoveNext(), ++done) {
    progress->Report(done, static_cast<std::int64_t>(count));
    visit();
  }
  return count;
}

std::size_t DeleteAll(Recordset& bookings, Dialogs& dialogs) {
  return ForEachRow(bookings, "Deleting bookings ...", dialogs, [&] { bookings.Delete(); });
}

}  // namespace veyra::modRes
