#include "tools/companion/restore_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <utility>

#include "data/file_name.h"
#include "tools/care/restore.h"
#include "tools/companion/data_folder.h"
#include "tools/companion/folder_argument.h"
#include "tools/companion/parser_words.h"
#include "tools/plain_text.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

struct Options {
  std::string File;
  std::string Folder;
};

ExitStatus RunRestore(const Options& options, const Surroundings& surroundings,
                      const Streams& streams) {
  const fs::path backup = fs::absolute(NativePath(options.File));
  const fs::path calendar = CalendarFile(options.Folder, surroundings.AppFolder);
  const fs::path kept = RestoreBackup(backup, calendar, surroundings.Now.Day);
  streams.Tell(Phrase::Tr("%1 is %2 now, checked.", OneLine(calendar.string()),
                          OneLine(backup.filename().string())));
  if (!kept.empty()) {
    streams.Tell(
        Phrase::Tr("The file it replaces is kept as %1.", OneLine(kept.filename().string())));
  }
  return ExitStatus::Fine;
}

Command::Action Declare(CLI::App& app, const Surroundings& surroundings) {
  const auto options = std::make_shared<Options>();
  AddRequiredName(app, "FILE", options->File, Phrase::Tr("the backup; it stays where it is"));
  AddDataFolder(app, options->Folder);
  return [options, surroundings](Streams& streams) {
    return RunRestore(*options, surroundings, streams);
  };
}

}  // namespace

Command RestoreBackupCommand(Surroundings surroundings) {
  return {
      "restore-backup", Phrase::Tr("Put a backup in the place of the calendar"),
      Phrase::Tr("The backup is checked first. Nobody may have the calendar open. The file that it "
                 "replaces stays beside it as Calendar-before-DATE.mdb.") +
          Examples({"veyra-data restore-backup ~/our-calendar/backups/Calendar-2026-03-05.mdb"}),
      [surroundings = std::move(surroundings)](CLI::App& app) {
        return Declare(app, surroundings);
      }};
}

}  // namespace veyra
