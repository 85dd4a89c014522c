#include "tools/companion/import_command.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <utility>

#include "data/errors.h"
#include "data/file_name.h"
#include "data/journal.h"
#include "data/open_file_store.h"
#include "data/text.h"
#include "tools/companion/data_folder.h"
#include "tools/companion/day_arguments.h"
#include "tools/companion/file_format.h"
#include "tools/companion/folder_argument.h"
#include "tools/companion/json_text.h"
#include "tools/companion/parser_words.h"
#include "tools/companion/text_file.h"
#include "tools/exchange/csv_bookings.h"
#include "tools/exchange/import_plan.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

/// How often the plan is made anew when somebody books meanwhile.
constexpr int kAttempts = 20;

struct Options {
  std::string File;
  std::string Folder;
  std::string Facility;
  DayArguments Days;
  std::optional<FileFormat> Format;
  bool SkipClashes = false;
  bool DryRun = false;
  bool Json = false;
};

std::vector<std::string> NamesOf(const std::vector<Facility>& facilities) {
  std::vector<std::string> names;
  for (const Facility& facility : facilities) {
    names.push_back(facility.Name);
  }
  return names;
}

Exchanged ReadIcal(const std::string& text, const DayRange& days, Store& store,
                   const IcalCodec& ical) {
  IcalAnswer answer = ical.Read(text, days, NamesOf(ReadFacilities(store)));
  if (answer.Failure) {
    throw ValueError(*answer.Failure);
  }
  return std::move(answer.Read);
}

Exchanged Parsed(const std::string& text, FileFormat format, const DayRange& days, Date today,
                 Store& store, const IcalSource& ical) {
  Exchanged exchanged =
      format == FileFormat::Csv ? BookingsOfCsv(text, today) : ReadIcal(text, days, store, ical());
  std::erase_if(exchanged.Bookings,
                [&](const ExchangedBooking& booking) { return !days.Holds(booking.Day); });
  return exchanged;
}

/// What is read names the file in its reports.
Exchanged ReadBookings(const Options& options, Date today, Store& store, const IcalSource& ical) {
  const fs::path file = fs::absolute(NativePath(options.File));
  const DayRange days = TypedRange(options.Days, today);
  const FileFormat format = options.Format ? *options.Format : FormatOfName(options.File);
  const std::string text = ReadTextFile(file);
  try {
    if (text.find('\0') != std::string::npos) {
      throw ValueError({{},
                        Phrase::Tr("The file is not text."),
                        Phrase::Tr("Nothing was changed. Name another file.")});
    }
    return Parsed(text, format, days, today, store, ical);
  } catch (const ValueError& error) {
    throw ValueError({file.string(), error.report().Cause, error.report().Advice});
  }
}

bool MayWrite(const ImportPlan& plan, const Options& options) {
  return !options.DryRun && !plan.Additions.empty() &&
         (plan.Clashes.empty() || options.SkipClashes);
}

/// Plans, and does it unless it must not be done. Somebody may book in between: then both are done
/// anew.
ImportPlan PlanAndWrite(FileStore& store, const Exchanged& exchanged, const Options& options,
                        const DateTime& now, bool& is_written) {
  for (int attempt = 1;; ++attempt) {
    ImportPlan plan = PlanImport(store, exchanged, options.Facility, now);
    is_written = MayWrite(plan, options);
    if (!is_written) {
      return plan;
    }
    try {
      const JournalledAction journalled(
          store, "Import of " + NativePath(options.File).filename().string());
      store.ChangeAll(plan.Additions, plan.Seen);
      return plan;
    } catch (const RowChangedError&) {
      if (attempt == kAttempts) {
        throw;
      }
    }
  }
}

