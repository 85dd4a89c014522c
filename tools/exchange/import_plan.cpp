#include "tools/exchange/import_plan.h"

#include <algorithm>
#include <map>
#include <set>

#include "data/errors.h"
#include "data/text.h"
#include "logic/bookings.h"
#include "logic/rename_bookings.h"
#include "tools/booking_words.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

constexpr std::size_t kKeyDigits = 14;

QueryResult Read(Store& store, Query query) {
  QueryResult result{std::move(query), {}};
  const auto source = store.Select(result.Asked);
  for (Row row; source->Next(row);) {
    result.Rows.push_back(row);
  }
  return result;
}

DayRange DaysOf(const std::vector<ExchangedBooking>& bookings) {
  const auto [first, last] = std::minmax_element(
      bookings.begin(), bookings.end(),
      [](const ExchangedBooking& a, const ExchangedBooking& b) { return a.Day < b.Day; });
  return {first->Day, last->Day};
}

/// Which facility each name leads to.
class FacilityFinder {
 public:
  FacilityFinder(std::vector<Facility> facilities, std::string only)
      : facilities_(std::move(facilities)), only_(std::move(only)) {}

  /// Throws ValueError, naming all of those that are not there.
  void RequireAll(const std::vector<ExchangedBooking>& bookings) {
    std::set<std::string> missing;
    for (const ExchangedBooking& booking : bookings) {
      if (!Find(NameFor(booking))) {
        missing.insert(OneLine(NameFor(booking)));
      }
    }
    if (missing.empty()) {
      return;
    }
    std::string list;
    for (const std::string& name : missing) {
      list += (list.empty() ? "\"" : "\", \"") + name;
    }
    throw ValueError({{},
                      Phrase::Tr("There is no facility %1.", list + "\""),
                      Phrase::Tr("Add it in the calendar first, or say with --facility where all "
                                 "go.")});
  }

  std::int64_t IdFor(const ExchangedBooking& booking) { return Find(NameFor(booking)).value(); }

 private:
  const std::string& NameFor(const ExchangedBooking& booking) const {
    return only_.empty() ? booking.Facility : only_;
  }

  std::optional<std::int64_t> Find(const std::string& name) {
    const auto known = ids_.find(name);
    if (known != ids_.end()) {
      return known->second;
    }
    std::optional<std::int64_t> id;
    try {
      id = FacilitiesNamed(facilities_, name).front().ID;
    } catch (const ValueError&) {
      // All that are missing are reported together.
    }
    ids_[name] = id;
    return id;
  }

  std::vector<Facility> facilities_;
  std::string only_;
  std::map<std::string, std::optional<std::int64_t>> ids_;
};

/// A booking that takes time in the calendar, or is to take it.
struct Taken {
  modRes::SlotRange Slots;
  std::string Name;
};

class Planner {
 public:
  Planner(Store& store, const std::string& facility, const DateTime& now)
      : store_(store),
        facilities_(ReadFacilities(store)),
        finder_(facilities_, facility),
        words_(facilities_),
        next_key_(static_cast<std::int64_t>(modRes::GroupKey(now))) {}

  ImportPlan Plan(const Exchanged& exchanged) {
    finder_.RequireAll(exchanged.Bookings);
    plan_.Notes = exchanged.Notes;
    plan_.Seen.push_back(Read(store_, ParseQuery("SELECT * FROM Rooms")));
    if (exchanged.Bookings.empty()) {
      return std::move(plan_);
    }
    const Query query = BookingsQuery(DaysOf(exchanged.Bookings));
    plan_.Seen.push_back(Read(store_, query));
    ReadTaken(query);
    for (const ExchangedBooking& booking : exchanged.Bookings) {
      Place(booking);
    }
    return std::move(plan_);
  }

 private:
  using Day = std::pair<std::int64_t, Date>;

