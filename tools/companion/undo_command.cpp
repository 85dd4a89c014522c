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
#include "tools/companion/parser_words.h"
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
    throw ValueError(
        {store.FileName(), Phrase::Tr("The journal has no action %1.", number),
         Phrase::Tr("Nothing was changed. \"veyra-data history\" lists the numbers.")});
  }
  return *action;
}

ExitStatus Refuse(const UndoPlan& plan, const Streams& streams) {
  for (const Phrase& obstacle : plan.Obstacles) {
    streams.Report(OneLine(streams.InWords(obstacle)));
  }
  streams.Report(Phrase::Tr("Action %1 cannot be taken back; nothing was changed.", plan.Number));
  return ExitStatus::Failed;
}

Phrase Done(std::int64_t number, std::size_t rows) {
  return rows == 1 ? Phrase::Tr("Action %1 was taken back: 1 row.", number)
                   : Phrase::Tr("Action %1 was taken back: %2 rows.", number, rows);
}

/// Asks once, and does it; who books meanwhile has it planned anew.
ExitStatus TakeBack(FileStore& store, const JournalAction& action, const Options& options,
                    Streams& streams) {
  const JournalWords words(store, modRes::ReadJournal(store));
  bool is_agreed = options.Yes;
  for (int attempt = 1;; ++attempt) {
    const UndoPlan plan = modRes::PlanUndo(store, action, words);
    if (!plan.Obstacles.empty()) {
      return Refuse(plan, streams);
    }
    if (plan.Changes.empty()) {
      streams.Report(Phrase::Tr("Nothing is left of action %1 to be taken back.", action.Number));
      return ExitStatus::Found;
    }
    if (attempt == 1) {
      streams.Tell(HeadLine(action, plan.TakenBack.size()));
      for (const Phrase& line : ChangeLines(plan.TakenBack, words, kShownRows)) {
        streams.Tell("      " + OneLine(streams.InWords(line)));
      }
      streams.Out.flush();
    }
    is_agreed = is_agreed || IsConsented(Phrase::Tr("Take this back?"), streams);
    if (!is_agreed) {
      streams.Report(Phrase::Tr("Nothing was changed."));
      return ExitStatus::Found;
    }
    try {
      modRes::CarryOutUndo(store, plan);
      streams.Tell(Done(action.Number, plan.TakenBack.size()));
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
    streams.Report(
        Phrase::Tr("%1: The journal holds nothing that could be taken back.", store->FileName()));
    if (!store->KeepsJournal()) {
      streams.Report(Phrase::Tr("Begin one with \"journal on\"."));
    }
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
    app.add_option("NUMBER", options->Number,
                   Meaning(Phrase::Tr("the action's, as \"history\" prints it")))
        ->type_name("")
        ->required();
  }
  AddDataFolder(app, options->Folder);
  app.add_flag("--yes", options->Yes, Meaning(Phrase::Tr("do not ask")));
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
  return {
      "undo", Phrase::Tr("Take back what was done to the calendar last"),
      Phrase::Tr(
          "Prints it, asks, and takes it back whole or not at all: a series, the deletion of a "
          "facility with all its bookings, an import. That is an action itself, so a second undo "
          "takes back the first. The calendar may be open. What has been booked since is never "
          "overwritten: it is named, and nothing is changed.") +
          Examples({"veyra-data undo ~/our-calendar"}),
      Declaring(std::move(surroundings), false)};
}

Command RestoreCommand(Surroundings surroundings) {
  return {"restore", Phrase::Tr("Take back an earlier action, by its number in the history"),
          Phrase::Tr("As undo does. What was deleted comes back where its time is still free.") +
              Examples({"veyra-data restore 12"}),
          Declaring(std::move(surroundings), true)};
}

}  // namespace veyra
