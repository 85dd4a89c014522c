#include "tools/companion/undo_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <utility>

#include "data/errors.h"
#include "data/open_file_store.h"
#include "logic/undo.h"
#include "tools/care/prune_journal.h"
#include "tools/companion/consent.h"
#include "tools/companion/data_folder.h"
#include "tools/history_lines.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

using modRes::JournalAction;
using modRes::JournalWords;
using modRes::UndoPlan;

/// How often the plan is made anew when somebody books meanwhile.
constexpr int kAttempts = 20;
constexpr std::size_t kShownRows = 20;

struct Options {
  std::optional<std::int64_t> Number;  ///< Nothing for the last one.
  std::string Folder;
  bool Yes = false;
};

JournalAction Wanted(Store& store, std::int64_t number) {
  const auto action = modRes::FindAction(store, number);
  if (!action) {
    throw ValueError({store.FileName(), "The journal has no action " + std::to_string(number) + ".",
                      "Nothing was changed. \"veyra-data history\" lists the numbers."});
  }
  return *action;
}

ExitStatus Refuse(const UndoPlan& plan, std::ostream& err) {
  for (const Phrase& obstacle : plan.Obstacles) {
    err << OneLine(obstacle.English()) << '\n';
  }
  err << "Action " << plan.Number << " cannot be taken back; nothing was changed.\n";
  return ExitStatus::Failed;
}

/// Asks once, and does it; who books meanwhile has it planned anew.
ExitStatus TakeBack(FileStore& store, const JournalAction& action, const Options& options,
                    Streams& streams) {
  const JournalWords words(store, modRes::ReadJournal(store));
  bool is_agreed = options.Yes;
  for (int attempt = 1;; ++attempt) {
    const UndoPlan plan = modRes::PlanUndo(store, action, words);
    if (!plan.Obstacles.empty()) {
      return Refuse(plan, streams.Err);
    }
    if (plan.Changes.empty()) {
      streams.Err << "Nothing is left of action " << action.Number << " to be taken back.\n";
      return ExitStatus::Found;
    }
    if (attempt == 1) {
      streams.Out << HeadLine(action, plan.TakenBack.size()) << '\n';
      for (const std::string& line : ChangeLines(plan.TakenBack, words, kShownRows)) {
        streams.Out << "      " << line << '\n';
      }
      streams.Out.flush();
    }
    is_agreed = is_agreed || IsConsented("Take this back?", streams);
    if (!is_agreed) {
      streams.Err << "Nothing was changed.\n";
      return ExitStatus::Found;
    }
    try {
      modRes::CarryOutUndo(store, plan);
      streams.Out << "Action " << action.Number << " was taken back: " << plan.TakenBack.size()
                  << (plan.TakenBack.size() == 1 ? " row.\n" : " rows.\n");
      return ExitStatus::Fine;
    } catch (const RowChangedError&) {
      if (attempt == kAttempts) {
        throw;
      }
    }
  }
}

ExitStatus Run(const Options& options, const Surroundings& surroundings, Streams& streams) {
  const auto store = OpenFileStore(CalendarFile(options.Folder, surroundings.AppFolder).string(),
                                   StoreAccess::ReadWrite);
  const auto action =
      options.Number ? std::optional(Wanted(*store, *options.Number)) : modRes::LastAction(*store);
  if (!action) {
    streams.Err << store->FileName() << ": The journal holds nothing that could be taken back.\n"
                << (store->KeepsJournal() ? "" : "Begin one with \"journal on\".\n");
    return ExitStatus::Found;
  }
  const ExitStatus status = TakeBack(*store, *action, options, streams);
  if (status == ExitStatus::Fine) {
    PruneJournal(*store, AddDays(surroundings.Now.Day, -kJournalDays));
  }
  return status;
}

Command::Action Declare(CLI::App& app, const Surroundings& surroundings, bool is_numbered) {
  const auto options = std::make_shared<Options>();
  if (is_numbered) {
    app.add_option("NUMBER", options->Number, "the action's, as \"history\" prints it")
        ->type_name("")
        ->required();
  }
  AddDataFolder(app, options->Folder);
  app.add_flag("--yes", options->Yes, "do not ask");
  return [options, surroundings](Streams& streams) { return Run(*options, surroundings, streams); };
}

std::function<Command::Action(CLI::App& app)> Declaring(Surroundings surroundings,
                                                        bool is_numbered) {
  return [surroundings = std::move(surroundings), is_numbered](CLI::App& app) {
    return Declare(app, surroundings, is_numbered);
  };
}

}  // namespace

Command UndoCommand(Surroundings surroundings) {
  return {"undo", "Take back what was done to the calendar last",
          "Prints it, asks, and takes it back whole or not at all: a series, the deletion of a\n"
          "facility with all its bookings, an import. That is an action itself, so a second undo\n"
          "takes back the first. The calendar may be open. What has been booked since is never\n"
          "overwritten: it is named, and nothing is changed.\n"
          "Example: veyra-data undo ~/our-calendar",
          Declaring(std::move(surroundings), false)};
}

Command RestoreCommand(Surroundings surroundings) {
  return {"restore", "Take back an earlier action, by its number in the history",
          "As undo does. What was deleted comes back where its time is still free.\n"
          "Example: veyra-data restore 12",
          Declaring(std::move(surroundings), true)};
}

}  // namespace veyra