void PrintForPeople(const ImportPlan& plan, bool is_written, bool is_dry, const Streams& streams) {
  for (const Phrase& note : plan.Notes) {
    streams.Tell(Phrase::Tr("note: %1", note));
  }
  for (const Phrase& clash : plan.Clashes) {
    streams.Tell(Phrase::Tr("clash: %1", clash));
  }
  for (const Phrase& added : is_dry ? plan.Added : std::vector<Phrase>()) {
    streams.Tell(Phrase::Tr("would add: %1", added));
  }
  streams.Tell(Phrase::Tr("Added %1 bookings; %2 were there already, %3 clash.",
                          is_written ? plan.Added.size() : 0, plan.AlreadyThere,
                          plan.Clashes.size()));
  if (!is_written && !plan.Added.empty()) {
    streams.Tell(
        plan.Clashes.empty()
            ? Phrase::Tr("Nothing was written: %1 bookings could be added.", plan.Added.size())
            : Phrase::Tr("Nothing was written: %1 bookings could be added with "
                         "--skip-clashes.",
                         plan.Added.size()));
  }
}

std::vector<std::string> InEnglish(const std::vector<Phrase>& lines) {
  std::vector<std::string> english;
  for (const Phrase& line : lines) {
    english.push_back(line.English());
  }
  return english;
}

void PrintForPrograms(const ImportPlan& plan, bool is_written, std::ostream& out) {
  PrintJson({{"written", is_written},
             {"add", InEnglish(plan.Added)},
             {"alreadyThere", plan.AlreadyThere},
             {"clashes", InEnglish(plan.Clashes)},
             {"notes", InEnglish(plan.Notes)}},
            out);
}

ExitStatus RunImport(const Options& options, const Surroundings& surroundings,
                     const IcalSource& ical, Streams& streams) {
  const auto store = OpenFileStore(CalendarFile(options.Folder, surroundings.AppFolder).string(),
                                   options.DryRun ? StoreAccess::ReadOnly : StoreAccess::ReadWrite);
  const Exchanged exchanged = ReadBookings(options, surroundings.Now.Day, *store, ical);
  bool is_written = false;
  const ImportPlan plan = PlanAndWrite(*store, exchanged, options, surroundings.Now, is_written);
  if (options.Json) {
    PrintForPrograms(plan, is_written, streams.Out);
  } else {
    PrintForPeople(plan, is_written, options.DryRun, streams);
  }
  const bool is_fine = plan.Clashes.empty() && (is_written || options.DryRun);
  return is_fine ? ExitStatus::Fine : ExitStatus::Found;
}

Command::Action Declare(CLI::App& app, const Surroundings& surroundings, const IcalSource& ical) {
  const auto options = std::make_shared<Options>();
  AddRequiredName(app, "FILE", options->File, Phrase::Tr("the iCalendar or CSV file"));
  AddDataFolder(app, options->Folder);
  app.add_option("--facility", options->Facility, Meaning(Phrase::Tr("book all for this facility")))
      ->type_name("NAME");
  AddDayRange(app, options->Days);
  AddFormat(app, options->Format);
  app.add_flag("--skip-clashes", options->SkipClashes,
               Meaning(Phrase::Tr("leave out what clashes, add the rest")));
  app.add_flag("--dry-run", options->DryRun, Meaning(Phrase::Tr("only say what would be done")));
  app.add_flag("--json", options->Json, Meaning(Phrase::Tr("print for programs")));
  return [options, surroundings, ical](Streams& streams) {
    return RunImport(*options, surroundings, ical, streams);
  };
}

}  // namespace

Command ImportCommand(Surroundings surroundings, IcalSource ical) {
  return {
      "import", Phrase::Tr("Add the bookings of an iCalendar or CSV file"),
      Phrase::Tr(
          "All or nothing: when the time of a booking is taken, nothing is written and the clashes "
          "are listed. The same file twice changes nothing. Facilities are found by name: in the "
          "categories or the place of an event, in the column Facility of a CSV file, whose first "
          "line names the columns Facility, Date, From, To, Name and Series. Times are rounded "
          "outwards to half hours; repetitions are booked one by one inside --from and --to.") +
          Examples({"veyra-data import courses.ics --facility Studio --to 12/31/2026 --dry-run"}),
      [surroundings = std::move(surroundings), ical = std::move(ical)](CLI::App& app) {
        return Declare(app, surroundings, ical);
      }};
}

}  // namespace veyra