  void ReadTaken(const Query& query) {
    BookingReader reader(store_, query);
    for (Booking booking; reader.Next(booking);) {
      if (booking.Group) {
        keys_in_use_.insert(static_cast<std::int64_t>(*booking.Group));
      }
      if (!booking.Day) {
        continue;
      }
      taken_[{booking.RmID, *booking.Day}].push_back(
          {modRes::RangeOfRows(booking.Slots.First, booking.Slots.Last), booking.Event});
    }
  }

  void Place(const ExchangedBooking& booking) {
    const std::int64_t room = finder_.IdFor(booking);
    const Booking added{
        .RmID = room, .Event = NameFor(booking), .Day = booking.Day, .Slots = booking.Slots};
    std::vector<Taken>& day = taken_[{room, booking.Day}];
    if (IsThere(day, added)) {
      ++plan_.AlreadyThere;
      return;
    }
    const auto clash = std::find_if(day.begin(), day.end(), [&](const Taken& other) {
      return other.Slots.First <= added.Slots.Last && added.Slots.First <= other.Slots.Last;
    });
    if (clash != day.end()) {
      plan_.Clashes.push_back(Phrase::Tr("%1 (%2) clashes with %3.", words_.Of(added),
                                         booking.Place,
                                         words_.TimeAndName(clash->Slots, clash->Name)));
      return;
    }
    day.push_back({added.Slots, added.Event});
    Add(added, booking.Series);
  }

  static bool IsThere(const std::vector<Taken>& day, const Booking& booking) {
    return std::any_of(day.begin(), day.end(), [&](const Taken& other) {
      return other.Slots.First == booking.Slots.First && other.Slots.Last == booking.Slots.Last &&
             other.Name == booking.Event;
    });
  }

  std::string NameFor(const ExchangedBooking& booking) {
    const std::string name = OneLine(booking.Name);
    if (name.empty()) {
      return modRes::kNoTitle;
    }
    const std::string cut = FirstCharacters(name, modRes::kLongestNewName);
    if (cut != name) {
      plan_.Notes.push_back(Phrase::Tr("%1: the name was cut to \"%2\".", booking.Place, cut));
    }
    return cut;
  }

  void Add(const Booking& booking, const std::string& series) {
    FieldValues fields = {{"RmID", booking.RmID},
                          {"Event", booking.Event},
                          {"DateOfRes", *booking.Day},
                          {"TimeFrom", std::int64_t{booking.Slots.First}},
                          {"TimeTo", std::int64_t{booking.Slots.Last}}};
    if (!series.empty()) {
      fields.emplace_back("MultKey", static_cast<double>(KeyOf(series)));
    }
    plan_.Additions.push_back(
        {.What = RowChange::Kind::Add, .Table = "Reserv", .Fields = std::move(fields)});
    plan_.Added.push_back(words_.Of(booking));
  }

  std::int64_t KeyOf(const std::string& series) {
    const bool is_key =
        series.size() == kKeyDigits && series.find_first_not_of("0123456789") == std::string::npos;
    if (is_key) {
      return std::stoll(series);
    }
    const auto known = keys_.find(series);
    if (known != keys_.end()) {
      return known->second;
    }
    while (keys_in_use_.contains(next_key_)) {
      ++next_key_;
    }
    keys_in_use_.insert(next_key_);
    return keys_[series] = next_key_;
  }

  Store& store_;
  std::vector<Facility> facilities_;
  FacilityFinder finder_;
  BookingWords words_;
  std::map<Day, std::vector<Taken>> taken_;
  std::map<std::string, std::int64_t> keys_;
  std::set<std::int64_t> keys_in_use_;
  std::int64_t next_key_;
  ImportPlan plan_;
};

}  // namespace

ImportPlan PlanImport(Store& store, const Exchanged& exchanged, const std::string& facility,
                      const DateTime& now) {
  return Planner(store, facility, now).Plan(exchanged);
}

}  // namespace veyra
