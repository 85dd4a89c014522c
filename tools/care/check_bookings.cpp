#include "tools/care/check_bookings.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <set>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "data/text.h"
#include "tools/booking_words.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

/// A booking that can be shown in the calendar, as small as it can be kept.
struct Placed {
  std::int64_t RmID = 0;
  std::int32_t Day = 0;  ///< Days since 1970.
  std::int8_t First = 0;
  std::int8_t Last = 0;
  std::string Event;
};

std::int32_t DayNumber(Date day) {
  return static_cast<std::int32_t>(std::chrono::sys_days(day).time_since_epoch().count());
}

Date DayOfNumber(std::int32_t number) {
  return Date(std::chrono::sys_days(std::chrono::days(number)));
}

/// The bookings of one group in one facility.
struct GroupRows {
  std::string Event;
  modRes::SlotRange Slots;
  std::int64_t Count = 0;
  bool NamesDiffer = false;
  bool SlotsDiffer = false;
};

struct GroupKeyHash {
  std::size_t operator()(const std::pair<std::int64_t, double>& key) const {
    return std::hash<double>()(key.second) * 31 + std::hash<std::int64_t>()(key.first);
  }
};

using Groups = std::unordered_map<std::pair<std::int64_t, double>, GroupRows, GroupKeyHash>;

RowChange Swapped(const Row& row, const modRes::SlotRange& slots) {
  return {
      .What = RowChange::Kind::Set,
      .Table = "Reserv",
      .Before = row,
      .Fields = {{"TimeFrom", std::int64_t{slots.Last}}, {"TimeTo", std::int64_t{slots.First}}}};
}

class BookingCheck {
 public:
  BookingCheck(const std::vector<Facility>& facilities, std::size_t longest_name)
      : words_(facilities), longest_name_(longest_name) {
    for (const Facility& facility : facilities) {
      known_.insert(facility.ID);
    }
  }

  void Look(const Booking& booking, const Row& row) {
    CheckFacility(booking);
    CheckDay(booking);
    CheckSlots(booking, row);
    CheckName(booking);
    Gather(booking);
  }

  Findings Finish() {
    CheckOverlaps();
    CheckGroups();
    return std::move(findings_);
  }

 private:
  void Add(const char* kind, const Phrase& what, const Phrase& advice) {
    findings_.push_back({.Kind = kind, .What = what, .Advice = advice});
  }

  void CheckFacility(const Booking& booking) {
    if (known_.contains(booking.RmID)) {
      return;
    }
    Add("no-facility", Phrase::Tr("Of a facility that is not there: %1.", words_.Of(booking)),
        Phrase::Tr("No window shows it. Export it, then import it with --facility, or restore a "
                   "backup."));
  }

  void CheckDay(const Booking& booking) {
    if (!booking.Day) {
      Add("bad-date", Phrase::Tr("Its date cannot be read: %1.", words_.Of(booking)),
          Phrase::Tr("No window shows it. Correct the date with another program, or book it "
                     "anew."));
      return;
    }
    if (booking.DayHasTime) {
      Add("date-with-time",
          Phrase::Tr("A time of day stands with its date: %1.", words_.Of(booking)),
          Phrase::Tr("No window shows it. Book it anew."));
    }
  }

  void CheckSlots(const Booking& booking, const Row& row) {
    const auto& slots = booking.Slots;
    if (slots.First == 0 || slots.Last == 0) {
      Add("bad-slots", Phrase::Tr("Its half hours are none of 1 to 48: %1.", words_.Of(booking)),
          Phrase::Tr("Book it anew with the right times, and delete this one."));
    } else if (slots.First > slots.Last) {
      findings_.push_back({.Kind = "slots-reversed",
                           .What = Phrase::Tr("It ends before it begins: %1.", words_.Of(booking)),
                           .Advice = Phrase::Tr("--mend puts its two ends in order."),
                           .Mending = {Swapped(row, slots)},
                           .Mended = Phrase::Tr("The two ends were put in order.")});
    }
  }

  void CheckName(const Booking& booking) {
    if (longest_name_ == 0 || CharacterCount(booking.Event) <= longest_name_) {
      return;
    }
    Add("long-name",
        Phrase::Tr("Its name is longer than the file's column: %1.", words_.Of(booking)),
        Phrase::Tr("Other programs may cut it. Rename the booking."));
  }

