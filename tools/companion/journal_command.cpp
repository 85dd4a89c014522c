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
#include "tools/companion/parser_words.h"
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
                      Phrase::Tr("\"%1\" is not a time to keep entries for.", OneLine(length)),
                      Phrase::Tr("Write it as 2y, 8w or 90d.")});
  }
  return number * DaysFor(unit.empty() ? 'd' : unit.front());
}

std::unique_ptr<FileStore> Open(const Options& options, const Surroundings& surroundings,
                                StoreAccess access) {
  return OpenFileStore(CalendarFile(options.Folder, surroundings.AppFolder).string(), access);
}

/// `since` is the first action's day and time, or empty.
Phrase StatusOf(const std::string& file, bool is_kept, std::size_t actions,
                const std::string& since) {
  if (since.empty()) {
    return is_kept ? Phrase::Tr("%1: The journal is kept; it holds %2 actions.", file, actions)
                   : Phrase::Tr("%1: The journal is not kept; it holds %2 actions.", file, actions);
  }
  return is_kept ? Phrase::Tr("%1: The journal is kept; it holds %2 actions, the first of %3.",
                              file, actions, since)
                 : Phrase::Tr("%1: The journal is not kept; it holds %2 actions, the first of %3.",
                              file, actions, since);
}

ExitStatus TellStatus(FileStore& store, const Streams& streams) {
  const std::vector<modRes::JournalAction> actions = modRes::ReadJournal(store);
  const bool is_kept = store.KeepsJournal();
  const auto since = actions.empty() ? std::nullopt : LocalTimeOf(actions.back().At);
  streams.Tell(StatusOf(store.FileName(), is_kept, actions.size(),
                        since ? DateTimeText(*since) : std::string()));
  return is_kept ? ExitStatus::Fine : ExitStatus::Found;
}

Phrase Switched(const std::string& file, bool on, bool was_on) {
  if (on == was_on) {
    return on ? Phrase::Tr("%1: The journal is kept already.", file)
              : Phrase::Tr("%1: The journal is not kept already.", file);
  }
  return on ? Phrase::Tr("%1: The journal is kept from now on.", file)
            : Phrase::Tr("%1: The journal is not kept any more; what it holds stays.", file);
}

ExitStatus Switch(FileStore& store, bool on, const Streams& streams) {
  const bool was_on = store.KeepsJournal();
  if (on != was_on) {
    store.KeepJournal(on);
  }
  streams.Tell(Switched(store.FileName(), on, was_on));
  return on == was_on ? ExitStatus::Found : ExitStatus::Fine;
}

ExitStatus RunJournal(const Options& options, const Surroundings& surroundings,
                      const Streams& streams) {
  const int days = options.Keep.empty() ? kJournalDays : DaysOf(options.Keep);
  const bool is_told = options.What == "status" && options.Keep.empty();
  const auto store =
      Open(options, surroundings, is_told ? StoreAccess::ReadOnly : StoreAccess::ReadWrite);
  ExitStatus status = options.What == "status" ? TellStatus(*store, streams)
                                               : Switch(*store, options.What == "on", streams);
  if (is_told) {
    return status;
  }
  const std::size_t removed = PruneJournal(*store, AddDays(surroundings.Now.Day, -days));
  if (removed > 0) {
    streams.Tell(Phrase::Tr("Removed %1 entries that are older than %2 days.", removed, days));
    status = ExitStatus::Fine;
  }
  return status;
}

Command::Action Declare(CLI::App& app, const Surroundings& surroundings) {
  const auto options = std::make_shared<Options>();
  app.add_option("WHAT", options->What, Meaning(Phrase::Tr("on, off or status")))
      ->type_name("")
      ->required()
      ->check(CLI::IsMember({"on", "off", "status"}).description(""));
  AddDataFolder(app, options->Folder);
  app.add_option("--keep", options->Keep,
                 Meaning(Phrase::Tr("remove older entries: 2y (the default), 8w, 90d")))
      ->type_name("LENGTH");
  return [options, surroundings](Streams& streams) {
    return RunJournal(*options, surroundings, streams);
  };
}

}  // namespace

Command JournalCommand(Surroundings surroundings) {
  return {
      "journal", Phrase::Tr("Begin or end the journal that history and undo read"),
      Phrase::Tr(
          "A calendar that \"new\" made keeps one. With off, what it holds stays. The calendar may "
          "be open. Entries older than two years go, now and whenever \"undo\", \"restore\" or "
          "\"backup --rolling\" are done.") +
          Examples(
              {"veyra-data journal on ~/our-calendar", "veyra-data journal status --keep 90d"}),
      [surroundings = std::move(surroundings)](CLI::App& app) {
        return Declare(app, surroundings);
      }};
}

}  // namespace veyra
