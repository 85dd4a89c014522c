#include "tools/companion/history_command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <limits>
#include <memory>
#include <set>
#include <utility>

#include "data/errors.h"
#include "data/names.h"
#include "data/open_file_store.h"
#include "data/text.h"
#include "logic/journal_words.h"
#include "tools/companion/data_folder.h"
#include "tools/companion/day_arguments.h"
#include "tools/companion/json_text.h"
#include "tools/companion/parser_words.h"
#include "tools/history_lines.h"
#include "tools/local_time.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

using modRes::FieldIn;
using modRes::JournalAction;
using modRes::JournalledChange;
using modRes::JournalWords;

constexpr std::size_t kUsualActions = 20;
constexpr std::size_t kUsualRows = 10;

struct Options {
  std::string Folder;
  std::string Facility;
  std::string On;
  DayArguments Days;
  std::string Guest;
  DayArguments Changed;
  std::size_t Last = kUsualActions;
  bool Full = false;
  bool Json = false;
};

/// The numbers of the facilities of that name, those that are gone included.
std::set<std::int64_t> Numbers(const JournalWords& words, const std::string& name) {
  std::set<std::int64_t> numbers;
  for (const auto& [number, facility] : words.Facilities()) {
    if (UpperCase(facility) == UpperCase(name)) {
      numbers.insert(number);
    }
  }
  if (numbers.empty()) {
    throw ValueError(
        {{},
         Phrase::Tr("There is and was no facility \"%1\".", OneLine(name)),
         Phrase::Tr("Run \"veyra-data history\" without --facility to see the names.")});
  }
  return numbers;
}

/// What is asked for.
class Filter {
 public:
  Filter(const Options& options, const JournalWords& words, Date today)
      : days_(TypedRange(options.Days, today)),
        changed_(TypedRange(options.Changed, today)),
        guest_(UpperCase(options.Guest)) {
    if (!options.On.empty()) {
      days_.From = days_.To = TypedDate(options.On, today);
    }
    if (!options.Facility.empty()) {
      facilities_ = Numbers(words, options.Facility);
    }
  }

  bool Wants(const JournalAction& action, const std::vector<JournalledChange>& changes) const {
    const auto time = LocalTimeOf(action.At);
    return (!time || changed_.Holds(time->Day)) &&
           std::any_of(changes.begin(), changes.end(), [this](const JournalledChange& change) {
             return (change.Before && WantsRow(change.Table, *change.Before)) ||
                    (change.After && WantsRow(change.Table, *change.After));
           });
  }

 private:
  bool WantsRow(const std::string& table, const FieldValues& fields) const {
    const bool is_room = SameName(table, "Rooms");
    const Value& facility = FieldIn(fields, is_room ? "ID" : "RmID");
    const Value& name = FieldIn(fields, is_room ? "Name" : "Event");
    const auto day = ToDate(FieldIn(fields, "DateOfRes"));
    return (!facilities_ || facilities_->contains(ToInteger(facility).value_or(0))) &&
           ((!days_.From && !days_.To) || (day && days_.Holds(*day))) &&
           (guest_.empty() || UpperCase(ToText(name)).find(guest_) != std::string::npos);
  }

  DayRange days_;
  DayRange changed_;
  std::string guest_;
  std::optional<std::set<std::int64_t>> facilities_;
};

Json AsJson(const std::optional<FieldValues>& fields) {
  if (!fields) {
    return {};
  }
  Json json = Json::object();
  for (const auto& [name, value] : *fields) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
      json[name] = *whole;
    } else if (const auto* number = std::get_if<double>(&value)) {
      json[name] = *number;
    } else {
      json[name] = IsNull(value) ? Json() : Json(ToText(value));
    }
  }
  return json;
}

/// An action that is asked for, and what it changed.
struct Listed {
  const JournalAction* Action;
  std::vector<JournalledChange> Changes;
};

std::string IsoMoment(std::string at) {
  std::replace(at.begin(), at.end(), ' ', 'T');
  return at + "Z";
}

Json AsJson(const Listed& listed) {
  Json changes = Json::array();
  for (const JournalledChange& change : listed.Changes) {
    changes.push_back({{"table", change.Table},
                       {"before", AsJson(change.Before)},
                       {"after", AsJson(change.After)}});
  }
  return {{"number", listed.Action->Number},
          {"time", IsoMoment(listed.Action->At)},
          {"action", listed.Action->Name.empty() ? Json() : Json(listed.Action->Name)},
          {"changes", changes}};
}