  void Gather(const Booking& booking) {
    if (booking.Group) {
      GatherGroup(booking);
    }
    const auto& slots = booking.Slots;
    if (!booking.Day || slots.First == 0 || slots.First > slots.Last) {
      return;
    }
    placed_.push_back({booking.RmID, DayNumber(*booking.Day), static_cast<std::int8_t>(slots.First),
                       static_cast<std::int8_t>(slots.Last), booking.Event});
  }

  void GatherGroup(const Booking& booking) {
    GroupRows& group = groups_[{booking.RmID, *booking.Group}];
    if (group.Count++ == 0) {
      group.Event = booking.Event;
      group.Slots = booking.Slots;
      return;
    }
    group.NamesDiffer |= group.Event != booking.Event;
    group.SlotsDiffer |=
        group.Slots.First != booking.Slots.First || group.Slots.Last != booking.Slots.Last;
  }

  Phrase WordsOf(const Placed& booking) const {
    return words_.Of({.RmID = booking.RmID,
                      .Event = booking.Event,
                      .Day = DayOfNumber(booking.Day),
                      .Slots = {booking.First, booking.Last}});
  }

  /// Each booking is held against the one before it on that day that ends last, so that one that is
  /// enclosed is found as well.
  void CheckOverlaps() {
    std::stable_sort(placed_.begin(), placed_.end(), [](const Placed& a, const Placed& b) {
      return std::tuple(a.RmID, a.Day, a.First) < std::tuple(b.RmID, b.Day, b.First);
    });
    const Placed* longest = nullptr;
    for (const Placed& booking : placed_) {
      const bool same_day =
          longest != nullptr && longest->RmID == booking.RmID && longest->Day == booking.Day;
      if (same_day && booking.First <= longest->Last) {
        Add("overlap",
            Phrase::Tr("%1 overlaps %2.", WordsOf(*longest),
                       words_.TimeAndName(SlotsOf(booking), booking.Event)),
            Phrase::Tr("Delete one of the two, or book it at another time."));
      }
      if (!same_day || booking.Last > longest->Last) {
        longest = &booking;
      }
    }
  }

  static modRes::SlotRange SlotsOf(const Placed& booking) { return {booking.First, booking.Last}; }

  static Phrase DifferenceIn(const GroupRows& group, const std::string& key, const Phrase& place) {
    if (!group.SlotsDiffer) {
      return Phrase::Tr("The %1 bookings of group %2 differ in their names: %3.", group.Count, key,
                        place);
    }
    return group.NamesDiffer
               ? Phrase::Tr("The %1 bookings of group %2 differ in their names and times: %3.",
                            group.Count, key, place)
               : Phrase::Tr("The %1 bookings of group %2 differ in their times: %3.", group.Count,
                            key, place);
  }

  void CheckGroups() {
    std::multimap<std::string, Phrase> lines;
    for (const auto& [key, group] : groups_) {
      if (!group.NamesDiffer && !group.SlotsDiffer) {
        continue;
      }
      const Phrase line = DifferenceIn(
          group, ToText(key.second), words_.FacilityName(key.first) + ", " + OneLine(group.Event));
      lines.emplace(line.English(), line);
    }
    for (const auto& [english, line] : lines) {
      Add("group-differs", line,
          Phrase::Tr("Nothing to do when one was renamed on purpose; else rename or delete them "
                     "one by one."));
    }
  }

  BookingWords words_;
  std::size_t longest_name_;
  std::set<std::int64_t> known_;
  std::vector<Placed> placed_;
  Groups groups_;
  Findings findings_;
};

}  // namespace

Findings CheckBookings(Store& store, const std::vector<Facility>& facilities,
                       std::size_t longest_name, const std::function<void(std::int64_t)>& read) {
  BookingCheck check(facilities, longest_name);
  BookingReader reader(store, BookingsQuery({}));
  std::int64_t count = 0;
  for (Booking booking; reader.Next(booking); read(++count)) {
    check.Look(booking, reader.Stored());
  }
  return check.Finish();
}

}  // namespace veyra
