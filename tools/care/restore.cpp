#include "tools/care/restore.h"

#include <chrono>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "data/calendar_link.h"
#include "data/errors.h"
#include "data/open_file_store.h"
#include "data/open_note.h"
#include "data/posix_file.h"
#include "tools/calendar_rows.h"
#include "tools/care/check_files.h"
#include "tools/care/keep_copy.h"
#include "tools/file_moves.h"
#include "tools/unfinished_folder.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

/// Who has the calendar open has it open for hours: waiting is of no use.
constexpr std::chrono::milliseconds kWaitPolicy{200};

DatabaseBusyError SomebodyHasItOpen(const fs::path& calendar) {
  return DatabaseBusyError(
      {calendar.string(), Phrase::Tr("Somebody has the calendar open."),
       Phrase::Tr("Nothing was changed. Close it at every desk, and try again.")});
}

/// Throws unless the file holds the tables of a calendar.
void RequireCalendar(FileStore& store) {
  ReadFacilities(store);
  BookingReader(store, BookingsQuery({}));
}

/// A sound calendar is settled: what its log holds is put into the file. One that is damaged stays
/// as it is, log and all, when nobody has it open.
void Settle(const fs::path& calendar) {
  if (IsInUse(calendar)) {
    throw SomebodyHasItOpen(calendar);
  }
  try {
    OpenFileStore(calendar.string(), StoreAccess::Exclusive, kWaitPolicy);
  } catch (const DatabaseBusyError&) {
    throw SomebodyHasItOpen(calendar);
  } catch (const DatabaseError&) {
    // That it cannot be used is what the backup is for.
  }
}

/// A file in the place of the link would be this desk's alone, and the others would not know.
void RequireOwnCalendar(const fs::path& calendar) {
  if (LeadsToServer(calendar)) {
    throw DatabaseError(
        {calendar.string(), Phrase::Tr("The calendar is shared with other desks, on a server."),
         Phrase::Tr("Nothing was changed. To put a backup on the server, share it from another "
                    "folder into another schema, and let every desk's link lead there.")});
  }
}

using Moves = std::vector<std::pair<fs::path, fs::path>>;

void MoveBack(const Moves& moves) {
  for (const auto& [from, to] : moves) {
    std::error_code ignored;
    fs::rename(to, from, ignored);
  }
}

/// The first kept name that is free, also for every log.
fs::path FreeName(const fs::path& calendar, Date day) {
  int number = 1;
  const auto is_taken = [](const fs::path& name) {
    return fs::exists(fs::symlink_status(name)) || !LogsBeside(name).empty();
  };
  while (is_taken(KeptName(calendar, day, number))) {
    ++number;
  }
  return KeptName(calendar, day, number);
}

/// The logs go first: a file without its log may lack bookings, but a log without its file would be
/// replayed onto another.
Moves SetAside(const fs::path& calendar, const fs::path& kept) {
  Moves moves;
  std::vector<fs::path> files = LogsBeside(calendar);
  const fs::path note = OpenNoteName(calendar.string());
  if (fs::exists(fs::symlink_status(note))) {
    files.push_back(note);
  }
  files.push_back(calendar);
  for (const fs::path& file : files) {
    const fs::path to = kept.string() + file.string().substr(calendar.string().size());
    if (const int error = RenameWithoutReplacing(file, to); error != 0) {
      MoveBack(moves);
      throw FileError(
          {file.string(), Phrase::Tr("The old file could not be kept: %1.", SystemErrorText(error)),
           Phrase::Tr("Nothing was changed. Check that you may make files in the folder.")});
    }
    moves.emplace_back(file, to);
  }
  return moves;
}

}  // namespace

fs::path RestoreBackup(const fs::path& backup, const fs::path& calendar, Date day) {
  const auto source = OpenFileStore(backup.string(), StoreAccess::ReadOnly);
  RequireCalendar(*source);
  const UnfinishedFolder unfinished(calendar.parent_path());
  const fs::path fresh = unfinished.path() / calendar.filename();
  MakeCheckedCopy(*source, fresh, false);
  Moves moves;
  fs::path kept;
  if (fs::exists(calendar)) {
    RequireOwnCalendar(calendar);
    Settle(calendar);
    TakeOverRights(calendar, fresh);
    kept = FreeName(calendar, day);
    moves = SetAside(calendar, kept);
  } else if (!LogsBeside(calendar).empty()) {
    throw FileError({LogsBeside(calendar).front().string(),
                     Phrase::Tr("A log lies where no calendar is, and would be taken for the "
                                "restored one's."),
                     Phrase::Tr("Nothing was changed. Move it away first.")});
  }
  if (const int error = RenameWithoutReplacing(fresh, calendar); error != 0) {
    MoveBack(moves);
    throw FileError(
        {calendar.string(),
         Phrase::Tr("The backup could not be put there: %1.", SystemErrorText(error)),
         Phrase::Tr("Nothing was changed. Check that you may make files in the folder.")});
  }
  Flush(calendar.parent_path());
  return kept;
}

}  // namespace veyra
