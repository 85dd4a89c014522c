#include "tools/companion/list_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <utility>

#include "data/errors.h"
#include "data/open_store.h"
#include "logic/multiday.h"
#include "logic/slots.h"
#include "tools/clock_text.h"
#include "tools/companion/data_folder.h"
#include "tools/companion/day_arguments.h"
#include "tools/companion/json_text.h"
#include "tools/companion/parser_words.h"
#include "tools/day_listing.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

struct Options {
  std::string Folder;
  std::string On;
  DayArguments Days;
  bool Week = false;
  bool Month = false;
  std::string Facility;
  std::string Guest;
  std::string Free;
  bool Json = false;
};

DayRange WeekOf(Date day) {
  const Date sunday = AddDays(day, 1 - WeekdayNumber(day));
  return {sunday, AddDays(sunday, 6)};
}

DayRange MonthOf(Date day) {
  const Date first = MakeDate(YearOf(day), veyra::MonthOf(day), 1).value();
  const Date in_next = AddDays(first, 31);
  return {first, AddDays(in_next, -DayOf(in_next))};
}

/// A name is looked for on all days unless some are named.
DayRange DaysOf(const Options& options, Date today) {
  if (!options.Days.From.empty() || !options.Days.To.empty()) {
    return TypedRange(options.Days, today);
  }
  const Date day = options.On.empty() ? today : TypedDate(options.On, today);
  if (options.Week) {
    return WeekOf(day);
  }
  if (options.Month) {
    return MonthOf(day);
  }
  if (options.On.empty() && !options.Guest.empty()) {
    return {};
  }
  return {day, day};
}

int LengthOf(const std::string& text) {
  const auto half_hours = HalfHoursOf(text);
  if (!half_hours) {
    throw ValueError({{},
                      Phrase::Tr("\"%1\" is not a length of time within a day.", OneLine(text)),
                      Phrase::Tr("Write it as 2h, 90m or 1h30.")});
  }
  return *half_hours;
}

DayListing Listed(Store& store, const ListingRequest& request, const std::string& free) {
  if (free.empty()) {
    return ListBookings(store, request);
  }
  const int half_hours = LengthOf(free);
  if (!request.Days.From || !request.Days.To) {
    throw ValueError({{},
                      Phrase::Tr("Free times need both ends of a range."),
                      Phrase::Tr("Name them with --from and --to.")});
  }
  return ListFreeTimes(store, request, half_hours);
}

class Printer {
 public:
  Printer(const std::vector<Facility>& facilities, std::ostream& out)
      : facilities_(facilities), out_(out) {
    modRes::SlotLabels(labels_);
  }

  void PrintForPeople(const DayListing& listing) {
    std::optional<Date> last;
    for (const auto& [place, stretches] : listing) {
      if (last != place.first) {
        out_ << (last ? "\n" : "") << modRes::WeekdayName(place.first) << " - "
             << DateText(place.first) << '\n';
        last = place.first;
      }
      out_ << "  " << OneLine(facilities_[place.second].Name) << '\n';
      for (const Stretch& stretch : stretches) {
        out_ << "    " << Line(stretch) << '\n';
      }
    }
  }

  void PrintForPrograms(const DayListing& listing) {
    Json list = Json::array();
    for (const auto& [place, stretches] : listing) {
      for (const Stretch& stretch : stretches) {
        list.push_back(AsJson(place.first, facilities_[place.second].Name, stretch));
      }
    }
    PrintJson(list, out_);
  }

 private:
  std::string Line(const Stretch& stretch) const {
    const std::string range = modRes::RangeLabel(labels_, stretch.Slots);
    return stretch.Event ? range + " " + OneLine(*stretch.Event) : range;
  }

  /// Nothing for a bound that is not a slot.
  static Json TimeOf(modRes::TimeSlot bound, int slots_later) {
    return bound == 0 ? Json() : Json(ClockText(bound + slots_later));
  }

  Json AsJson(Date day, const std::string& facility, const Stretch& stretch) const {
    Json json = {{"facility", facility},
                 {"date", IsoText(day)},
                 {"from", TimeOf(stretch.Slots.First, 0)},
                 {"to", TimeOf(stretch.Slots.Last, 1)},
                 {"line", Line(stretch)}};
    if (stretch.Event) {
      json["name"] = *stretch.Event;
    }
    if (stretch.Group) {
      json["series"] = ToText(*stretch.Group);
    }
    return json;
  }

  const std::vector<Facility>& facilities_;
  std::ostream& out_;
  modRes::SlotLabelTable labels_;
};

ExitStatus RunList(const Options& options, const Surroundings& surroundings, std::ostream& out) {
  ListingRequest request{.Days = DaysOf(options, surroundings.Now.Day), .Guest = options.Guest};
  const auto store = OpenStore(CalendarFile(options.Folder, surroundings.AppFolder).string(),
                               StoreAccess::ReadOnly);
  request.Facilities = ReadFacilities(*store);
  if (!options.Facility.empty()) {
    request.Facilities = FacilitiesNamed(request.Facilities, options.Facility);
  }
  const DayListing listing = Listed(*store, request, options.Free);
  Printer printer(request.Facilities, out);
  if (options.Json) {
    printer.PrintForPrograms(listing);
  } else {
    printer.PrintForPeople(listing);
  }
  return listing.empty() ? ExitStatus::Found : ExitStatus::Fine;
}

Command::Action Declare(CLI::App& app, const Surroundings& surroundings) {
  const auto options = std::make_shared<Options>();
  AddDataFolder(app, options->Folder);
  app.add_option("--on", options->On, Meaning(Phrase::Tr("the day; today when it is not given")))
      ->type_name("DATE");
  auto* week = app.add_flag("--week", options->Week,
                            Meaning(Phrase::Tr("the whole week of that day, from Sunday")));
  auto* month =
      app.add_flag("--month", options->Month, Meaning(Phrase::Tr("the whole month of that day")));
  week->excludes(month);
  AddDayRange(app, options->Days);
  app.add_option("--facility", options->Facility, Meaning(Phrase::Tr("only this facility")))
      ->type_name("NAME");
  app.add_option("--guest", options->Guest,
                 Meaning(Phrase::Tr("only names with this in them, in any letter case")))
      ->type_name("TEXT");
  app.add_option("--free", options->Free,
                 Meaning(Phrase::Tr("the times that are free for so long: 2h, 90m, 1h30")))
      ->type_name("LENGTH");
  app.add_flag("--json", options->Json, Meaning(Phrase::Tr("print for programs")));
  return [options, surroundings](Streams& streams) {
    return RunList(*options, surroundings, streams.Out);
  };
}

}  // namespace

Command ListCommand(Surroundings surroundings) {
  return {
      "list", Phrase::Tr("Print the bookings of a day, a week or a month, or the free times"),
      Phrase::Tr(
          "The lines are those of the month window. Status 1 says that there is nothing to list. "
          "A name that is asked for without dates is looked for on all days.") +
          Examples({"veyra-data list --facility Pool --month --on 3/1/2026"}),
      [surroundings = std::move(surroundings)](CLI::App& app) {
        return Declare(app, surroundings);
      }};
}

}  // namespace veyra
