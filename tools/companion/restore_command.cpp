#include "tools/companion/restore_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <utility>

#include "data/file_name.h"
#include "tools/care/restore.h"
#include "tools/companion/data_folder.h"
#include "tools/companion/folder_argument.h"
#include "tools/plain_text.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

struct Options {
  std::string File;
  std::string Folder;
};

ExitStatus RunRestore(const Options& options, const Surroundings& surroundings, std::ostream& out) {
  const fs::path backup = fs::absolute(NativePath(options.File));
  const fs::path calendar = CalendarFile(options.Folder, surroundings.AppFolder);
  const fs::path kept = RestoreBackup(backup, calendar, surroundings.Now.Day);
  out << OneLine(calendar.string()) << " is " << OneLine(backup.filename().string())
      << " now, checked.\n";
  if (!kept.empty()) {
    out << "The file it replaces is kept as " << OneLine(kept.filename().string()) << ".\n";
  }
  return ExitStatus::Fine;
}

Command::Action Declare(CLI::App& app, const Surroundings& surroundings) {
  const auto options = std::make_shared<Options>();
  AddRequiredName(app, "FILE", options->File, "the backup; it stays where it is");
  AddDataFolder(app, options->Folder);
  return [options, surroundings](Streams& streams) {
    return RunRestore(*options, surroundings, streams.Out);
  };
}

}  // namespace

Command RestoreBackupCommand(Surroundings surroundings) {
  return {"restore-backup", "Put a backup in the place of the calendar",
          "The backup is checked first. Nobody may have the calendar open. The file that it\n"
          "replaces stays beside it as Calendar-before-DATE.mdb.\n"
          "Example: veyra-data restore-backup ~/our-calendar/backups/Calendar-2026-03-05.mdb",
          [surroundings = std::move(surroundings)](CLI::App& app) {
            return Declare(app, surroundings);
          }};
}

}  // namespace veyra
