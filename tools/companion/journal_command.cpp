#include "tools/companion/journal_command.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <memory>
#include <optional>
#include <utility>

#include "data/errors.h"
#include "data/open_file_store.h"
#include "logic/journal_actions.h"
#include "tools/care/prune_journal.h"
#include "tools/companion/data_folder.h"
#include "tools/local_time.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

constexpr int kMostYears = 1000;

struct Options {
  std::string What;
  std::string Folder;
  std::string Keep;
};

int DaysFor(char unit) {
  switch (unit) {
    case 'y':
      return 366;
    case 'w':
      return 7;
    default:
      return 1;
  }
}

/// "2y", "8w", "90d", "90".
int DaysOf(const std::string& length) {
  int number = 0;
  const char* const end = length.data() + length.size();
  const auto [stop, error] = std::from_chars(length.data(), end, number);
  const std::string unit(stop, end);
  const bool is_known = unit.empty() || unit == "d" || unit == "w" || unit == "y";
  if (error != std::errc{} || !is_known || number < 1 || number > kMostYears) {
    throw ValueError({{},
                      "\"" + OneLine(length) + "\" is not a time to keep entries for.",
                      "Write it as 2y, 8w or 90d."});
  }
  return number * DaysFor(unit.empty() ? 'd' : unit.front());
}

std::unique_ptr<FileStore> Open(const Options& options, const Surroundings& surroundings,
                                StoreAccess access) {
  return OpenFileStore(CalendarFile(options.Folder, surroundings.AppFolder).string(), access);
}

ExitStatus TellStatus(FileStore& store, std::ostream& out) {
  const std::vector<modRes::JournalAction> actions = modRes::ReadJournal(store);
  const bool is_kept = store.KeepsJournal();
  out << store.FileName() << ": The journal is " << (is_kept ? "kept" : "not kept") << "; it holds "
      << actions.size() << " actions";
  const auto since = actions.empty() ? std::nullopt : LocalTimeOf(actions.back().At);
  out << (since ? ", the first of " + DateTimeText(*since) : std::string()) << ".\n";
  return is_kept ? ExitStatus::Fine : ExitStatus::Found;
}

ExitStatus Switch(FileStore& store, bool on, std::ostream& out) {
  const bool was_on = store.KeepsJournal();
  if (on != was_on) {
    store.KeepJournal(on);
  }
  out << store.FileName() << ": The journal is " << (on ? "kept" : "not kept")
      << (on == was_on ? " already"
          : on         ? " from now on"
                       : " any more; what it holds stays")
      << ".\n";
  return on == was_on ? ExitStatus::Found : ExitStatus::Fine;
}

ExitStatus RunJournal(const Options& options, const Surroundings& surroundings, std::ostream& out) {
  const int days = options.Keep.empty() ? kJournalDays : DaysOf(options.Keep);
  const bool is_told = options.What == "status" && options.Keep.empty();
  const auto store =
      Open(options, surroundings, is_told ? StoreAccess::ReadOnly : StoreAccess::ReadWrite);
  ExitStatus status = options.What == "status" ? TellStatus(*store, out)
                                               : Switch(*store, options.What == "on", out);
  if (is_told) {
    return status;
  }
  const std::size_t removed = PruneJournal(*store, AddDays(surroundings.Now.Day, -days));
  if (removed > 0) {
    out << "Removed " << removed << " entries that are older than " << days << " days.\n";
    status = ExitStatus::Fine;
  }
  return status;
}

Command::Action Declare(CLI::App& app, const Surroundings& surroundings) {
  const auto options = std::make_shared<Options>();
  app.add_option("WHAT", options->What, "on, off or status")
      ->type_name("")
      ->required()
      ->check(CLI::IsMember({"on", "off", "status"}).description(""));
  AddDataFolder(app, options->Folder);
  app.add_option("--keep", options->Keep, "remove older entries: 2y (the default), 8w, 90d")
      ->type_name("LENGTH");
  return [options, surroundings](Streams& streams) {
    return RunJournal(*options, surroundings, streams.Out);
  };
}

}  // namespace

Command JournalCommand(Surroundings surroundings) {
  return {
      "journal", "Begin or end the journal that history and undo read",
      "A calendar that \"new\" made keeps one. With off, what it holds stays. The calendar may\n"
      "be open. Entries older than two years go, now and whenever \"undo\", \"restore\" or\n"
      "\"backup --rolling\" are done.\n"
      "Examples: veyra-data journal on ~/our-calendar\n"
      "          veyra-data journal status --keep 90d",
      [surroundings = std::move(surroundings)](CLI::App& app) {
        return Declare(app, surroundings);
      }};
}

}  // namespace veyra
