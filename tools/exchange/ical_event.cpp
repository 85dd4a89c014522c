#include "tools/exchange/ical_event.h"

#include <algorithm>
#include <memory>

#include "tools/plain_text.h"

namespace veyra {
namespace {

constexpr std::time_t kSecondsOfDay = std::time_t{24} * 60 * 60;

/// A rule that gives more is a fault, or made to do harm.
constexpr int kMostRepetitions = 100000;

struct Freeing {
  void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
};

std::string TextOf(const char* text) {
  return text == nullptr ? std::string() : text;
}

/// Visits each property of a kind.
template <typename Visit>
void ForEach(icalcomponent* component, icalproperty_kind kind, const Visit& visit) {
  for (icalproperty* property = icalcomponent_get_first_property(component, kind);
       property != nullptr; property = icalcomponent_get_next_property(component, kind)) {
    visit(property);
  }
}

bool IsEndless(const icalrecurrencetype& rule) {
  return rule.count == 0 && icaltime_is_null_time(rule.until);
}

Date DayOfTime(const icaltimetype& time) {
  return Date(std::chrono::year(time.year), std::chrono::month(static_cast<unsigned>(time.month)),
              std::chrono::day(static_cast<unsigned>(time.day)));
}

/// The library takes the 32nd of February for the fourth of March.
bool IsReadable(const icaltimetype& time) {
  const bool has_day =
      icaltime_is_null_time(time) == 0 && MakeDate(time.year, time.month, time.day).has_value();
  return has_day && (time.is_date != 0 || (time.hour < 24 && time.minute < 60));
}

ValueError Unreadable(const Phrase& cause) {
  return ValueError(
      {{}, cause, Phrase::Tr("Nothing was changed. Correct the file, or leave the event out.")});
}

}  // namespace

IcalMoment MomentOf(const icaltimetype& time) {
  const auto* zone = time.zone;
  icaltimezone* utc = icaltimezone_get_utc_timezone();
  auto* counted = zone == nullptr ? utc : const_cast<icaltimezone*>(zone);
  return {icaltime_as_timet_with_zone(time, counted), zone == nullptr};
}

std::string IcalEvent::Uid() const {
  return TextOf(icalcomponent_get_uid(component_));
}

std::string IcalEvent::Summary() const {
  return TextOf(icalcomponent_get_summary(component_));
}

std::vector<std::string> IcalEvent::Places() const {
  std::vector<std::string> places;
  ForEach(component_, ICAL_CATEGORIES_PROPERTY, [&](icalproperty* property) {
    places.push_back(TextOf(icalproperty_get_categories(property)));
  });
  const std::string location = TextOf(icalcomponent_get_location(component_));
  if (!location.empty()) {
    places.push_back(location);
  }
  return places;
}

std::vector<std::string> IcalEvent::Relations() const {
  std::vector<std::string> relations;
  ForEach(component_, ICAL_RELATEDTO_PROPERTY, [&](icalproperty* property) {
    relations.push_back(TextOf(icalproperty_get_relatedto(property)));
  });
  return relations;
}

bool IcalEvent::IsCancelled() const {
  return icalcomponent_get_status(component_) == ICAL_STATUS_CANCELLED;
}

std::optional<std::time_t> IcalEvent::Replaced() const {
  if (icalcomponent_get_first_property(component_, ICAL_RECURRENCEID_PROPERTY) == nullptr) {
    return std::nullopt;
  }
  return MomentOf(icalcomponent_get_recurrenceid(component_)).Seconds;
}

/// How reports name it.
std::string IcalEvent::Name() const {
  return OneLine(Summary().empty() ? Uid() : Summary());
}

std::time_t IcalEvent::Length(const icaltimetype& first) const {
  const bool has_end =
      icalcomponent_get_first_property(component_, ICAL_DTEND_PROPERTY) != nullptr ||
      icalcomponent_get_first_property(component_, ICAL_DURATION_PROPERTY) != nullptr;
  if (!has_end) {
    return first.is_date != 0 ? kSecondsOfDay : 0;
  }
  const icaltimetype end = icalcomponent_get_dtend(component_);
  const std::time_t length = MomentOf(end).Seconds - MomentOf(first).Seconds;
  if (icaltime_is_null_time(end) != 0 || length < 0) {
    throw Unreadable(Phrase::Tr(
        "The event \"%1\" ends before it begins, or at a time that cannot be read.", Name()));
  }
  constexpr std::time_t kLongest = 366 * kSecondsOfDay;
  if (length > kLongest) {
    throw Unreadable(Phrase::Tr("The event \"%1\" lasts for more than a year.", Name()));
  }
  return length;
}

void IcalEvent::Repeat(icalrecurrencetype rule, const icaltimetype& first, const DayRange& days,
                       std::vector<icaltimetype>& starts) const {
  if (IsEndless(rule) && !days.To) {
    throw Unreadable(Phrase::Tr(
        "The event \"%1\" repeats without end. Name the last day that you want with --to.",
        Name()));
  }
  const std::unique_ptr<icalrecur_iterator, Freeing> iterator(icalrecur_iterator_new(rule, first));
  if (!iterator) {
    throw Unreadable(Phrase::Tr("The event \"%1\" repeats by a rule that cannot be read.", Name()));
  }
  for (int count = 0;; ++count) {
    const icaltimetype time = icalrecur_iterator_next(iterator.get());
    if (icaltime_is_null_time(time) != 0) {
      return;
    }
    // A day later, whatever the zones.
    if (days.To && DayOfTime(time) > AddDays(*days.To, 1)) {
      return;
    }
    if (count == kMostRepetitions) {
      throw Unreadable(
          Phrase::Tr("The event \"%1\" repeats more often than any booking does.", Name()));
    }
    starts.push_back(time);
  }
}

std::vector<icaltimetype> IcalEvent::Starts(const icaltimetype& first, const DayRange& days) const {
  std::vector<icaltimetype> starts;
  bool repeats = false;
  ForEach(component_, ICAL_RRULE_PROPERTY, [&](icalproperty* property) {
    repeats = true;
    Repeat(icalproperty_get_rrule(property), first, days, starts);
  });
  if (!repeats) {
    starts.push_back(first);
  }
  ForEach(component_, ICAL_RDATE_PROPERTY, [&](icalproperty* property) {
    icaltimetype time = icalproperty_get_rdate(property).time;
    if (time.zone == nullptr && icaltime_is_utc(time) == 0) {
      time.zone = first.zone;
    }
    if (icaltime_is_null_time(time) == 0) {
      starts.push_back(time);
    }
  });
  return starts;
}

std::vector<std::time_t> IcalEvent::Excluded() const {
  std::vector<std::time_t> excluded;
  const icaltimetype first = icalcomponent_get_dtstart(component_);
  ForEach(component_, ICAL_EXDATE_PROPERTY, [&](icalproperty* property) {
    icaltimetype time = icalproperty_get_exdate(property);
    if (time.zone == nullptr) {
      time.zone = first.zone;
    }
    excluded.push_back(MomentOf(time).Seconds);
  });
  return excluded;
}

std::vector<IcalOccurrence> IcalEvent::Occurrences(const DayRange& days,
                                                   const std::vector<std::time_t>& replaced) const {
  const icaltimetype first = icalcomponent_get_dtstart(component_);
  if (!IsReadable(first)) {
    throw Unreadable(Phrase::Tr("The event \"%1\" has no date that can be read.", Name()));
  }
  const std::time_t length = Length(first);
  std::vector<std::time_t> left_out = Excluded();
  left_out.insert(left_out.end(), replaced.begin(), replaced.end());
  std::vector<IcalOccurrence> occurrences;
  for (const icaltimetype& start : Starts(first, days)) {
    const IcalMoment from = MomentOf(start);
    if (std::find(left_out.begin(), left_out.end(), from.Seconds) != left_out.end()) {
      continue;
    }
    left_out.push_back(from.Seconds);
    occurrences.push_back({from, {from.Seconds + length, from.IsFloating}});
  }
  return occurrences;
}

}  // namespace veyra
