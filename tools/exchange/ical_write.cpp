#include "tools/exchange/ical_write.h"

#include <libical/ical.h>

#include <cstdlib>
#include <memory>

#include "tools/exchange/series_relation.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

constexpr const char* kLineEnd = "\r\n";

struct Freeing {
  void operator()(icalcomponent* component) const { icalcomponent_free(component); }
  void operator()(char* text) const { std::free(text); }
};

/// FNV-1a, of 64 bits.
std::uint64_t Mixed(const std::string& text) {
  std::uint64_t sum = 0xCBF29CE484222325U;
  for (const char c : text) {
    sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  }
  return sum;
}

std::string HexText(std::uint64_t number) {
  std::string text(16, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, number /= 16) {
    *digit = "0123456789abcdef"[number % 16];
  }
  return text;
}

std::string UidOf(const ExchangedBooking& booking, int copies) {
  constexpr char kBetween = '\x1F';
  const std::string all = booking.Facility + kBetween + booking.Name + kBetween + booking.Series +
                          kBetween + IsoText(booking.Day) + kBetween +
                          std::to_string(booking.Slots.First) + kBetween +
                          std::to_string(booking.Slots.Last) + kBetween + std::to_string(copies);
  return HexText(Mixed(all)) + "@" + kRelationDomain;
}

icaltimetype TimeOf(Date day, modRes::TimeSlot slot) {
  const int minutes = (slot - 1) * 30;
  const Date on = AddDays(day, minutes / (24 * 60));
  icaltimetype time = icaltime_null_time();
  time.year = YearOf(on);
  time.month = MonthOf(on);
  time.day = DayOf(on);
  time.hour = minutes / 60 % 24;
  time.minute = minutes % 60;
  return time;
}

icaltimetype UtcTime(const DateTime& stamp) {
  icaltimetype time = icaltime_null_time();
  time.year = YearOf(stamp.Day);
  time.month = MonthOf(stamp.Day);
  time.day = DayOf(stamp.Day);
  time.hour = stamp.Hour;
  time.minute = stamp.Minute;
  time.second = stamp.Second;
  time.zone = icaltimezone_get_utc_timezone();
  return time;
}

void AddRelation(icalcomponent* event, const std::string& series) {
  icalproperty* relation = icalproperty_new_relatedto(RelationOf(series).c_str());
  icalproperty_add_parameter(relation, icalparameter_new_reltype(ICAL_RELTYPE_SIBLING));
  icalcomponent_add_property(event, relation);
}

}  // namespace

std::string IcalHead() {
  return std::string("BEGIN:VCALENDAR") + kLineEnd + "VERSION:2.0" + kLineEnd +
         "PRODID:-//Veyra//Veyra Calendar//EN" + kLineEnd;
}

std::string IcalEnd() {
  return std::string("END:VCALENDAR") + kLineEnd;
}

std::string IcalOf(const ExchangedBooking& booking, int copies, const DateTime& stamp) {
  const std::unique_ptr<icalcomponent, Freeing> event(icalcomponent_new_vevent());
  const auto add = [&](icalproperty* property) {
    icalcomponent_add_property(event.get(), property);
  };
  add(icalproperty_new_uid(UidOf(booking, copies).c_str()));
  add(icalproperty_new_dtstamp(UtcTime(stamp)));
  add(icalproperty_new_dtstart(TimeOf(booking.Day, booking.Slots.First)));
  add(icalproperty_new_dtend(TimeOf(booking.Day, booking.Slots.Last + 1)));
  add(icalproperty_new_summary(OneLine(booking.Name).c_str()));
  add(icalproperty_new_categories(OneLine(booking.Facility).c_str()));
  add(icalproperty_new_location(OneLine(booking.Facility).c_str()));
  if (!booking.Series.empty()) {
    AddRelation(event.get(), booking.Series);
  }
  const std::unique_ptr<char, Freeing> text(icalcomponent_as_ical_string_r(event.get()));
  return text.get();
}

}  // namespace veyra
