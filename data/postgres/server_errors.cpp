#include "data/postgres/server_errors.h"

#include <charconv>
#include <string_view>
#include <vector>

#include "data/errors.h"
#include "data/store_errors.h"

namespace veyra::postgres {

namespace {

Phrase NothingSaved() {
  return Phrase::Tr("Nothing was saved.");
}

Phrase Administrator() {
  return Phrase::Tr("Ask whoever looks after the server.");
}

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
  return {file, Phrase::Tr("The calendar's server reports: %1.", failure.Message()),
          Administrator(), NothingSaved()};
}

[[noreturn]] void ThrowWaited(const Failure& failure, const std::string& file) {
  if (failure.State() == state::kCancelled) {
    throw WaitCancelledError({file, Phrase::Tr("The wait for another desk was ended."), {}});
  }
  throw DatabaseBusyError(
      {file, Phrase::Tr("Another desk is changing the calendar and did not let go of it."),
       Phrase::Tr("Wait a moment and try again.")});
}

}  // namespace

void ThrowExplained(const Failure& failure, const std::string& file, const std::string& table) {
  const std::string& what = failure.State();
  if (what == state::kTaken) {
    throw TimeTakenError({file, Phrase::Tr("Somebody else has booked these times meanwhile."),
                          Phrase::Tr("Look at the bookings as they are now."), NothingSaved()},
                         TakenTimes(failure.Detail()));
  }
  if (what == state::kCancelled || what == state::kLockTimeout) {
    ThrowWaited(failure, file);
  }
  if (failure.IsOf(state::kConnection)) {
    throw DatabaseError(
        {file,
         Phrase::Tr("The connection to the calendar's server is lost: %1.", failure.Message()),
         Phrase::Tr("Do it again: the program then connects anew."), NothingSaved()});
  }
  if (what == state::kNoTable && !table.empty()) {
    throw MissingTable(file, table);
  }
  if (failure.IsOf(state::kBadData)) {
    throw ValueRefusedError(InItsWords(failure, file));
  }
  if (what == state::kNoRight) {
    throw DatabaseError(
        {file, Phrase::Tr("You may not do this on the calendar's server: %1.", failure.Message()),
         Administrator(), NothingSaved()});
  }
  if (what == state::kReadOnly) {
    throw DatabaseError({file, Phrase::Tr("The calendar's server takes no changes now."),
                         Administrator(), NothingSaved()});
  }
  if (what == state::kDiskFull) {
    throw DatabaseError({file, Phrase::Tr("The disk of the calendar's server is full."),
                         Administrator(), NothingSaved()});
  }
  throw DatabaseError(InItsWords(failure, file));
}

}  // namespace veyra::postgres
