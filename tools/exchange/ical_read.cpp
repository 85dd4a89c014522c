#include "tools/exchange/ical_read.h"

#include <libical/ical.h>

#include <algorithm>
#include <map>
#include <memory>

#include "data/errors.h"
#include "data/text.h"
#include "tools/exchange/ical_event.h"
#include "tools/exchange/series_relation.h"
#include "tools/exchange/whole_slots.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

constexpr std::size_t kMostBookings = 1000000;

struct Freeing {
  void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};

ValueError NoIcal(const Phrase& cause) {
  return ValueError(
      {{}, cause, Phrase::Tr("Nothing was changed. Export the file again, and try again.")});
}

std::size_t CountOf(const std::string& text, const std::string& line) {
  std::size_t count = 0;
  for (std::size_t at = text.find(line); at != std::string::npos; at = text.find(line, at + 1)) {
    const bool begins_line = at == 0 || text[at - 1] == '\n';
    const std::size_t end = at + line.size();
    const bool ends_line = end == text.size() || text[end] == '\r' || text[end] == '\n';
    count += begins_line && ends_line ? 1U : 0U;
  }
  return count;
}

/// The reader of the format closes by itself what a file leaves open.
void RequireWhole(const std::string& text) {
  if (!IsUtf8(text)) {
    throw NoIcal(Phrase::Tr("The file is not text in UTF-8."));
  }
  const std::string upper = UpperCase(text);
  for (const char* part : {"VCALENDAR", "VEVENT"}) {
    const auto begins = CountOf(upper, std::string("BEGIN:") + part);
    if (begins != CountOf(upper, std::string("END:") + part)) {
      throw NoIcal(Phrase::Tr("The file was cut short: a part of it has no end."));
    }
  }
}

/// The date and the minute of the day of a moment, here.
std::pair<Date, std::int64_t> LocalTime(const IcalMoment& moment) {
  std::tm local{};
  if (moment.IsFloating) {
    gmtime_r(&moment.Seconds, &local);
  } else {
    localtime_r(&moment.Seconds, &local);
  }
  const auto day = MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
  if (!day) {
    throw NoIcal(Phrase::Tr("A date of the file lies outside the years 100 to 9999."));
  }
  return {*day, local.tm_hour * 60 + local.tm_min};
}

/// An end within a minute counts that minute; an event without any length takes one.
Span SpanOf(const IcalOccurrence& occurrence) {
  const auto [day, from] = LocalTime(occurrence.From);
  const IcalMoment last_second{std::max(occurrence.To.Seconds - 1, occurrence.From.Seconds),
                               occurrence.To.IsFloating};
  const auto [last_day, last_minute] = LocalTime(last_second);
  return {day, from,
          DaysBetween(day, last_day) * 24 * 60 + std::max(last_minute, std::int64_t{0}) + 1};
}

bool Touches(const Span& span, const DayRange& days) {
  constexpr std::int64_t kDay = std::int64_t{24} * 60;
  const Date last = AddDays(span.Day, (span.To - 1) / kDay);
  return (!days.To || span.Day <= *days.To) && (!days.From || last >= *days.From);
}

std::string FacilityOf(const IcalEvent& event, const std::vector<std::string>& facilities) {
  const std::vector<std::string> places = event.Places();
  for (const std::string& place : places) {
    const std::string upper = UpperCase(place);
    for (const std::string& facility : facilities) {
      if (UpperCase(facility) == upper) {
        return facility;
      }
    }
  }
  return places.empty() ? std::string() : places.front();
}

std::string SeriesOfEvent(const IcalEvent& event) {
  for (const std::string& relation : event.Relations()) {
    const std::string series = SeriesOf(relation);
    if (!series.empty()) {
      return series;
    }
  }
  return {};
}

/// The events of a file, and which occurrences of repeated ones others stand for.
struct Events {
  std::vector<IcalEvent> All;
  std::map<std::string, std::vector<std::time_t>> Replaced;
};

Events EventsOf(icalcomponent* calendar) {
  Events events;
  icalcompiter at = icalcomponent_begin_component(calendar, ICAL_VEVENT_COMPONENT);
  for (icalcomponent* each = icalcompiter_deref(&at); each != nullptr;
       each = icalcompiter_next(&at)) {
    const IcalEvent event(each);
    events.All.push_back(event);
    if (const auto replaced = event.Replaced()) {
      events.Replaced[event.Uid()].push_back(*replaced);
    }
  }
  return events;
}

void AddEvent(const IcalEvent& event, const std::vector<std::time_t>& replaced,
              const DayRange& days, const std::vector<std::string>& facilities,
              Exchanged& exchanged) {
  ExchangedBooking pattern{
      .Facility = FacilityOf(event, facilities),
      .Name = event.Summary(),
      .Series = SeriesOfEvent(event),
      .Place = Phrase::Tr("event %1", OneLine(FirstCharacters(event.Uid(), 60)))};
  const std::size_t before = exchanged.Bookings.size();
  for (const IcalOccurrence& occurrence : event.Occurrences(days, replaced)) {
    const Span span = SpanOf(occurrence);
    if (!Touches(span, days)) {
      continue;
    }
    AddSpan(span, pattern, exchanged);
    if (exchanged.Bookings.size() > kMostBookings) {
      throw NoIcal(Phrase::Tr("The file has too many bookings."));
    }
  }
  const bool is_series = exchanged.Bookings.size() - before > 1 && pattern.Series.empty();
  for (std::size_t i = before; is_series && i < exchanged.Bookings.size(); ++i) {
    exchanged.Bookings[i].Series = "uid:" + event.Uid();
  }
}

void AddCalendar(icalcomponent* calendar, const DayRange& days,
                 const std::vector<std::string>& facilities, Exchanged& exchanged) {
  const Events events = EventsOf(calendar);
  for (const IcalEvent& event : events.All) {
    if (event.IsCancelled()) {
      continue;
    }
    const auto replaced = events.Replaced.find(event.Uid());
    const bool is_master = !event.Replaced() && replaced != events.Replaced.end();
    AddEvent(event, is_master ? replaced->second : std::vector<std::time_t>(), days, facilities,
             exchanged);
  }
}

}  // namespace

Exchanged BookingsOfIcal(const std::string& text, const DayRange& days,
                         const std::vector<std::string>& facilities) {
  RequireWhole(text);
  icalerror_set_errors_are_fatal(0);
  const std::unique_ptr<icalcomponent, Freeing> root(icalparser_parse_string(text.c_str()));
  if (!root) {
    throw NoIcal(Phrase::Tr("The file is not an iCalendar file, or it was cut short."));
  }
  Exchanged exchanged;
  if (icalcomponent_isa(root.get()) == ICAL_VCALENDAR_COMPONENT) {
    AddCalendar(root.get(), days, facilities, exchanged);
    return exchanged;
  }
  for (icalcomponent* each =
           icalcomponent_get_first_component(root.get(), ICAL_VCALENDAR_COMPONENT);
       each != nullptr;
       each = icalcomponent_get_next_component(root.get(), ICAL_VCALENDAR_COMPONENT)) {
    AddCalendar(each, days, facilities, exchanged);
  }
  return exchanged;
}

}  // namespace veyra
