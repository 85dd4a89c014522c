#include "data/postgres/server_errors.h"

#include <charconv>
#include <string_view>
#include <vector>

#include "data/errors.h"
#include "data/store_errors.h"

namespace veyra::postgres {

namespace {

constexpr const char* kNothingSaved = "Nothing was saved.";
constexpr const char* kAdministrator = "Ask whoever looks after the server.";

std::int64_t TakeNumber(std::string_view& text) {
  std::int64_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
  text.remove_prefix(text.starts_with(' ') ? 1 : 0);
  return number;
}

/// Reads what the guard says of the rows that stand there (server_sql.h).
std::vector<TakenTime> TakenTimes(std::string_view detail) {
  std::vector<TakenTime> taken;
  while (!detail.empty()) {
    const std::size_t end = detail.find('\x1e');
    std::string_view line = detail.substr(0, end);
    detail.remove_prefix(end == std::string_view::npos ? detail.size() : end + 1);
    TakenTime time;
    time.From = TakeNumber(line);
    time.To = TakeNumber(line);
    time.Name = line;
    taken.push_back(std::move(time));
  }
  return taken;
}

/// In the server's own words where this program has none.
Report InItsWords(const Failure& failure, const std::string& file) {
  return {file, "The calendar's server reports: " + failure.Message() + ".", kAdministrator,
          kNothingSaved};
}

[[noreturn]] void ThrowWaited(const Failure& failure, const std::string& file) {
  if (failure.State() == state::kCancelled) {
    throw WaitCancelledError({file, "The wait for another desk was ended.", {}});
  }
  throw DatabaseBusyError({file, "Another desk is changing the calendar and did not let go of it.",
                           "Wait a moment and try again."});
}

}  // namespace

void ThrowExplained(const Failure& failure, const std::string& file, const std::string& table) {
  const std::string& what = failure.State();
  if (what == state::kTaken) {
    throw TimeTakenError({file, "Somebody else has booked these times meanwhile.",
                          "Look at the bookings as they are now.", kNothingSaved},
                         TakenTimes(failure.Detail()));
  }
  if (what == state::kCancelled || what == state::kLockTimeout) {
    ThrowWaited(failure, file);
  }
  if (failure.IsOf(state::kConnection)) {
    throw DatabaseError(
        {file, "The connection to the calendar's server is lost: " + failure.Message() + ".",
         "Do it again: the program then connects anew.", kNothingSaved});
  }
  if (what == state::kNoTable && !table.empty()) {
    throw MissingTable(file, table);
  }
  if (failure.IsOf(state::kBadData)) {
    throw ValueRefusedError(InItsWords(failure, file));
  }
  if (what == state::kNoRight) {
    throw DatabaseError({file,
                         "You may not do this on the calendar's server: " + failure.Message() + ".",
                         kAdministrator, kNothingSaved});
  }
  if (what == state::kReadOnly) {
    throw DatabaseError(
        {file, "The calendar's server takes no changes now.", kAdministrator, kNothingSaved});
  }
  if (what == state::kDiskFull) {
    throw DatabaseError(
        {file, "The disk of the calendar's server is full.", kAdministrator, kNothingSaved});
  }
  throw DatabaseError(InItsWords(failure, file));
}

}  // namespace veyra::postgres
