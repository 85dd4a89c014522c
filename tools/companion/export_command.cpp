#include "tools/companion/export_command.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <map>
#include <memory>
#include <sstream>
#include <tuple>
#include <utility>

#include "data/errors.h"
#include "data/file_name.h"
#include "data/open_store.h"
#include "tools/companion/data_folder.h"
#include "tools/companion/day_arguments.h"
#include "tools/companion/file_format.h"
#include "tools/companion/folder_argument.h"
#include "tools/companion/parser_words.h"
#include "tools/companion/text_file.h"
#include "tools/day_listing.h"
#include "tools/exchange/csv_bookings.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

struct Options {
  std::string File;
  std::string Folder;
  std::string Facility;
  DayArguments Days;
  std::optional<FileFormat> Format;
  bool Replace = false;
};

std::vector<ExchangedBooking> BookingsToExport(Store& store, const ListingRequest& request) {
  std::vector<ExchangedBooking> bookings;
  for (const auto& [place, stretches] : ListBookings(store, request)) {
    for (const Stretch& stretch : stretches) {
      bookings.push_back({.Facility = request.Facilities[place.second].Name,
                          .Name = stretch.Event.value_or(""),
                          .Day = place.first,
                          .Slots = stretch.Slots,
                          .Series = stretch.Group ? ToText(*stretch.Group) : std::string()});
    }
  }
  return bookings;
}

/// Bookings that no file of another program can take: "check" tells of them.
std::size_t DropDamaged(std::vector<ExchangedBooking>& bookings) {
  return std::erase_if(bookings, [](const ExchangedBooking& booking) {
    return booking.Slots.First == 0 || booking.Slots.First > booking.Slots.Last;
  });
}

std::string CsvFile(const std::vector<ExchangedBooking>& bookings) {
  std::string text = CsvHead();
  for (const ExchangedBooking& booking : bookings) {
    text += CsvOf(booking);
  }
  return text;
}

std::string IcalFile(const std::vector<ExchangedBooking>& bookings, const DateTime& stamp,
                     const IcalCodec& ical) {
  using Same = std::tuple<std::string, std::string, std::string, Date, int, int>;
  std::map<Same, int> copies;
  std::string text = ical.Head();
  for (const ExchangedBooking& each : bookings) {
    const Same same(each.Facility, each.Name, each.Series, each.Day, each.Slots.First,
                    each.Slots.Last);
    text += ical.Of(each, copies[same]++, stamp);
  }
  return text + ical.End();
}

void Write(const Options& options, const std::string& text, Streams& streams) {
  if (options.File == "-") {
    streams.Out << text;
  } else {
    WriteTextFile(fs::absolute(NativePath(options.File)), text, options.Replace);
  }
}

ExitStatus RunExport(const Options& options, const Surroundings& surroundings,
                     const DateTime& stamp, const IcalSource& ical, Streams& streams) {
  ListingRequest request{.Days = TypedRange(options.Days, surroundings.Now.Day)};
  const FileFormat format = options.Format ? *options.Format : FormatOfName(options.File);
  const auto store = OpenStore(CalendarFile(options.Folder, surroundings.AppFolder).string(),
                               StoreAccess::ReadOnly);
  request.Facilities = ReadFacilities(*store);
  if (!options.Facility.empty()) {
    request.Facilities = FacilitiesNamed(request.Facilities, options.Facility);
  }
  auto bookings = BookingsToExport(*store, request);
  const std::size_t damaged = DropDamaged(bookings);
  Write(options, format == FileFormat::Csv ? CsvFile(bookings) : IcalFile(bookings, stamp, ical()),
        streams);
  streams.Report(Phrase::Tr("Exported %1 bookings.", bookings.size()));
  if (damaged > 0) {
    streams.Report(
        Phrase::Tr("%1 damaged bookings were left out; \"veyra-data check\" names them.", damaged));
  }
  return damaged > 0 ? ExitStatus::Found : ExitStatus::Fine;
}

Command::Action Declare(CLI::App& app, const Surroundings& surroundings, const DateTime& stamp,
                        const IcalSource& ical) {
  const auto options = std::make_shared<Options>();
  AddRequiredName(app, "FILE", options->File,
                  Phrase::Tr("the file to make; \"-\" for the ordinary output"));
  AddDataFolder(app, options->Folder);
  app.add_option("--facility", options->Facility, Meaning(Phrase::Tr("only this facility")))
      ->type_name("NAME");
  AddDayRange(app, options->Days);
  AddFormat(app, options->Format);
  app.add_flag("--replace", options->Replace,
               Meaning(Phrase::Tr("write over FILE when it is there")));
  return [options, surroundings, stamp, ical](Streams& streams) {
    return RunExport(*options, surroundings, stamp, ical, streams);
  };
}

}  // namespace

Command ExportCommand(Surroundings surroundings, DateTime stamp, IcalSource ical) {
  return {
      "export", Phrase::Tr("Write bookings to an iCalendar or CSV file"),
      Phrase::Tr(
          "Times are local ones without a zone. The facility is the category of an event; the "
          "events of one series are related to each other. Cells of a CSV file that a spreadsheet "
          "would take for formulas get an apostrophe, which import takes away again.") +
          Examples({"veyra-data export pool.ics --facility Pool --from 3/1/2026 --to 3/31/2026"}),
      [surroundings = std::move(surroundings), stamp, ical = std::move(ical)](CLI::App& app) {
        return Declare(app, surroundings, stamp, ical);
      }};
}

}  // namespace veyra
