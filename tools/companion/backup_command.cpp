#include "tools/companion/backup_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <system_error>
#include <utility>

#include "data/errors.h"
#include "data/file_name.h"
#include "data/open_file_store.h"
#include "tools/care/keep_copy.h"
#include "tools/care/prune_journal.h"
#include "tools/care/rolling_backups.h"
#include "tools/companion/data_folder.h"
#include "tools/companion/parser_words.h"
#include "tools/plain_text.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

struct Options {
  std::string First;   ///< FILE; with --rolling, FOLDER.
  std::string Second;  ///< FOLDER.
  bool Rolling = false;
  bool Once = false;
};

std::unique_ptr<FileStore> OpenCalendar(const std::string& folder,
                                        const Surroundings& surroundings) {
  return OpenFileStore(CalendarFile(folder, surroundings.AppFolder).string(),
                       StoreAccess::ReadOnly);
}

ExitStatus MakeOne(const Options& options, const Surroundings& surroundings, Streams& streams) {
  if (options.First.empty()) {
    throw ValueError({{},
                      Phrase::Tr("The file to make is not named."),
                      Phrase::Tr("Name it, or say --rolling for a copy in the folder backups.")});
  }
  const fs::path copy = fs::absolute(NativePath(options.First));
  MakeCheckedCopy(*OpenCalendar(options.Second, surroundings), copy, false);
  streams.Tell(Phrase::Tr("Made and checked %1.", OneLine(copy.string())));
  return ExitStatus::Fine;
}

std::size_t DropOld(const fs::path& backups) {
  std::size_t dropped = 0;
  for (const Date day : BackupsToDrop(BackupDays(backups))) {
    std::error_code failure;
    dropped += fs::remove(BackupOf(backups, day), failure) ? 1U : 0U;
  }
  return dropped;
}

ExitStatus MakeRolling(const Options& options, const Surroundings& surroundings, Streams& streams) {
  const auto store = OpenCalendar(options.First, surroundings);
  const fs::path backups = fs::path(store->FileName()).parent_path() / kBackupFolder;
  const fs::path copy = BackupOf(backups, surroundings.Now.Day);
  if (options.Once && fs::exists(copy)) {
    streams.Tell(Phrase::Tr("%1 is there already; nothing was made.", OneLine(copy.string())));
    return ExitStatus::Found;
  }
  std::error_code failure;
  fs::create_directory(backups, failure);
  MakeCheckedCopy(*store, copy, true);
  const std::size_t dropped = DropOld(backups);
  const Date oldest = AddDays(surroundings.Now.Day, -kJournalDays);
  if (HasEntriesBefore(*store, oldest)) {
    PruneJournal(*OpenFileStore(store->FileName(), StoreAccess::ReadWrite), oldest);
  }
  streams.Tell(
      Phrase::Tr("Made and checked %1; %2 old copies removed.", OneLine(copy.string()), dropped));
  return ExitStatus::Fine;
}

Command::Action Declare(CLI::App& app, const Surroundings& surroundings) {
  const auto options = std::make_shared<Options>();
  app.add_option("FILE", options->First,
                 Meaning(Phrase::Tr("the copy to make; not given with --rolling")))
      ->type_name("");
  AddDataFolder(app, options->Second);
  app.add_flag(
      "--rolling", options->Rolling,
      Meaning(Phrase::Tr("today's copy, in the folder backups: seven days, four weeks, twelve "
                         "months stay")));
  app.add_flag("--once", options->Once,
               Meaning(Phrase::Tr("with --rolling: nothing when today's copy is there")));
  return [options, surroundings](Streams& streams) {
    return options->Rolling ? MakeRolling(*options, surroundings, streams)
                            : MakeOne(*options, surroundings, streams);
  };
}

}  // namespace

Command BackupCommand(Surroundings surroundings) {
  return {
      "backup", Phrase::Tr("Make a checked copy of the calendar, also while it is open"),
      Phrase::Tr(
          "The copy is checked, and appears under its name only when it is whole. A file that is "
          "there already is never written over; with --rolling, today's copy is made anew. "
          "Once there is a folder backups the calendar makes the day's first copy by itself.") +
          Examples({"veyra-data backup /media/stick/Calendar.mdb",
                    "veyra-data backup --rolling ~/our-calendar"}),
      [surroundings = std::move(surroundings)](CLI::App& app) {
        return Declare(app, surroundings);
      }};
}

}  // namespace veyra
