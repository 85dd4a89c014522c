#include "tools/companion/check_command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <utility>

#include "data/file_name.h"
#include "data/journal.h"
#include "data/names.h"
#include "data/open_file_store.h"
#include "tools/care/check_bookings.h"
#include "tools/care/check_files.h"
#include "tools/care/check_tables.h"
#include "tools/care/keep_copy.h"
#include "tools/care/mend.h"
#include "tools/companion/consent.h"
#include "tools/companion/data_folder.h"
#include "tools/companion/json_text.h"
#include "tools/companion/parser_words.h"
#include "tools/plain_text.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

struct Options {
  std::string Folder;
  bool Mend = false;
  bool Yes = false;
  bool Json = false;
};

void Append(Findings& findings, Findings more) {
  findings.insert(findings.end(), std::make_move_iterator(more.begin()),
                  std::make_move_iterator(more.end()));
}

Findings DamageOf(FileStore& store) {
  Findings findings;
  for (const Phrase& problem : store.Verify()) {
    findings.push_back(
        {.Kind = "damaged",
         .What = Phrase::Tr("The file is damaged: %1", problem),
         .Advice = Phrase::Tr("Restore a backup with \"veyra-data restore-backup\".")});
  }
  return findings;
}

/// Those of the column of names, which is the file's limit whether the file itself holds to it or
/// not; and how many bookings there are.
struct ReservFacts {
  std::size_t LongestName = 0;
  std::int64_t Rows = 0;
};

ReservFacts FactsOf(const StoreDescription& description) {
  ReservFacts facts;
  for (const TableDescription& table : description.Tables) {
    if (!SameName(table.Name, "Reserv")) {
      continue;
    }
    facts.Rows = table.RowCount;
    for (const ColumnDescription& column : table.Columns) {
      if (SameName(column.Name, "Event")) {
        facts.LongestName = static_cast<std::size_t>(column.Size);
      }
    }
  }
  return facts;
}

bool HasTable(const std::vector<std::string>& tables, const char* name) {
  return std::any_of(tables.begin(), tables.end(),
                     [name](const std::string& table) { return SameName(table, name); });
}

bool IsCalendar(FileStore& store) {
  const std::vector<std::string> tables = store.TableNames();
  return HasTable(tables, "Rooms") && HasTable(tables, "Reserv");
}

Findings CheckContents(FileStore& store, const Surroundings& surroundings) {
  Findings findings;
  const std::vector<Facility> facilities = ReadFacilities(store);
  Append(findings, CheckFacilities(facilities));
  Append(findings, CheckSettings(store));
  const ReservFacts facts = FactsOf(store.Describe());
  Append(findings, CheckBookings(store, facilities, facts.LongestName, [&](std::int64_t read) {
           surroundings.Watch({.Verb = "Checked", .Rows = read, .Of = facts.Rows});
         }));
  return findings;
}

void PrintForPeople(const Findings& findings, const Streams& streams) {
  for (const Finding& finding : findings) {
    streams.Tell(finding.Kind + ": " + finding.What + " " + finding.Advice);
  }
}

void PrintForPrograms(const Findings& findings, std::ostream& out) {
  Json list = Json::array();
  for (const Finding& finding : findings) {
    list.push_back({{"kind", finding.Kind},
                    {"what", finding.What.English()},
                    {"advice", finding.Advice.English()},
                    {"mendable", !finding.Mending.empty()}});
  }
  PrintJson(list, out);
}

ExitStatus Mend(FileStore& store, const Findings& findings, const Options& options, Date today,
                Streams& streams) {
  const auto count = std::count_if(findings.begin(), findings.end(),
                                   [](const Finding& each) { return !each.Mending.empty(); });
  if (count == 0) {
    streams.Report(Phrase::Tr("There is nothing that --mend could do."));
    return ExitStatus::Found;
  }
  const Phrase question =
      Phrase::Tr("Mend %1 of these %2, and keep a copy?", count, findings.size());
  if (!options.Yes && !IsConsented(question, streams)) {
    streams.Report(Phrase::Tr("Nothing was changed."));
    return ExitStatus::Found;
  }
  const fs::path kept = KeepCopy(store, today);
  const JournalledAction journalled(store, "check --mend");
  store.ChangeAll(MendingOf(findings), {});
  for (const Finding& finding : findings) {
    if (!finding.Mending.empty()) {
      streams.Report(finding.Mended);
    }
  }
  streams.Report(
      Phrase::Tr("The calendar as it was is kept as %1.", OneLine(kept.filename().string())));
  return count == static_cast<std::ptrdiff_t>(findings.size()) ? ExitStatus::Fine
                                                               : ExitStatus::Found;
}

/// Whether it is a file that was named, which is then looked at by itself.
bool NamesAFile(const Options& options) {
  std::error_code unreachable;
  return !options.Folder.empty() && fs::is_regular_file(NativePath(options.Folder), unreachable);
}

ExitStatus RunCheck(const Options& options, const Surroundings& surroundings, Streams& streams) {
  const bool alone = NamesAFile(options);
  const fs::path file = alone ? fs::absolute(NativePath(options.Folder))
                              : CalendarFile(options.Folder, surroundings.AppFolder);
  // Before the file is opened here: to look whether others have it open lets go of every lock that
  // this process holds on it.
  Findings findings = alone ? Findings() : CheckFolder(file, surroundings.Now.Day);
  const auto store =
      OpenFileStore(file.string(), options.Mend ? StoreAccess::ReadWrite : StoreAccess::ReadOnly);
  Findings damage = DamageOf(*store);
  if (damage.empty() && (!alone || IsCalendar(*store))) {
    Append(findings, CheckContents(*store, surroundings));
  }
  Append(findings, std::move(damage));
  if (options.Json) {
    PrintForPrograms(findings, streams.Out);
  } else {
    PrintForPeople(findings, streams);
  }
  if (findings.empty()) {
    if (!options.Json) {
      streams.Tell(Phrase::Tr("%1: nothing is wrong.", OneLine(store->FileName())));
    }
    return ExitStatus::Fine;
  }
  streams.Out.flush();
  return options.Mend ? Mend(*store, findings, options, surroundings.Now.Day, streams)
                      : ExitStatus::Found;
}

Command::Action Declare(CLI::App& app, const Surroundings& surroundings) {
  const auto options = std::make_shared<Options>();
  app.add_option("FOLDER", options->Folder,
                 Meaning(Phrase::Tr("the data folder, or one database file of any contents; else "
                                    "the folder that path.txt beside the program names")))
      ->type_name("");
  app.add_flag("--mend", options->Mend,
               Meaning(Phrase::Tr("put right what can be put right without losing anything")));
  app.add_flag("--yes", options->Yes, Meaning(Phrase::Tr("do not ask before mending")));
  app.add_flag("--json", options->Json, Meaning(Phrase::Tr("print for programs")));
  return [options, surroundings](Streams& streams) {
    return RunCheck(*options, surroundings, streams);
  };
}

}  // namespace

Command CheckCommand(Surroundings surroundings) {
  return {
      "check", Phrase::Tr("Print everything that is wrong with a calendar"),
      Phrase::Tr(
          "A line for each thing, with what to do; status 1 when there is any. The file is gone "
          "through page by page, and then what the bookings say. The calendar may be open. "
          "--mend asks first, and keeps the calendar as it was as Calendar-before-DATE.mdb.") +
          Examples({"veyra-data check ~/our-calendar --mend"}),
      [surroundings = std::move(surroundings)](CLI::App& app) {
        return Declare(app, surroundings);
      }};
}

}  // namespace veyra
