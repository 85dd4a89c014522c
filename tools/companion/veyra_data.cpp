#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <vector>

#include "data/application_folder.h"
#include "logic/clock.h"
#include "tools/companion/backup_command.h"
#include "tools/companion/check_command.h"
#include "tools/companion/command_line.h"
#include "tools/companion/compact_command.h"
#include "tools/companion/convert_command.h"
#include "tools/companion/export_command.h"
#include "tools/companion/history_command.h"
#include "tools/companion/import_command.h"
#include "tools/companion/journal_command.h"
#include "tools/companion/link_command.h"
#include "tools/companion/list_command.h"
#include "tools/companion/new_command.h"
#include "tools/companion/rescue_command.h"
#include "tools/companion/restore_command.h"
#include "tools/companion/share_command.h"
#include "tools/companion/show_command.h"
#include "tools/companion/undo_command.h"
#include "tools/exchange/load_ical.h"
#include "tools/progress_lines.h"
#include "tools/translation.h"

namespace {

std::string ProgramFolder() {
  std::error_code unknown;
  return std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path().string();
}

veyra::DateTime UtcNow() {
  const std::time_t now = std::time(nullptr);
  std::tm utc{};
  gmtime_r(&now, &utc);
  return {veyra::MakeDate(utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday).value(), utc.tm_hour,
          utc.tm_min, utc.tm_sec};
}

std::vector<veyra::Command> Commands(const veyra::Surroundings& here) {
  const veyra::Date today = here.Now.Day;
  const auto ical = []() -> const veyra::IcalCodec& { return veyra::LoadIcal(ProgramFolder()); };
  return {veyra::NewCommand(today),
          veyra::ConvertCommand(today, here.Watch),
          veyra::ShareCommand(today, here.Watch),
          veyra::LinkCommand(),
          veyra::CompactCommand(today, here.Watch),
          veyra::ShowCommand(),
          veyra::ListCommand(here),
          veyra::CheckCommand(here),
          veyra::HistoryCommand(here),
          veyra::UndoCommand(here),
          veyra::RestoreCommand(here),
          veyra::JournalCommand(here),
          veyra::ExportCommand(here, UtcNow(), ical),
          veyra::ImportCommand(here, ical),
          veyra::BackupCommand(here),
          veyra::RestoreBackupCommand(here),
          veyra::RescueCommand(here.Watch)};
}

veyra::ExitStatus Run(const veyra::Arguments& arguments, const veyra::CopyObserver& watch,
                      veyra::Streams& streams) {
  const std::string app_folder = veyra::ApplicationFolder(ProgramFolder(), veyra::UserDataHome());
  return veyra::RunCommandLine(Commands({veyra::SystemClock().Now(), app_folder, watch}), arguments,
                               streams);
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  veyra::Streams streams{std::cin, std::cout, std::cerr,
                         veyra::TranslatorInto(veyra::WantedLanguages(std::getenv))};
  veyra::ProgressLines progress(std::cerr, std::chrono::steady_clock::now, streams.Language);
  const bool is_watched = isatty(STDERR_FILENO) == 1;
  const auto show = [&](const veyra::CopyStep& step) {
    if (is_watched) {
      progress.Show(step);
    }
  };
  const veyra::ExitStatus status = Run({argv + 1, argv + argc}, show, streams);
  if (!std::cout.flush()) {
    streams.Report(
        "veyra-data: " +
        veyra::Phrase::Tr("The output could not be written. Check that the disk has room."));
    return static_cast<int>(veyra::ExitStatus::Failed);
  }
  return static_cast<int>(status);
}