void Print(const std::vector<Listed>& all, const JournalWords& words, const Options& options,
           const Streams& streams) {
  if (options.Json) {
    Json list = Json::array();
    for (const Listed& listed : all) {
      list.push_back(AsJson(listed));
    }
    PrintJson(list, streams.Out);
    return;
  }
  const std::size_t most = options.Full ? std::numeric_limits<std::size_t>::max() : kUsualRows;
  for (const Listed& listed : all) {
    streams.Tell(HeadLine(*listed.Action, listed.Changes.size()));
    for (const Phrase& line : ChangeLines(listed.Changes, words, most)) {
      streams.Tell("      " + OneLine(streams.InWords(line)));
    }
  }
}

ExitStatus RunHistory(const Options& options, const Surroundings& surroundings, Streams& streams) {
  const auto store = OpenFileStore(CalendarFile(options.Folder, surroundings.AppFolder).string(),
                                   StoreAccess::ReadOnly);
  if (!store->KeepsJournal()) {
    streams.Report(
        Phrase::Tr("%1: No journal is kept. Begin one with \"journal on\".", store->FileName()));
  }
  const std::vector<JournalAction> actions = modRes::ReadJournal(*store);
  const JournalWords words(*store, actions);
  const Filter filter(options, words, surroundings.Now.Day);
  std::vector<Listed> found;
  std::size_t more = 0;
  for (const JournalAction& action : actions) {
    auto changes = modRes::NetChanges(action);
    if (filter.Wants(action, changes)) {
      const bool is_shown = options.Last == 0 || found.size() < options.Last;
      is_shown ? found.push_back({&action, std::move(changes)}) : void(++more);
    }
  }
  Print(found, words, options, streams);
  if (more > 0) {
    streams.Out.flush();
    streams.Report(Phrase::Tr("%1 earlier ones are not shown; --last 0 shows all.", more));
  }
  return found.empty() ? ExitStatus::Found : ExitStatus::Fine;
}

void AddChangedRange(CLI::App& app, DayArguments& days) {
  app.add_option("--since", days.From,
                 Meaning(Phrase::Tr("only what was done on this day or later")))
      ->type_name("DATE");
  app.add_option("--until", days.To,
                 Meaning(Phrase::Tr("only what was done on this day or earlier")))
      ->type_name("DATE");
}

Command::Action Declare(CLI::App& app, const Surroundings& surroundings) {
  const auto options = std::make_shared<Options>();
  AddDataFolder(app, options->Folder);
  app.add_option("--facility", options->Facility,
                 Meaning(Phrase::Tr("only this facility, also one that is gone")))
      ->type_name("NAME");
  app.add_option("--on", options->On, Meaning(Phrase::Tr("only bookings of this day")))
      ->type_name("DATE");
  AddDayRange(app, options->Days);
  app.add_option("--guest", options->Guest,
                 Meaning(Phrase::Tr("only names with this in them, in any letter case")))
      ->type_name("TEXT");
  AddChangedRange(app, options->Changed);
  app.add_option("--last", options->Last,
                 Meaning(Phrase::Tr("so many, the last ones; 20 unless it is given; 0: all")))
      ->type_name("NUMBER");
  app.add_flag("--full", options->Full,
               Meaning(Phrase::Tr("every row of an action, not only the first ten")));
  app.add_flag("--json", options->Json, Meaning(Phrase::Tr("print for programs")));
  return [options, surroundings](Streams& streams) {
    return RunHistory(*options, surroundings, streams);
  };
}

}  // namespace

Command HistoryCommand(Surroundings surroundings) {
  return {
      "history", Phrase::Tr("Print who did what to the calendar, the last first"),
      Phrase::Tr(
          "A line for each action, with its number, and one for each row: \"+\" was added, \"-\" "
          "deleted, \"~\" changed. What another program did is in it, too, in SQLite files. "
          "Which facility was picked is not listed. Status 1 says that there is nothing to list.") +
          Examples({"veyra-data history --facility Pool --guest smith"}),
      [surroundings = std::move(surroundings)](CLI::App& app) {
        return Declare(app, surroundings);
      }};
}

}  // namespace veyra
